#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <random>

/// Uninitialised doubles on a cache line, the same for our code and its peers.
class AlignedArray
{
public:
    explicit AlignedArray(std::size_t size)
        : m_memory(
              static_cast<double *>(std::aligned_alloc(64, (size * sizeof(double) + 63) & ~63u)))
        , m_size(size)
    {
        if (!m_memory) {
            throw std::bad_alloc();
        }
    }
    double *data() { return m_memory.get(); }
    std::size_t size() const { return m_size; }
    double &operator[](std::size_t i) { return m_memory.get()[i]; }

    void fillRandomly(unsigned int seed)
    {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> values(-1.0, 1.0);
        for (std::size_t i = 0; i < m_size; ++i) {
            m_memory.get()[i] = values(random);
        }
    }

private:
    struct Free
    {
        void operator()(double *memory) const { std::free(memory); }
    };
    std::unique_ptr<double, Free> m_memory;
    std::size_t m_size;
};
