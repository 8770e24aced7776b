#include "MemoryBudget.h"

#include <algorithm>

#include <sys/resource.h>

namespace {

// Sets the soft limit and returns the former one.
rlim_t setAddressSpace([[maybe_unused]] rlim_t bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_AS, &limit);
    rlim_t const former = limit.rlim_cur;
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    setrlimit(RLIMIT_AS, &limit);
#endif
    return former;
}

} // namespace

// 2 GiB for the process itself, and 500 bytes for each byte of a file, which may be compressed.
MemoryBudget::MemoryBudget(std::uintmax_t fileSize)
    : m_former(setAddressSpace((rlim_t(2) << 30) + rlim_t(500) * fileSize))
{
}

MemoryBudget::~MemoryBudget()
{
    setAddressSpace(m_former);
}
