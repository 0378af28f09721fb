#pragma once

#include "http/Client.h"
#include "ui/classic/ClassicUI.h"

// While it lives, icons come over the real network.
class IconNetwork
{
public:
    IconNetwork() { ClassicUI::setIconNetwork(&m_client); }
    ~IconNetwork() { ClassicUI::setIconNetwork(nullptr); }
    IconNetwork(const IconNetwork&) = delete;
    IconNetwork& operator=(const IconNetwork&) = delete;

private:
    http::Client m_client;
};
