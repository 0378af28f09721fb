#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <QByteArray>

// Gathers what it is given, and may want only so many windows.
class GatheringTarget : public DecodeTarget
{
public:
    explicit GatheringTarget(int windowsWanted)
        : m_windowsWanted(windowsWanted)
    {
    }

    char* window() override { return m_windowsWanted == 0 ? nullptr : m_window.data(); }

    void accept(std::size_t size) override
    {
        --m_windowsWanted;
        m_text.append(m_window.constData(), static_cast<qsizetype>(size));
    }

    const QByteArray& text() const { return m_text; }

private:
    int m_windowsWanted;
    QByteArray m_window = QByteArray(windowSize, 0);
    QByteArray m_text;
};
