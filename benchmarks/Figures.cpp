#include "benchmarks/Figures.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

Figures::Figures(int argc, char** argv)
    : m_wanted(argv + 1, argv + argc)
{
}

bool Figures::areWanted(const QByteArray& beginning) const
{
    const auto fits = [&](const QByteArray& word) { return word.startsWith(beginning) || beginning.startsWith(word); };
    return m_wanted.empty() || std::any_of(m_wanted.begin(), m_wanted.end(), fits);
}

void Figures::print(const QByteArray& name, double value, const char* unit) const
{
    if (!areWanted(name))
        return;
    std::printf("%s %.3f %s\n", name.constData(), value, unit);
    std::fflush(stdout);
}

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double millisecondsOf(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double processorTimeOf(const std::function<void()>& work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double begin = now();
    work();
    return now() - begin;
}
