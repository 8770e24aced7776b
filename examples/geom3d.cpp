// Lines, planes and spheres of space.

#include <OrvelMath/geom3d/intersect3d.h>

#include <cstdio>

int main()
{
    Point3D const from(-3.0, 0.0, 0.0);
    Point3D const to(-2.0, 0.0, 0.0);
    Point3D far;
    Point3D near;
    // The line through both points, not only the segment between them.
    int const count = IntersectLineSphere(from, to, Point3D(0.0, 0.0, 0.0), 1.0, far, near);
    std::printf("%d points: x = %g and x = %g\n", count, near.x(), far.x());

    Point3D const normal(0.0, 0.0, 1.0);
    Point3D const foot = ProjectOntoPlane(normal, Point3D(0.0, 0.0, 2.0), Point3D(5.0, 6.0, 7.0));
    std::printf("foot in the plane z = 2: (%g, %g, %g)\n", foot.x(), foot.y(), foot.z());

    Point3D corner;
    if (IntersectThreePlanes(Point3D(1.0, 0.0, 0.0), Point3D(1.0, 0.0, 0.0), Point3D(0.0, 2.0, 0.0),
                             Point3D(0.0, 1.0, 0.0), Point3D(0.0, 0.0, 3.0), Point3D(0.0, 0.0, 1.0),
                             corner)) {
        std::printf("three planes meet in (%g, %g, %g)\n", corner.x(), corner.y(), corner.z());
    }
}

// Output:
// 2 points: x = -1 and x = 1
// foot in the plane z = 2: (5, 6, 2)
// three planes meet in (1, 2, 3)
