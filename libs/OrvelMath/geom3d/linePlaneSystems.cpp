#include <OrvelMath/geom3d/MatUtil.h>

#include <OrvelMath/numerics/LinearSystemT_p.h>

#include <cmath>

namespace {

vectorC3d<double> unitVector(vectorC3d<double> const &v)
{
    return v / v.length();
}

} // namespace

bool MatUtil::intersectPlanes(vectorC3d<double> const &point1, vectorC3d<double> const &normal1,
                              vectorC3d<double> const &point2, vectorC3d<double> const &normal2,
                              vectorC3d<double> &linePoint, vectorC3d<double> &direction)
{
    double const columns[6] = {normal1.x(), normal2.x(), normal1.y(),
                               normal2.y(), normal1.z(), normal2.z()};
    double const rhs[2] = {normal1.dot(point1), normal2.dot(point2)};
    LinearSystemT<2, 3> const planes(columns, 1e-12); // normal components
    double solution[3];
    double nullSpace[9];
    int const dimension = planes.solve(rhs, solution, nullSpace);
    linePoint = vectorC3d<double>(solution[0], solution[1], solution[2]);
    if (dimension != 1) {
        return false;
    }
    direction = unitVector(vectorC3d<double>(nullSpace[0], nullSpace[1], nullSpace[2]));
    return true;
}

bool MatUtil::intersectLines(vectorC3d<double> const &point1, vectorC3d<double> const &direction1,
                             vectorC3d<double> const &point2, vectorC3d<double> const &direction2,
                             vectorC3d<double> &point)
{
    double const columns[6] = {direction1.x(),  direction1.y(),  direction1.z(),
                               -direction2.x(), -direction2.y(), -direction2.z()};
    vectorC3d<double> const offset = point2 - point1;
    double const rhs[3] = {offset.x(), offset.y(), offset.z()};
    LinearSystemT<3, 2> const lines(columns, 1e-12); // direction components
    double parameters[2];
    if (lines.solve(rhs, parameters) != 0) {
        return false;
    }
    point = point1 + direction1 * parameters[0];
    return true;
}

bool MatUtil::intersectLinePlane(vectorC3d<double> const &linePoint,
                                 vectorC3d<double> const &direction,
                                 vectorC3d<double> const &planePoint,
                                 vectorC3d<double> const &normal, vectorC3d<double> &point)
{
    double const numerator = (linePoint - planePoint).dot(normal);
    double const denominator = normal.dot(direction);
    if (1e-5 > std::fabs(denominator)) { // sine of the angle, times both lengths
        return false;
    }
    point = linePoint - direction * (numerator / denominator);
    return true;
}

void MatUtil::bisectingPlane(vectorC3d<double> const &point1, vectorC3d<double> const &normal1,
                             vectorC3d<double> const &point2, vectorC3d<double> const &normal2,
                             vectorC3d<double> &point, vectorC3d<double> &normal)
{
    vectorC3d<double> linePoint;
    vectorC3d<double> direction;
    if (intersectPlanes(point1, normal1, point2, normal2, linePoint, direction)) {
        vectorC3d<double> const sum = unitVector((normal1 + normal2) * 0.5);
        normal = unitVector(sum.cross(direction));
        point = linePoint;
    } else {
        point = (point1 + point2) * 0.5;
        normal = normal2;
    }
}
