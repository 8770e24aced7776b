#include "support/AllocationCount.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANITIZED
#endif
#endif

#if defined(__GLIBC__) && !defined(SANITIZED)

// The program's functions come before the C library's, also for calls from the shared libraries.
namespace {

thread_local long allocations = 0;
thread_local long living = 0;
thread_local long requestsLeft = -1; // until one fails; negative: none will
thread_local bool hasFailed = false;

bool failsNow()
{
    if (requestsLeft < 0 || requestsLeft-- > 0) {
        return false;
    }
    hasFailed = true;
    errno = ENOMEM;
    return true;
}

void *noted(void *memory)
{
    living += memory != nullptr;
    return memory;
}

} // namespace

extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *memory);

#define ORVEL_REPLACES __attribute__((visibility("default")))

ORVEL_REPLACES void *malloc(std::size_t size)
{
    ++allocations;
    return failsNow() ? nullptr : noted(__libc_malloc(size));
}

ORVEL_REPLACES void *calloc(std::size_t count, std::size_t size)
{
    return failsNow() ? nullptr : noted(__libc_calloc(count, size));
}

ORVEL_REPLACES void *realloc(void *memory, std::size_t size)
{
    if (memory != nullptr && size == 0) {
        --living;
        return __libc_realloc(memory, size);
    }
    if (failsNow()) {
        return nullptr;
    }
    void *const moved = __libc_realloc(memory, size);
    return memory == nullptr ? noted(moved) : moved;
}

ORVEL_REPLACES void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    return failsNow() ? nullptr : noted(__libc_memalign(alignment, size));
}

ORVEL_REPLACES int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    void *const block = aligned_alloc(alignment, size);
    if (block == nullptr) {
        return ENOMEM;
    }
    *memory = block;
    return 0;
}

ORVEL_REPLACES void free(void *memory)
{
    living -= memory != nullptr;
    __libc_free(memory);
}

} // extern "C"

long support::allocationCount()
{
    return allocations;
}

long support::livingAllocations()
{
    return living;
}

support::FailingAllocation::FailingAllocation(long index)
{
    hasFailed = false;
    requestsLeft = index;
}

support::FailingAllocation::~FailingAllocation()
{
    requestsLeft = -1;
}

bool support::FailingAllocation::end()
{
    requestsLeft = -1;
    return hasFailed;
}

#else

long support::allocationCount()
{
    return -1;
}

long support::livingAllocations()
{
    return 0;
}

support::FailingAllocation::FailingAllocation(long) {}

support::FailingAllocation::~FailingAllocation() = default;

bool support::FailingAllocation::end()
{
    return false;
}

#endif
