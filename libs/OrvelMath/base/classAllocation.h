#pragma once

/// @file
/// The heap that the value types of the library live on.

#include <OrvelCore/runtime/QtAllocation.h>

#include <cstddef>

/// Declares a class's own `operator new` and `operator delete` family on `qMalloc` and `qFree`, so
/// that an object made by one module can be freed by another. Placement `new` gives back the
/// address that it is given, placement `delete` does nothing.
#define ORVELMATH_CLASS_ALLOCATION                                                                 \
    static void *operator new(std::size_t size)                                                    \
    {                                                                                              \
        return orvelAllocate(size);                                                                \
    }                                                                                              \
    static void *operator new[](std::size_t size)                                                  \
    {                                                                                              \
        return orvelAllocate(size);                                                                \
    }                                                                                              \
    static void operator delete(void *memory)                                                      \
    {                                                                                              \
        orvelFree(memory);                                                                         \
    }                                                                                              \
    static void operator delete[](void *memory)                                                    \
    {                                                                                              \
        orvelFree(memory);                                                                         \
    }                                                                                              \
    static void *operator new(std::size_t, void *place)                                            \
    {                                                                                              \
        return place;                                                                              \
    }                                                                                              \
    static void operator delete(void *, void *) {}
