#include "ui/screens/shell/DesktopTextScale.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString Wayland = QStringLiteral("wayland");

// A desktop whose person has set nothing, so that what its schemas tell counts.
class DesktopTextScaleTest : public testing::Test
{
protected:
    DesktopTextScaleTest() { qputenv("GSETTINGS_BACKEND", "memory"); }

    void install(const char* schema, const char* key)
    {
        QFile file(m_directory.filePath(QStringLiteral("test.gschema.xml")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<schemalist><schema id='");
        file.write(schema);
        file.write("' path='/org/gnome/desktop/interface/'>");
        file.write(key);
        file.write("</schema></schemalist>");
        file.close();
        ASSERT_EQ(QProcess::execute(QStringLiteral("glib-compile-schemas"), { schemas() }), 0);
    }
    QString schemas() const { return m_directory.path(); }

private:
    QTemporaryDir m_directory;
};

constexpr const char* Interface = "org.gnome.desktop.interface";

} // namespace

TEST_F(DesktopTextScaleTest, isTheFactorOfTheDesktop)
{
    install(Interface, "<key name='text-scaling-factor' type='d'><default>1.5</default></key>");
    EXPECT_EQ(desktopTextScale(Wayland, schemas()), 1.5);
    EXPECT_EQ(desktopTextScale(QStringLiteral("wayland-egl"), schemas()), 1.5);
}

TEST_F(DesktopTextScaleTest, isOneWhereTheWindowIsEnlargedAsAWhole)
{
    install(Interface, "<key name='text-scaling-factor' type='d'><default>1.5</default></key>");
    EXPECT_EQ(desktopTextScale(QStringLiteral("xcb"), schemas()), 1);
}

TEST_F(DesktopTextScaleTest, isOneWithoutAnySchemas)
{
    EXPECT_EQ(desktopTextScale(Wayland, schemas()), 1);
}

TEST_F(DesktopTextScaleTest, isOneOnADesktopWithoutTheSchema)
{
    install("org.example.desktop.interface", "<key name='text-scaling-factor' type='d'><default>1.5</default></key>");
    EXPECT_EQ(desktopTextScale(Wayland, schemas()), 1);
}

TEST_F(DesktopTextScaleTest, isOneWhereTheSchemaHasNoSuchKey)
{
    install(Interface, "<key name='another' type='d'><default>1.5</default></key>");
    EXPECT_EQ(desktopTextScale(Wayland, schemas()), 1);
}

TEST_F(DesktopTextScaleTest, isOneWhereTheKeyHoldsNoNumber)
{
    install(Interface, "<key name='text-scaling-factor' type='s'><default>'1.5'</default></key>");
    EXPECT_EQ(desktopTextScale(Wayland, schemas()), 1);
}
