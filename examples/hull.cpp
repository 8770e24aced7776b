// The convex hull of points of space, and its volume.

#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <cstdio>

int main()
{
    QList<vectorC3d<double>> points;
    points << vectorC3d<double>(0, 0, 0) << vectorC3d<double>(3, 0, 0) << vectorC3d<double>(0, 4, 0)
           << vectorC3d<double>(0, 0, 5) << vectorC3d<double>(0.5, 0.5, 0.5); // the last one inside
    ConvexHullBuilderC builder(points);
    builder.buildHull();
    std::printf("dimension %d, vertices:", builder.dimension());
    for (int const index : builder.hullVertexIndices()) {
        std::printf(" %d", index);
    }
    double volume = 0.0;
    for (int i = 0; i < builder.triangleCount(); ++i) {
        vectorC3d<double> a;
        vectorC3d<double> b;
        vectorC3d<double> c;
        vectorC3d<double> normal;
        builder.triangle(i, a, b, c, normal);
        volume += a.dot(b.cross(c)) / 6.0;
    }
    std::printf("\n%d triangles, volume %g\n", builder.triangleCount(), volume);
}

// Output:
// dimension 3, vertices: 0 1 2 3
// 4 triangles, volume 10
