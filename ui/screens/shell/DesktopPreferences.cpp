// GIO before Qt: its headers use names that Qt may define away.
#include <gio/gio.h>

#include "ui/screens/shell/DesktopPreferences.h"

#include <QFile>

namespace {

constexpr const char* TextScaleKey = "text-scaling-factor";
constexpr const char* AnimationsKey = "enable-animations";

template <auto Release> struct Releaser
{
    template <typename Object> void operator()(Object* object) const { Release(object); }
};
using Source = std::unique_ptr<GSettingsSchemaSource, Releaser<g_settings_schema_source_unref>>;
using Schema = std::unique_ptr<GSettingsSchema, Releaser<g_settings_schema_unref>>;
using SchemaKey = std::unique_ptr<GSettingsSchemaKey, Releaser<g_settings_schema_key_unref>>;

Source sourceIn(const QString& directory)
{
    if (!directory.isEmpty())
        return Source(g_settings_schema_source_new_from_directory(
            QFile::encodeName(directory).constData(), nullptr, FALSE, nullptr));
    GSettingsSchemaSource* const ofSystem = g_settings_schema_source_get_default();
    return Source(ofSystem ? g_settings_schema_source_ref(ofSystem) : nullptr);
}

// Asking GSettings for what is not there ends the program.
bool hasKey(GSettingsSchema& schema, const char* name, const GVariantType* type)
{
    if (!g_settings_schema_has_key(&schema, name))
        return false;
    const SchemaKey key(g_settings_schema_get_key(&schema, name));
    return g_variant_type_equal(g_settings_schema_key_get_value_type(key.get()), type);
}

void tell(GSettings* /*settings*/, const char* /*key*/, gpointer preferences)
{
    static_cast<DesktopPreferences*>(preferences)->readAgain();
}

} // namespace

void DesktopPreferences::SettingsRelease::operator()(_GSettings* settings) const
{
    g_object_unref(settings);
}

DesktopPreferences::DesktopPreferences(const QString& platformName, const QString& schemaDirectory)
{
    const Source source = sourceIn(schemaDirectory);
    const Schema schema(
        source ? g_settings_schema_source_lookup(source.get(), "org.gnome.desktop.interface", TRUE) : nullptr);
    if (!schema)
        return;
    m_tellsTextScale
        = platformName.startsWith(QLatin1String("wayland")) && hasKey(*schema, TextScaleKey, G_VARIANT_TYPE_DOUBLE);
    m_tellsAnimations = hasKey(*schema, AnimationsKey, G_VARIANT_TYPE_BOOLEAN);
    m_settings.reset(g_settings_new_full(schema.get(), nullptr, nullptr));
    g_signal_connect(m_settings.get(), "changed", G_CALLBACK(tell), this);
    // GSettings tells of changes only to values that were read after the connection was made.
    readAgain();
}

DesktopPreferences::~DesktopPreferences()
{
    if (m_settings)
        g_signal_handlers_disconnect_by_data(m_settings.get(), this);
}

void DesktopPreferences::readAgain()
{
    const double textScale = m_tellsTextScale ? g_settings_get_double(m_settings.get(), TextScaleKey) : 1;
    const bool hasAnimations = !m_tellsAnimations || g_settings_get_boolean(m_settings.get(), AnimationsKey);
    const bool isNews = textScale != m_textScale || hasAnimations != m_hasAnimations;
    m_textScale = textScale;
    m_hasAnimations = hasAnimations;
    if (isNews && m_changed)
        m_changed();
}
