#include "benchmarks/ProcessMemory.h"

#include <fstream>
#include <malloc.h>
#include <string>

namespace {

double ofStatus(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    double kibibytes = 0;
    for (std::string word; status >> word;) {
        if (word == field && status >> kibibytes)
            return kibibytes * 1024;
    }
    return 0;
}

} // namespace

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

double peakGrowthDuring(const std::function<void()>& work)
{
    malloc_trim(0);
    // The kernel begins anew to look for the highest point.
    std::ofstream("/proc/self/clear_refs") << "5";
    const double before = ofStatus("VmRSS:");
    work();
    return ofStatus("VmHWM:") - before;
}
