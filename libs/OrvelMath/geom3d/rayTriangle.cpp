#include <OrvelMath/geom3d/MatUtil.h>

bool MatUtil::rayIntersectsTriangle(vectorC3d<double> const &a, vectorC3d<double> const &b,
                                    vectorC3d<double> const &c, vectorC3d<double> const &origin,
                                    vectorC3d<double> const &direction, double &t)
{
    vectorC3d<double> const edge1 = b - a;
    vectorC3d<double> const edge2 = c - a;
    vectorC3d<double> const fromA = origin - a;

    vectorC3d<double> const p = direction.cross(edge2);
    double const determinant = edge1.dot(p);
    if (determinant > -1e-6 && determinant < 1e-6) { // six times a volume
        return false;
    }
    double const inverse = 1.0 / determinant;
    double const u = fromA.dot(p) * inverse;
    if (u < 0.0 || u > 1.0) {
        return false;
    }

    vectorC3d<double> const q = fromA.cross(edge1);
    double const v = direction.dot(q) * inverse;
    if (v < 0.0 || u + v > 1.0) {
        return false;
    }
    t = edge2.dot(q) * inverse;
    return true;
}
