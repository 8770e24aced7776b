#pragma once

/// @file
/// A limit on what a file may make the program allocate.

#include <cstdint>

/// While it lives the process may map no more memory than a file of `fileSize` bytes can honestly
/// need; what asks for more gets std::bad_alloc.
///
/// A file may claim more vertices than any machine holds: better a clear line at once than a
/// machine that runs out of memory. Builds with a sanitizer, which reserves address space of its
/// own, are left without a limit.
class MemoryBudget
{
public:
    explicit MemoryBudget(std::uintmax_t fileSize);
    ~MemoryBudget();
    MemoryBudget(MemoryBudget const &) = delete;
    MemoryBudget &operator=(MemoryBudget const &) = delete;

private:
    std::uintmax_t m_former;
};
