#include <OrvelExact/predicates/inSphere.h>

#include <OrvelExact/predicates/exactRows_p.h>

#include <algorithm>
#include <cmath>

namespace orvelExact {

namespace {

/// Added where a product may have lost digits below the smallest double: far above that loss, and
/// multiplied by the same factors.
constexpr double underflow = 1e-280;

/// The largest size of the differences, between which limits the bound of the error may be computed
/// from it alone: no product of five overflows, and what underflow takes away is far below it.
bool isOrdinary(double size)
{
    return size > 1e-50 && size < 1e60;
}

double largestSize(double a, double b, double c)
{
    return std::max(std::max(std::fabs(a), std::fabs(b)), std::fabs(c));
}

/// Two products whose difference is a minor of the determinant.
struct Minor
{
    Minor(double ax, double ay, double bx, double by)
        : value(ax * by - ay * bx)
        , size(std::fabs(ax * by) + std::fabs(ay * bx) + underflow)
    {
    }

    double value;
    double size; ///< of the products, for the bound of the error
};

Sign unfilteredInCircle(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(c) || !isFinite(d)) {
        return Sign::NotFinite;
    }
    ExponentRange const range(a, b, c, d);
    if (range.servesExpansions(4)) {
        return signOf(
            liftedDeterminant(expansionRow(a, d), expansionRow(b, d), expansionRow(c, d)));
    }
    int const unit = range.lowest();
    return signOf(
        liftedDeterminant(wholeRow(a, d, unit), wholeRow(b, d, unit), wholeRow(c, d, unit)));
}

/// The differences as single doubles, if none of them is rounded.
bool takeExactDifferences(Point3 const &p, Point3 const &origin, Row3<Expansion<1>> &row)
{
    Expansion<1> *const members[] = {&row.x, &row.y, &row.z};
    for (int i = 0; i < 3; ++i) {
        DoublePair const difference = twoSum(p[i], -origin[i]);
        if (difference.low != 0.0) {
            return false;
        }
        members[i]->append(difference.high);
    }
    return true;
}

Sign unfilteredInSphere(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d,
                        Point3 const &e)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(c) || !isFinite(d) || !isFinite(e)) {
        return Sign::NotFinite;
    }
    ExponentRange const range(a, b, c, d, e);
    Row3<Expansion<1>> rows[4];
    if (range.servesExpansions(5) && takeExactDifferences(a, e, rows[0]) &&
        takeExactDifferences(b, e, rows[1]) && takeExactDifferences(c, e, rows[2]) &&
        takeExactDifferences(d, e, rows[3])) {
        return signOf(liftedDeterminant(rows[0], rows[1], rows[2], rows[3]));
    }
    int const unit = range.lowest();
    return signOf(liftedDeterminant(wholeRow(a, e, unit), wholeRow(b, e, unit),
                                    wholeRow(c, e, unit), wholeRow(d, e, unit)));
}

/// The second filter: the bound of the error from the sizes of the products themselves.
Sign inCircleBySizes(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d)
{
    constexpr double maxRelativeError = 1.1102230246251577e-15; // (10 + 96 e) e with e = 2^-53
    double const ax = a.x() - d.x(), ay = a.y() - d.y();
    double const bx = b.x() - d.x(), by = b.y() - d.y();
    double const cx = c.x() - d.x(), cy = c.y() - d.y();
    Minor const bc(bx, by, cx, cy), ca(cx, cy, ax, ay), ab(ax, ay, bx, by);
    double const aLift = ax * ax + ay * ay;
    double const bLift = bx * bx + by * by;
    double const cLift = cx * cx + cy * cy;
    double const determinant = aLift * bc.value + bLift * ca.value + cLift * ab.value;
    double const permanent = (aLift + underflow) * bc.size + (bLift + underflow) * ca.size +
                             (cLift + underflow) * ab.size;
    if (std::fabs(determinant) > maxRelativeError * permanent + underflow) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredInCircle(a, b, c, d);
}

/// The same for a sphere.
Sign inSphereBySizes(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d,
                     Point3 const &e)
{
    constexpr double maxRelativeError = 1.7763568394002532e-15; // (16 + 224 e) e with e = 2^-53
    Point3 const p[] = {a - e, b - e, c - e, d - e};
    auto const minor = [&p](int i, int j) { return Minor(p[i].x(), p[i].y(), p[j].x(), p[j].y()); };
    Minor const ab = minor(0, 1), bc = minor(1, 2), cd = minor(2, 3);
    Minor const da = minor(3, 0), ac = minor(0, 2), bd = minor(1, 3);
    double const az = p[0].z(), bz = p[1].z(), cz = p[2].z(), dz = p[3].z();
    double lift[4];
    double size[4]; // of the components along z
    for (int i = 0; i < 4; ++i) {
        lift[i] = p[i].x() * p[i].x() + p[i].y() * p[i].y() + p[i].z() * p[i].z();
        size[i] = std::fabs(p[i].z());
    }
    double const abc = az * bc.value - bz * ac.value + cz * ab.value;
    double const bcd = bz * cd.value - cz * bd.value + dz * bc.value;
    double const cda = cz * da.value + dz * ac.value + az * cd.value;
    double const dab = dz * ab.value + az * bd.value + bz * da.value;
    double const determinant = (lift[2] * dab - lift[3] * abc) + (lift[0] * bcd - lift[1] * cda);
    double const permanent =
        (cd.size * size[1] + bd.size * size[2] + bc.size * size[3] + underflow) *
            (lift[0] + underflow) +
        (da.size * size[2] + ac.size * size[3] + cd.size * size[0] + underflow) *
            (lift[1] + underflow) +
        (ab.size * size[3] + bd.size * size[0] + da.size * size[1] + underflow) *
            (lift[2] + underflow) +
        (bc.size * size[0] + ac.size * size[1] + ab.size * size[2] + underflow) *
            (lift[3] + underflow);
    if (std::fabs(determinant) > maxRelativeError * permanent + underflow) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredInSphere(a, b, c, d, e);
}

} // namespace

Sign inCircle(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d)
{
    // (10 + 96 e) e with e = 2^-53, times 3 summands of 4 products of the largest size, rounded up
    constexpr double maxRelativeError = 1.4e-14;
    double const ax = a.x() - d.x(), ay = a.y() - d.y();
    double const bx = b.x() - d.x(), by = b.y() - d.y();
    double const cx = c.x() - d.x(), cy = c.y() - d.y();
    double const size = std::max(largestSize(ax, bx, cx), largestSize(ay, by, cy));
    double const determinant = (ax * ax + ay * ay) * (bx * cy - by * cx) +
                               (bx * bx + by * by) * (cx * ay - cy * ax) +
                               (cx * cx + cy * cy) * (ax * by - ay * bx);
    double const squaredSize = size * size;
    if (std::fabs(determinant) > maxRelativeError * squaredSize * squaredSize && isOrdinary(size)) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return inCircleBySizes(a, b, c, d);
}

Sign inSphere(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d, Point3 const &e)
{
    // (16 + 224 e) e with e = 2^-53, times 4 summands of 18 products of the largest size, rounded
    // up
    constexpr double maxRelativeError = 1.3e-13;
    double const ax = a.x() - e.x(), ay = a.y() - e.y(), az = a.z() - e.z();
    double const bx = b.x() - e.x(), by = b.y() - e.y(), bz = b.z() - e.z();
    double const cx = c.x() - e.x(), cy = c.y() - e.y(), cz = c.z() - e.z();
    double const dx = d.x() - e.x(), dy = d.y() - e.y(), dz = d.z() - e.z();
    double const size = std::max(std::max(largestSize(ax, ay, az), largestSize(bx, by, bz)),
                                 std::max(largestSize(cx, cy, cz), largestSize(dx, dy, dz)));
    double const ab = ax * by - ay * bx, bc = bx * cy - by * cx, cd = cx * dy - cy * dx;
    double const da = dx * ay - dy * ax, ac = ax * cy - ay * cx, bd = bx * dy - by * dx;
    double const abc = az * bc - bz * ac + cz * ab;
    double const bcd = bz * cd - cz * bd + dz * bc;
    double const cda = cz * da + dz * ac + az * cd;
    double const dab = dz * ab + az * bd + bz * da;
    double const determinant =
        ((cx * cx + cy * cy + cz * cz) * dab - (dx * dx + dy * dy + dz * dz) * abc) +
        ((ax * ax + ay * ay + az * az) * bcd - (bx * bx + by * by + bz * bz) * cda);
    double const squaredSize = size * size;
    if (std::fabs(determinant) > maxRelativeError * squaredSize * squaredSize * size &&
        isOrdinary(size)) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return inSphereBySizes(a, b, c, d, e);
}

} // namespace orvelExact
