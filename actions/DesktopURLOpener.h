#pragma once

#include "actions/URLOpener.h"

// The handlers that the desktop knows for URL schemes, asked for and started through GIO.
class DesktopURLOpener : public URLOpener
{
public:
    bool canOpenURL(const QString& url) override;
    void openURL(const QString& url) override;
};
