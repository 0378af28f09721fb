#include "benchmarks/Figures.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

void printFigure(const char* name, double value, const char* unit)
{
    std::printf("%s %.3f %s\n", name, value, unit);
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
