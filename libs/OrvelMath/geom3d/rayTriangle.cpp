#include <OrvelMath/geom3d/MatUtil.h>

bool MatUtil::rayIntersectsTriangle(vectorC3d<double> const &a, vectorC3d<double> const &b,
                                    vectorC3d<double> const &c, vectorC3d<double> const &origin,
                                    vectorC3d<double> const &direction, double &t)
{
    const vectorC3d<double> edge1 = b - a;
    const vectorC3d<double> edge2 = c - a;
    const vectorC3d<double> fromA = origin - a;

    const vectorC3d<double> p = direction.cross(edge2);
    const double determinant = edge1.dot(p);
    if (determinant > -1e-6 && determinant < 1e-6) // six times a volume
        return false;
    const double inverse = 1.0 / determinant;
    const double u = fromA.dot(p) * inverse;
    if (u < 0.0 || u > 1.0)
        return false;

    const vectorC3d<double> q = fromA.cross(edge1);
    const double v = direction.dot(q) * inverse;
    if (v < 0.0 || u + v > 1.0)
        return false;
    t = edge2.dot(q) * inverse;
    return true;
}
