#include <OrvelMath/geom3d/MatUtil.h>

#include <OrvelMath/numerics/LinearSystemT_p.h>

namespace {

double dotProduct(Point2D const &a, Point2D const &b)
{
    return a.x() * b.x() + a.y() * b.y();
}

} // namespace

Point2D MatUtil::getPerpendicularVector(Point2D const &v)
{
    return Point2D(v.y(), -v.x());
}

Point2D MatUtil::getCircleCenter(Point2D const &a, Point2D const &b, Point2D const &c,
                                 double &radius)
{
    const Point2D ab = a - b;
    const Point2D bc = b - c;
    const Point2D ca = c - a;
    double const cross = bc.y() * ab.x() - bc.x() * ab.y();
    double const denominator = cross * cross + cross * cross;
    if (1e-6 > denominator) { // fourth power of a length
        radius = -1.0;
        return Point2D(0.0, 0.0);
    }
    double const weightA = -getSquareOfLength(bc) * dotProduct(ca, ab) / denominator;
    double const weightB = -getSquareOfLength(ca) * dotProduct(bc, ab) / denominator;
    double const weightC = -getSquareOfLength(ab) * dotProduct(ca, bc) / denominator;
    const Point2D center(weightA * a.x() + weightB * b.x() + weightC * c.x(),
                         weightA * a.y() + weightB * b.y() + weightC * c.y());
    radius = (center - a).Length();
    return center;
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
