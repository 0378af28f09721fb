#pragma once

#include <functional>

// The memory of this process, in bytes.

// What the heap holds that is asked for and not given back.
double heapInUse();
// By how much the process grows at the most while the work is done.
double peakGrowthDuring(const std::function<void()>& work);
