#pragma once

/// @file
/// Time, memory and numbers as text.

#include <chrono>
#include <string>

/// Time since it was made.
class Stopwatch
{
public:
    double seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// Largest resident size of the process so far, in bytes.
double peakMemory();

/// Text for a person: "12.3 ms", "4.56 s".
std::string timeText(double seconds);
/// Text for a person: "5.6 MiB".
std::string sizeText(double bytes);
/// Seven significant digits.
std::string numberText(double value);
