#include "ui/kit/touch/DragSpeed.h"

#include <algorithm>

namespace kit {

namespace {

constexpr qint64 Remembered = 100;

} // namespace

DragSpeed::DragSpeed(QObject* parent)
    : QObject(parent)
{
    m_clock.start();
}

void DragSpeed::moveAt(double place, qint64 time)
{
    std::erase_if(m_samples, [&](const Sample& sample) { return sample.time < time - Remembered; });
    m_samples.push_back({ place, time });
}

double DragSpeed::speedAt(qint64 time) const
{
    const auto first = std::find_if(
        m_samples.begin(), m_samples.end(), [&](const Sample& sample) { return sample.time >= time - Remembered; });
    if (first == m_samples.end())
        return 0;
    const Sample& last = m_samples.back();
    return (last.place - first->place) * 1000 / static_cast<double>(std::max(last.time - first->time, qint64(1)));
}

} // namespace kit
