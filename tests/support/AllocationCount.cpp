#include "support/AllocationCount.h"

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

// The program's malloc comes before the C library's, also for calls from the shared libraries.
namespace {
thread_local long allocations = 0;
} // namespace

extern "C" void *__libc_malloc(std::size_t size);

extern "C" __attribute__((visibility("default"))) void *malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

long support::allocationCount()
{
    return allocations;
}

#else

long support::allocationCount()
{
    return -1;
}

#endif
