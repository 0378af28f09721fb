#pragma once

#include "tests/support/ui/TouchDriver.h"
#include "tests/ui/screens/ScreenWorld.h"
#include "ui/screens/shell/RootViewController.h"

// The whole window on a catalog of its own, with a person at it. Nothing here reaches any network.
class WindowTest : public ScreenTest
{
protected:
    WindowTest();
    ~WindowTest() override;

    // Opens the window; what the catalog holds by then is what its first screen shows.
    void open();
    // So many packages named "Package 001" and on, spread over sections "Section 1" to "Section 3".
    void addPackages(int count);
    kit::TableView& table() const { return touch->table(); }
    kit::AlertController* alert() const { return window->presentedAlert(); }

    std::unique_ptr<kit::Window> window;
    std::unique_ptr<TouchDriver> touch;
};
