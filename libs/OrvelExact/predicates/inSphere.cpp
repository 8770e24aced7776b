#include <OrvelExact/predicates/inSphere.h>

#include <OrvelExact/predicates/FixedInteger_p.h>
#include <OrvelExact/predicates/exactRows_p.h>

#include <cmath>

namespace orvelExact {

namespace {

/// Added where a product may have lost digits below the smallest double: far above that loss, and
/// multiplied by the same factors.
constexpr double underflow = 1e-280;

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

/// Without rounding, for finite points.
Sign exactInCircle(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d)
{
    GridRows<Point2, 2, 4> const grid({a, b, c, d});
    if (grid.isValid()) {
        auto const row = [&grid](int i) {
            return Row2<FixedInteger<1>>{grid.difference(i, 0), grid.difference(i, 1)};
        };
        return signOf(liftedDeterminant(row(0), row(1), row(2)));
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

/// Without rounding, for finite points.
Sign exactInSphere(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d,
                   Point3 const &e)
{
    GridRows<Point3, 3, 5> const grid({a, b, c, d, e});
    if (grid.isValid()) {
        auto const row = [&grid](int i) {
            return Row3<FixedInteger<1>>{grid.difference(i, 0), grid.difference(i, 1),
                                         grid.difference(i, 2)};
        };
        return signOf(liftedDeterminant(row(0), row(1), row(2), row(3)));
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

/// The second filter: the bound of the error from the sizes of the products themselves. `Zero` if
/// it leaves the sign open.
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
    return Sign::Zero;
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
    return Sign::Zero;
}

} // namespace

Sign unfilteredInCircle(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(c) || !isFinite(d)) {
        return Sign::NotFinite;
    }
    Sign const filtered = inCircleBySizes(a, b, c, d);
    return filtered != Sign::Zero ? filtered : exactInCircle(a, b, c, d);
}

Sign unfilteredInSphere(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d,
                        Point3 const &e)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(c) || !isFinite(d) || !isFinite(e)) {
        return Sign::NotFinite;
    }
    Sign const filtered = inSphereBySizes(a, b, c, d, e);
    return filtered != Sign::Zero ? filtered : exactInSphere(a, b, c, d, e);
}

} // namespace orvelExact
