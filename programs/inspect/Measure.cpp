#include "Measure.h"

#include <cstdio>

#include <sys/resource.h>

namespace {

std::string formatted(char const *format, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

} // namespace

double peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) * 1024.0; // told in KiB
}

std::string timeText(double seconds)
{
    return seconds < 1.0 ? formatted("%.3g ms", seconds * 1e3) : formatted("%.3g s", seconds);
}

std::string sizeText(double bytes)
{
    return formatted("%.1f MiB", bytes / (1024.0 * 1024.0));
}

std::string numberText(double value)
{
    return formatted("%.7g", value);
}
