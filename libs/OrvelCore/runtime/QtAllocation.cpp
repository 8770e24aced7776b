// qMalloc and qFree are declared only where nothing deprecated is left out.
#define QT_DISABLE_DEPRECATED_BEFORE 0

#include <OrvelCore/runtime/QtAllocation.h>

#include <QtCore/qglobal.h>

#include <new>

void *orvelAllocate(std::size_t size)
{
    // A request for nothing still gets an address of its own.
    void *const memory = qMalloc(size ? size : 1);
    if (!memory) {
        throw std::bad_alloc();
    }
    return memory;
}

void orvelFree(void *memory) noexcept
{
    qFree(memory);
}
