#include <OrvelMath/engine/vectorWidth_p.h>

#include <algorithm>
#include <cstdlib>

namespace engine {

namespace {

int processorWidth()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f")) {
        return 8;
    }
    if (__builtin_cpu_supports("avx2")) {
        return 4;
    }
#endif
    return 2;
}

} // namespace

std::atomic<int> detail::knownVectorWidth{0};

int limitVectorWidth(int width)
{
    int const allowed = width >= 8 ? 8 : width >= 4 ? 4 : 2;
    int const answer = std::min(allowed, processorWidth());
    detail::knownVectorWidth.store(answer, std::memory_order_relaxed);
    return answer;
}

// Two threads may find out at once; they find the same.
int detail::findVectorWidth()
{
    char const *const limit = std::getenv("ORVELMATH_VECTOR_WIDTH");
    return limitVectorWidth(limit != nullptr ? std::atoi(limit) : 8);
}

} // namespace engine
