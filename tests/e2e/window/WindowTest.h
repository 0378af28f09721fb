#pragma once

#include "RootViewController.h"
#include "ScreenWorld.h"
#include "TouchDriver.h"

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
    TableView& table() const { return touch->table(); }
    AlertController* alert() const { return window->presentedAlert(); }

    std::unique_ptr<Window> window;
    std::unique_ptr<TouchDriver> touch;
};
