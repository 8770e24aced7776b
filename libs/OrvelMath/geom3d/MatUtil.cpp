#include <OrvelMath/geom3d/MatUtil.h>

#include <OrvelMath/engine/LinearSystemT_p.h>
#include <OrvelMath/engine/sortComponents_p.h>

#include <cmath>

namespace {

double dotProduct(Point2D const &a, Point2D const &b)
{
    return a.x() * b.x() + a.y() * b.y();
}

vectorC3d<double> unitVector(vectorC3d<double> const &v)
{
    return v / v.length();
}

} // namespace

Point2D MatUtil::getPerpendicularVector(Point2D const &v)
{
    return Point2D(v.y(), -v.x());
}

Point2D MatUtil::getCircleCenter(Point2D const &a, Point2D const &b, Point2D const &c,
                                 double &radius)
{
    Point2D const ab = a - b;
    Point2D const bc = b - c;
    Point2D const ca = c - a;
    double const cross = bc.y() * ab.x() - bc.x() * ab.y();
    double const denominator = cross * cross + cross * cross;
    if (1e-6 > denominator) { // fourth power of a length
        radius = -1.0;
        return Point2D(0.0, 0.0);
    }
    double const weightA = -getSquareOfLength(bc) * dotProduct(ca, ab) / denominator;
    double const weightB = -getSquareOfLength(ca) * dotProduct(bc, ab) / denominator;
    double const weightC = -getSquareOfLength(ab) * dotProduct(ca, bc) / denominator;
    Point2D const center(weightA * a.x() + weightB * b.x() + weightC * c.x(),
                         weightA * a.y() + weightB * b.y() + weightC * c.y());
    radius = (center - a).Length();
    return center;
}

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

vectorC3d<double> MatUtil::getSphereCenter(vectorC3d<double> const &a, vectorC3d<double> const &b,
                                           vectorC3d<double> const &c, vectorC3d<double> const &d,
                                           double &radius)
{
    vectorC3d<double> const ab = b - a;
    vectorC3d<double> const ac = c - a;
    vectorC3d<double> const ad = d - a;
    double const columns[9] = {ab.x(), ac.x(), ad.x(), ab.y(), ac.y(),
                               ad.y(), ab.z(), ac.z(), ad.z()};
    double const squareOfA = a.squaredLength();
    double const rhs[3] = {(b.squaredLength() - squareOfA) * 0.5,
                           (c.squaredLength() - squareOfA) * 0.5,
                           (d.squaredLength() - squareOfA) * 0.5};
    LinearSystemT<3, 3> const bisectors(columns, 1e-6); // lengths, and lengths times sines
    double solution[3];
    if (bisectors.solve(rhs, solution) != 0) {
        radius = -1.0;
        return vectorC3d<double>();
    }
    vectorC3d<double> const center(solution[0], solution[1], solution[2]);
    radius = (center - a).length();
    return center;
}

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

void MatUtil::sortVectorComponents(vectorC3d<double> &v)
{
    engine::sortComponents(v);
}

void MatUtil::sortVectorComponents(vectorC3d<double> &v, matrixC3x3<double> &m)
{
    engine::sortComponents(v, m);
}
