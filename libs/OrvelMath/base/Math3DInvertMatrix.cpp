#include <OrvelMath/base/Matrix4X4C.h>

#include <OrvelMath/engine/GaussJordan_p.h>

#include <cstring>

bool Math3DInvertMatrix(double (*const m)[4])
{
    engine::GaussJordan<4> elimination(m, 1e-9); // an element
    if (!elimination.run()) {
        return false;
    }
    std::memcpy(m, elimination.inverse(), sizeof elimination.inverse());
    return true;
}
