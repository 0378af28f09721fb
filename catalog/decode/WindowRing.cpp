#include "catalog/decode/WindowRing.h"

// The counters run in 31 bits, which no text within the limits of an index comes near to.

WindowRing::WindowRing()
    : m_windows(new std::array<Window, windowCount>)
{
}

char* WindowRing::window()
{
    const std::uint32_t written = m_written.load(std::memory_order_relaxed) / oneWindow;
    std::uint32_t read = m_read.load(std::memory_order_acquire);
    while ((read & ended) == 0 && written - read / oneWindow == windowCount) {
        m_read.wait(read, std::memory_order_acquire);
        read = m_read.load(std::memory_order_acquire);
    }
    return (read & ended) != 0 ? nullptr : at(written).bytes.data();
}

void WindowRing::accept(std::size_t size)
{
    const std::uint32_t number = m_written.load(std::memory_order_relaxed) / oneWindow;
    at(number).size = size;
    m_written.fetch_add(oneWindow, std::memory_order_release);
    if (number % wakeInterval == wakeInterval - 1)
        m_written.notify_one();
}

void WindowRing::finish()
{
    m_written.fetch_or(ended, std::memory_order_release);
    m_written.notify_one();
}

std::string_view WindowRing::next()
{
    if (m_isHolding) {
        m_read.fetch_add(oneWindow, std::memory_order_release);
        m_read.notify_one();
    }
    const std::uint32_t read = m_read.load(std::memory_order_relaxed) / oneWindow;
    std::uint32_t written = m_written.load(std::memory_order_acquire);
    while (written / oneWindow == read && (written & ended) == 0) {
        m_written.wait(written, std::memory_order_acquire);
        written = m_written.load(std::memory_order_acquire);
    }
    m_isHolding = written / oneWindow != read;
    return m_isHolding ? std::string_view(at(read).bytes.data(), at(read).size) : std::string_view();
}

void WindowRing::leave()
{
    m_read.fetch_or(ended, std::memory_order_release);
    m_read.notify_one();
}
