#pragma once

#include <functional>
#include <vector>

// One line of what ./bench prints.
void printFigure(const char* name, double value, const char* unit);

double medianOf(std::vector<double> values);
double millisecondsOf(const std::function<void()>& work);
