#pragma once

#include "support/Bits.h"

#include <cstddef>
#include <vector>

namespace support {

/// An array between guard words, preset so that what was written can be told.
class GuardedArray
{
public:
    explicit GuardedArray(int size)
        : m_memory(std::size_t(size) + 2 * guard, preset)
    {
    }
    explicit GuardedArray(std::vector<double> const &values)
        : GuardedArray(int(values.size()))
    {
        for (std::size_t i = 0; i < values.size(); ++i) {
            m_memory[guard + i] = values[i];
        }
    }

    double *data() { return m_memory.data() + guard; }
    int size() const { return int(m_memory.size() - 2 * guard); }
    double &operator[](int i) { return m_memory[guard + std::size_t(i)]; }
    double operator[](int i) const { return m_memory[guard + std::size_t(i)]; }
    std::vector<double> values() const
    {
        return {m_memory.begin() + std::ptrdiff_t(guard), m_memory.end() - std::ptrdiff_t(guard)};
    }

    bool intact() const
    {
        for (std::size_t i = 0; i < guard; ++i) {
            if (m_memory[i] != preset || m_memory[m_memory.size() - 1 - i] != preset) {
                return false;
            }
        }
        return true;
    }

private:
    static constexpr std::size_t guard = 16;
    std::vector<double> m_memory;
};

} // namespace support
