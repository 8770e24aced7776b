// Numbers and rotations: the roots of a quadratic, and a point that turns about an axis.

#include <OrvelMath/base/Accuracy3D.h>
#include <OrvelMath/base/Matrix4X4C.h>
#include <OrvelMath/base/Quaternion4D.h>

#include <cmath>
#include <cstdio>

int main()
{
    double larger = 0.0;
    double smaller = 0.0;
    int const count = ResolveQuadrat(1.0, -3.0, 2.0, larger, smaller);
    std::printf("%d roots: %g and %g\n", count, larger, smaller);

    double const quarter = std::acos(-1.0) / 2.0; // radians
    Matrix4X4C const turn = Quaternion4D(Point3D(0.0, 0.0, 1.0), quarter).GetMatrix();
    Point3D const image = turn.MultMatrixVector(Point3D(1.0, 0.0, 0.0));
    std::printf("x goes to (%.0f, %.0f, %.0f): quaternions turn left-handed\n", image.x(),
                image.y(), image.z());
}

// Output:
// 2 roots: 2 and 1
// x goes to (0, -1, 0): quaternions turn left-handed
