// GIO before Qt: its headers use names that Qt may define away.
#include <gio/gio.h>

#include "ui/screens/shell/DesktopPreferences.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/paint/Animations.h"
#include "ui/kit/text/TextScale.h"
#include "ui/kit/view/Label.h"
#include "ui/screens/shell/AppDelegate.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QString Wayland = QStringLiteral("wayland");
constexpr const char* Interface = "org.gnome.desktop.interface";
constexpr const char* LargeTexts = "<key name='text-scaling-factor' type='d'><default>1.5</default></key>";
constexpr const char* BothKeys = "<key name='text-scaling-factor' type='d'><default>1</default></key>"
                                 "<key name='enable-animations' type='b'><default>true</default></key>";

// The schemas of a desktop; what its person sets is kept in memory.
class Desktop
{
protected:
    Desktop() { qputenv("GSETTINGS_BACKEND", "memory"); }

    void install(const char* schema, const char* keys)
    {
        QFile file(m_directory.filePath(QStringLiteral("test.gschema.xml")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<schemalist><schema id='");
        file.write(schema);
        file.write("' path='/org/gnome/desktop/interface/'>");
        file.write(keys);
        file.write("</schema></schemalist>");
        file.close();
        ASSERT_EQ(QProcess::execute(QStringLiteral("glib-compile-schemas"), { schemas() }), 0);
    }
    QString schemas() const { return m_directory.path(); }
    // As the program for the desktop's settings does.
    void set(const char* key, GVariant* value) const
    {
        GSettingsSchemaSource* const source = g_settings_schema_source_new_from_directory(
            QFile::encodeName(schemas()).constData(), nullptr, FALSE, nullptr);
        GSettingsSchema* const schema = g_settings_schema_source_lookup(source, Interface, FALSE);
        GSettings* const settings = g_settings_new_full(schema, nullptr, nullptr);
        g_settings_set_value(settings, key, value);
        g_object_unref(settings);
        g_settings_schema_unref(schema);
        g_settings_schema_source_unref(source);
    }
    // What is set stays in the memory of the process.
    void resetAll() const
    {
        set("text-scaling-factor", g_variant_new_double(1));
        set("enable-animations", g_variant_new_boolean(TRUE));
    }

private:
    QTemporaryDir m_directory;
};

class DesktopPreferencesTest : public testing::Test, protected Desktop
{
protected:
    double textScale(const QString& platform) const { return DesktopPreferences(platform, schemas()).textScale(); }
};

// The program's window on that desktop.
class TheWindowOnADesktop : public ScreenTest, protected Desktop
{
protected:
    TheWindowOnADesktop()
    {
        addPackage(QStringLiteral("Alpha"));
        install(Interface, BothKeys);
        preferences = std::make_unique<DesktopPreferences>(Wayland, schemas());
        delegate.follow(*preferences);
        delegate.didFinishLaunchingWithOptions();
        turnLoop();
    }
    ~TheWindowOnADesktop() override
    {
        resetAll();
        kit::TextScale::set(1);
        kit::Animations::setEnabled(false);
    }

    std::unique_ptr<DesktopPreferences> preferences;
    AppDelegate delegate{ *manager, *installer };
};

} // namespace

TEST_F(DesktopPreferencesTest, tellTheFactorOfTexts)
{
    install(Interface, LargeTexts);
    EXPECT_EQ(textScale(Wayland), 1.5);
    EXPECT_EQ(textScale(QStringLiteral("wayland-egl")), 1.5);
}

TEST_F(DesktopPreferencesTest, tellNoFactorWhereTheWindowIsEnlargedAsAWhole)
{
    install(Interface, LargeTexts);
    EXPECT_EQ(textScale(QStringLiteral("xcb")), 1);
}

TEST_F(DesktopPreferencesTest, areTheUsualOnesWithoutAnySchemas)
{
    EXPECT_EQ(textScale(Wayland), 1);
    EXPECT_TRUE(DesktopPreferences(Wayland, schemas()).hasAnimations());
}

TEST_F(DesktopPreferencesTest, areTheUsualOnesOnADesktopWithoutTheSchema)
{
    install("org.example.desktop.interface", LargeTexts);
    EXPECT_EQ(textScale(Wayland), 1);
}

TEST_F(DesktopPreferencesTest, areTheUsualOnesWhereTheSchemaHasNoSuchKey)
{
    install(Interface, "<key name='another' type='d'><default>1.5</default></key>");
    EXPECT_EQ(textScale(Wayland), 1);
    EXPECT_TRUE(DesktopPreferences(Wayland, schemas()).hasAnimations());
}

TEST_F(DesktopPreferencesTest, areTheUsualOnesWhereTheKeysHoldSomethingElse)
{
    install(Interface,
        "<key name='text-scaling-factor' type='s'><default>'1.5'</default></key>"
        "<key name='enable-animations' type='s'><default>'false'</default></key>");
    EXPECT_EQ(textScale(Wayland), 1);
    EXPECT_TRUE(DesktopPreferences(Wayland, schemas()).hasAnimations());
}

TEST_F(DesktopPreferencesTest, tellOnEveryPlatformThatNothingIsToMove)
{
    install(Interface, "<key name='enable-animations' type='b'><default>false</default></key>");
    EXPECT_FALSE(DesktopPreferences(Wayland, schemas()).hasAnimations());
    EXPECT_FALSE(DesktopPreferences(QStringLiteral("xcb"), schemas()).hasAnimations());
}

TEST_F(DesktopPreferencesTest, tellOfEachChange)
{
    install(Interface, BothKeys);
    DesktopPreferences preferences(Wayland, schemas());
    int changes = 0;
    preferences.setChanged([&] { ++changes; });
    set("text-scaling-factor", g_variant_new_double(1.25));
    EXPECT_TRUE(QTest::qWaitFor([&] { return preferences.textScale() == 1.25; }));
    EXPECT_EQ(changes, 1);
    set("enable-animations", g_variant_new_boolean(FALSE));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !preferences.hasAnimations(); }));
    EXPECT_EQ(changes, 2);
    resetAll();
}

TEST_F(TheWindowOnADesktop, enlargesItsTextsAndRowsWhileItRuns)
{
    auto* const tabs = qobject_cast<kit::TabBarController*>(delegate.window()->rootViewController());
    auto* const stack = qobject_cast<kit::NavigationController*>(tabs->selectedViewController());
    const kit::TableView& table = *static_cast<kit::TableView*>(stack->topViewController()->view());
    ASSERT_EQ(table.rectForRow({ 0, 0 }).height(), 60);
    set("text-scaling-factor", g_variant_new_double(2));
    EXPECT_TRUE(waitUntil([&] { return table.rectForRow({ 0, 0 }).height() == 96; }));
    EXPECT_EQ(table.cellForRow({ 0, 0 })->textLabel()->shownFont().pixelSize(), 30);
}

TEST_F(TheWindowOnADesktop, movesNothingAnyMoreWhenAPersonAsksForThat)
{
    ASSERT_GT(kit::Animations::duration(100), 0);
    set("enable-animations", g_variant_new_boolean(FALSE));
    EXPECT_TRUE(waitUntil([] { return kit::Animations::duration(100) == 0; }));
}
