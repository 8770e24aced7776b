#include <OrvelMath/base/Matrix4X4C.h>

#include <OrvelMath/engine/GaussJordan_p.h>
#include <OrvelMath/engine/vectorWidth_p.h>

namespace {

constexpr double tolerance = 1e-9; // an element

#if defined(__x86_64__)
ORVEL_TARGET("avx2")
bool invertByFours(double (*m)[4])
{
    return engine::GaussJordan<4, 4>(m, tolerance).run(m);
}
#endif

} // namespace

bool Math3DInvertMatrix(double (*const m)[4])
{
#if defined(__x86_64__)
    // Eight at a time would be slower than two: a row is as long as its vector, and each step waits
    // for the one before it to reach the memory.
    if (engine::vectorWidth() >= 4) {
        return invertByFours(m);
    }
#endif
    return engine::GaussJordan<4>(m, tolerance).run(m);
}
