#include "FailingAllocation.h"

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

namespace {

thread_local bool watching = false;
thread_local bool failed = false;
thread_local long successesLeft = -1;
thread_local long held = 0;

} // namespace

#if defined(__GLIBC__) && !defined(SANITIZED)

namespace {

/// True if this allocation is the one to fail.
bool mustFail()
{
    if (!watching || successesLeft < 0) {
        return false;
    }
    if (successesLeft-- > 0) {
        return false;
    }
    failed = true;
    errno = ENOMEM;
    return true;
}

void *noted(void *memory)
{
    if (watching && memory) {
        ++held;
    }
    return memory;
}

} // namespace

// The program's functions come before the C library's, also for calls from the shared libraries.
extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void __libc_free(void *memory);

__attribute__((visibility("default"))) void *malloc(std::size_t size)
{
    return mustFail() ? nullptr : noted(__libc_malloc(size));
}

__attribute__((visibility("default"))) void *calloc(std::size_t count, std::size_t size)
{
    return mustFail() ? nullptr : noted(__libc_calloc(count, size));
}

__attribute__((visibility("default"))) void *realloc(void *memory, std::size_t size)
{
    if (mustFail()) {
        return nullptr;
    }
    return memory ? __libc_realloc(memory, size) : noted(__libc_malloc(size));
}

__attribute__((visibility("default"))) void free(void *memory)
{
    if (watching && memory) {
        --held;
    }
    __libc_free(memory);
}

} // extern "C"

bool FailingAllocation::isPossible()
{
    return true;
}

#else

bool FailingAllocation::isPossible()
{
    return false;
}

#endif

FailingAllocation::FailingAllocation(long before)
{
    failed = false;
    held = 0;
    successesLeft = before;
    watching = true;
}

FailingAllocation::~FailingAllocation()
{
    watching = false;
}

bool FailingAllocation::hasFailed() const
{
    return failed;
}

long FailingAllocation::heldBlocks() const
{
    return held;
}
