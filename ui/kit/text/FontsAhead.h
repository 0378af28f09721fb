#pragma once

#include <thread>

namespace kit {

// Finds out on a thread of its own which fonts the machine has, while the program starts with other things: there are
// dozens of files to read, and the first text waits for all of them. Made when no other thread changes the environment,
// which is read; it waits for its thread when it goes.
class FontsAhead
{
public:
    FontsAhead();

private:
    std::jthread m_reading;
};

} // namespace kit
