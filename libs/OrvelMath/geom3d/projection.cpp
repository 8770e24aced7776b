#include <OrvelMath/geom3d/MatUtil.h>

vectorC3d<double> MatUtil::projectPointOntoLine(vectorC3d<double> const &point,
                                                vectorC3d<double> const &linePoint,
                                                vectorC3d<double> const &direction)
{
    double const t = (point - linePoint).dot(direction) / direction.dot(direction);
    return linePoint + direction * t;
}

vectorC3d<double> MatUtil::projectPointOntoPlane(vectorC3d<double> const &point,
                                                 vectorC3d<double> const &planePoint,
                                                 vectorC3d<double> const &normal)
{
    double const t = (point - planePoint).dot(normal) / normal.dot(normal);
    return point - normal * t;
}

vectorC3d<double> MatUtil::reflectThroughLine(vectorC3d<double> const &point,
                                              vectorC3d<double> const &linePoint,
                                              vectorC3d<double> const &direction)
{
    vectorC3d<double> const foot = projectPointOntoLine(point, linePoint, direction);
    return foot + (foot - point);
}

vectorC3d<double> MatUtil::reflectThroughPlane(vectorC3d<double> const &point,
                                               vectorC3d<double> const &planePoint,
                                               vectorC3d<double> const &normal)
{
    vectorC3d<double> const foot = projectPointOntoPlane(point, planePoint, normal);
    return foot + (foot - point);
}
