#pragma once

#include <QString>

#include <functional>
#include <memory>

struct _GSettings;

// How a person has told the desktop that things are to be seen, as GNOME and the desktops and phones around it keep it.
// What the person changes is told of while Qt's main loop runs, which is GLib's on Debian. Main thread.
class DesktopPreferences
{
public:
    // The directory holds compiled settings schemas instead of the system's.
    explicit DesktopPreferences(const QString& platformName, const QString& schemaDirectory = {});
    ~DesktopPreferences();
    DesktopPreferences(const DesktopPreferences&) = delete;
    DesktopPreferences& operator=(const DesktopPreferences&) = delete;

    // Called after any change.
    void setChanged(std::function<void()> changed) { m_changed = std::move(changed); }

    // How much larger than usual texts are to be; 1 where nobody tells. Only under Wayland: under X11 the desktop puts
    // the factor into the resolution of fonts, by which Qt enlarges the whole window already.
    double textScale() const { return m_textScale; }
    // Whether things move; they do where nobody tells.
    bool hasAnimations() const { return m_hasAnimations; }

    // For the desktop's signal.
    void readAgain();

private:
    struct SettingsRelease
    {
        void operator()(_GSettings* settings) const;
    };

    std::unique_ptr<_GSettings, SettingsRelease> m_settings;
    std::function<void()> m_changed;
    double m_textScale = 1;
    bool m_hasAnimations = true;
    bool m_tellsTextScale = false;
    bool m_tellsAnimations = false;
};
