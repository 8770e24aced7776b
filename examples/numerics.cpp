// The principal axes of a cloud of points.

#include <OrvelMath/numerics/runPCA.h>

#include <cmath>
#include <cstdio>

int main()
{
    // Points along the diagonal of the xy plane, a little to both sides of it.
    PValOrderedVector<Point3D> points;
    for (int i = -2; i <= 2; ++i) {
        points.append(Point3D(i + 0.1, i - 0.1, 5.0));
        points.append(Point3D(i - 0.1, i + 0.1, 5.0));
    }
    double variances[3];
    double centre[3];
    Point3D axes[3];
    runPCA(variances[0], centre[0], axes[0], variances[1], centre[1], axes[1], variances[2],
           centre[2], axes[2], points);
    std::printf("centre: (%.2f, %.2f, %.2f)\n", centre[0] + 0.0, centre[1] + 0.0, centre[2]);
    for (int k = 0; k < 3; ++k) {
        // The sign of an axis is arbitrary.
        std::printf("variance %.3f along (%.3f, %.3f, %.3f)\n", variances[k],
                    std::fabs(axes[k].x()), std::fabs(axes[k].y()), std::fabs(axes[k].z()));
    }
}

// Output:
// centre: (0.00, 0.00, 5.00)
// variance 4.444 along (0.707, 0.707, 0.000)
// variance 0.022 along (0.707, 0.707, 0.000)
// variance 0.000 along (0.000, 0.000, 1.000)
