// GIO before Qt: its headers use names that Qt may define away.
#include <gio/gio.h>

#include "ui/screens/shell/DesktopTextScale.h"

#include <QFile>

#include <memory>

namespace {

constexpr const char* Key = "text-scaling-factor";

template <auto Release> struct Releaser
{
    template <typename Object> void operator()(Object* object) const { Release(object); }
};
using Source = std::unique_ptr<GSettingsSchemaSource, Releaser<g_settings_schema_source_unref>>;
using Schema = std::unique_ptr<GSettingsSchema, Releaser<g_settings_schema_unref>>;
using SchemaKey = std::unique_ptr<GSettingsSchemaKey, Releaser<g_settings_schema_key_unref>>;
using Settings = std::unique_ptr<GSettings, Releaser<g_object_unref>>;

Source sourceIn(const QString& directory)
{
    if (!directory.isEmpty())
        return Source(g_settings_schema_source_new_from_directory(
            QFile::encodeName(directory).constData(), nullptr, FALSE, nullptr));
    GSettingsSchemaSource* const ofSystem = g_settings_schema_source_get_default();
    return Source(ofSystem ? g_settings_schema_source_ref(ofSystem) : nullptr);
}

// Asking GSettings for what is not there ends the program.
bool hasKey(GSettingsSchema& schema)
{
    if (!g_settings_schema_has_key(&schema, Key))
        return false;
    const SchemaKey key(g_settings_schema_get_key(&schema, Key));
    return g_variant_type_equal(g_settings_schema_key_get_value_type(key.get()), G_VARIANT_TYPE_DOUBLE);
}

} // namespace

double desktopTextScale(const QString& platformName, const QString& schemaDirectory)
{
    if (!platformName.startsWith(QLatin1String("wayland")))
        return 1;
    const Source source = sourceIn(schemaDirectory);
    if (!source)
        return 1;
    const Schema schema(g_settings_schema_source_lookup(source.get(), "org.gnome.desktop.interface", TRUE));
    if (!schema || !hasKey(*schema))
        return 1;
    const Settings settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    return g_settings_get_double(settings.get(), Key);
}
