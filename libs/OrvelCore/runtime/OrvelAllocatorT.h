#pragma once

/// @file
/// An allocator on Qt's allocation functions.

#include <OrvelCore/runtime/QtAllocation.h>

#include <cstddef>
#include <limits>
#include <new>

/// Allocator on Qt's allocation functions, for containers that cross a module's boundary.
///
/// Stateless: any two compare equal, and memory taken by one may be given back by another.
/// Throws std::bad_alloc when there is no memory or the size can't be told in bytes.
template <typename T>
class OrvelAllocatorT
{
public:
    using value_type = T;

    OrvelAllocatorT() = default;
    template <typename U>
    OrvelAllocatorT(OrvelAllocatorT<U> const &) noexcept
    {
    }

    T *allocate(std::size_t count)
    {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
            throw std::bad_alloc();
        }
        return static_cast<T *>(orvelAllocate(count * sizeof(T)));
    }
    void deallocate(T *memory, std::size_t) noexcept { orvelFree(memory); }

    friend bool operator==(OrvelAllocatorT const &, OrvelAllocatorT const &) { return true; }
    friend bool operator!=(OrvelAllocatorT const &, OrvelAllocatorT const &) { return false; }
};
