#include <OrvelMath/numerics/Lanes_p.h>

int vectorWidth()
{
#if defined(__x86_64__)
    static int const width = __builtin_cpu_supports("avx512f") ? 8
                             : __builtin_cpu_supports("avx2")  ? 4
                                                               : 2;
    return width;
#else
    return 2;
#endif
}
