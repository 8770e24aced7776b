#include <OrvelExact/predicates/orientation.h>

#include <OrvelExact/predicates/exactRows_p.h>

namespace orvelExact {

Sign unfilteredOrientation2d(Point2 const &a, Point2 const &b, Point2 const &c)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(c)) {
        return Sign::NotFinite;
    }
    ExponentRange const range(a, b, c);
    if (range.servesExpansions(2)) {
        return signOf(determinant(expansionRow(a, c), expansionRow(b, c)));
    }
    int const unit = range.lowest();
    return signOf(determinant(wholeRow(a, c, unit), wholeRow(b, c, unit)));
}

namespace {

/// The filter once more, with the bound of the error from the sizes of the products themselves;
/// `Zero` if it leaves the sign open.
Sign orientationBySizes(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d)
{
    constexpr double maxRelativeError = 7.7715611723761027e-16; // (7 + 56 e) e with e = 2^-53
    constexpr double underflow = 1e-290; // far above what a product loses below the least double
    Point3 const u = a - d;
    Point3 const v = b - d;
    Point3 const w = c - d;
    double const vxwy = v.x() * w.y(), vywx = v.y() * w.x();
    double const wxuy = w.x() * u.y(), wyux = w.y() * u.x();
    double const uxvy = u.x() * v.y(), uyvx = u.y() * v.x();
    double const determinant =
        (vywx - vxwy) * u.z() + (wyux - wxuy) * v.z() + (uyvx - uxvy) * w.z();
    double const permanent = (std::fabs(vxwy) + std::fabs(vywx) + underflow) * std::fabs(u.z()) +
                             (std::fabs(wxuy) + std::fabs(wyux) + underflow) * std::fabs(v.z()) +
                             (std::fabs(uxvy) + std::fabs(uyvx) + underflow) * std::fabs(w.z());
    if (std::fabs(determinant) > maxRelativeError * permanent + underflow) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return Sign::Zero;
}

} // namespace

Sign unfilteredOrientation3d(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d)
{
    if (!isFinite(a) || !isFinite(b) || !isFinite(c) || !isFinite(d)) {
        return Sign::NotFinite;
    }
    Sign const filtered = orientationBySizes(a, b, c, d);
    if (filtered != Sign::Zero) {
        return filtered;
    }
    ExponentRange const range(a, b, c, d);
    if (range.servesExpansions(3)) {
        return opposite(
            signOf(determinant(expansionRow(a, d), expansionRow(b, d), expansionRow(c, d))));
    }
    int const unit = range.lowest();
    return opposite(
        signOf(determinant(wholeRow(a, d, unit), wholeRow(b, d, unit), wholeRow(c, d, unit))));
}

} // namespace orvelExact
