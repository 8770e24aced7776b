#pragma once

/// @file
/// Crossings of ellipses by the pencil of conics, the polynomial solvers beneath it, and the
/// construction-style functions on circles, ellipses and lines that callers use.
///
/// Which function to take:
///
/// | Function | Curves | Answers |
/// |---|---|---|
/// | `intersect_line_ellipse` | infinite line, ellipse | one of the two crossings, by selector |
/// | `intersect_circle_ellipse` | circle, ellipse | all crossings |
/// | `intersect_ellipse_ellipse` | two ellipses | all crossings, count cut at 4 |
/// | `mathPoly::FindIntersections` | two ellipses | all crossings |
/// | `mathPoly::FindIntersections2` | two ellipses | one crossing, by its order around the first |
///
/// Angles are degrees in the constructor of `mathPoly::Ellipse` and in the free functions, radians
/// in every field and everywhere else in the namespace.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

namespace mathPoly {

struct ORVELMATH_EXPORT Point
{
    double x;
    double y;
};

/// The infinite line through two points.
struct ORVELMATH_EXPORT Line
{
    double x1;
    double y1;
    double x2;
    double y2;
};

struct ORVELMATH_EXPORT Circle
{
    double cx;
    double cy;
    double r;
};

/// An ellipse with the semi-axes a along its own x axis and b across it.
/// @see orvelExact::Ellipse, which needs no angle
struct ORVELMATH_EXPORT Ellipse
{
    double cx;
    double cy;
    double a;
    double b;
    double angle; ///< of the own x axis, radians

    Ellipse() = default;
    /// @param angle degrees; reduced by full turns to the range from 0 to 360, both included (a
    ///     value of 360 and above that is a multiple of 360 ends as 360, not 0), and stored in
    ///     radians. An infinite angle is stored as NaN.
    Ellipse(Point2D centre, double angle, double a, double b);
    /// A circle: a = b = radius, angle 0.
    Ellipse(Point2D centre, double radius);
};

/// The curve A x² + 2 B x y + C y² + 2 D x + 2 E y + F = 0. B, D and E are half the coefficients of
/// the plain polynomial, so that the symmetric matrix has the rows (A, B, D), (B, C, E), (D, E, F).
struct ORVELMATH_EXPORT Conic
{
    double A;
    double B;
    double C;
    double D;
    double E;
    double F;

    Conic() = default;
    Conic(double A, double B, double C, double D, double E, double F);
    /// Scaled such that the value at the ellipse's centre is -1.
    explicit Conic(Ellipse const &e);
    /// The conic of the ellipse moved to the origin: D = E = 0, F = -1; cx and cy are not read.
    static Conic centred(Ellipse const &e);
};

/// The affine map x' = m00 x + m01 y + tx, y' = m10 x + m11 y + ty; the identity when
/// default-constructed. `translate`, `rotate` and `scale` put a further map after the present one.
struct ORVELMATH_EXPORT TMat
{
    double m00 = 1.0;
    double m10 = 0.0;
    double m01 = 0.0;
    double m11 = 1.0;
    double tx = 0.0;
    double ty = 0.0;

    void translate(double dx, double dy);
    /// @param angle radians, counter-clockwise
    void rotate(double angle);
    void scale(double sx, double sy);
    /// Maps p in place.
    void apply(Point &p) const;
};

/// True when x lies in the open interval from -1e-9 to 1e-9; false for NaN.
ORVELMATH_EXPORT bool isZero(double x);

/// @name Real roots of polynomials
/// `c[k]` is the coefficient of x to the power k. Each returns how many entries of `roots` it
/// filled; coefficients and values count as zero by `isZero`, which is absolute: scale the
/// polynomial accordingly. Constant cost, no allocation.
/// @{

/// c[1] x + c[0]: no root when c[1] is zero, else one.
ORVELMATH_EXPORT int solveLinear(double const *c, double *roots);

/// c[2] x² + c[1] x + c[0]. Falls back to the linear equation when c[2] is zero. Two roots come
/// with the larger first. A double root counts as one and is written to both places, so `roots`
/// needs two entries. Coefficients that are not finite give two roots that are NaN.
ORVELMATH_EXPORT int solveQuadratic(double const *c, double *roots);

/// c[3] x³ + ... + c[0], c[3] not 0 (not checked), after Cardano with the trigonometric form of
/// three real roots (Viète). Up to three roots; a discriminant near zero gives one (a triple root)
/// or two (a single and a double root).
ORVELMATH_EXPORT int solveCubic(double const *c, double *roots);

/// c[4] x⁴ + ... + c[0], c[4] not 0 (not checked), after Ferrari. `roots` needs four entries.
ORVELMATH_EXPORT int solveQuartic(double const *c, double *roots);

/// @}

/// Maps the unit circle to the ellipse: scaled by (a, b), turned by angle, moved to the centre.
ORVELMATH_EXPORT TMat unitToEllipse(Ellipse const &e);

/// The image of a conic about the origin (A, B, C; D, E and F are passed on) under the linear part
/// of m. A singular map gives infinities or NaN.
ORVELMATH_EXPORT Conic transformCentred(Conic const &conic, TMat const &m);

/// The ellipse about the origin whose conic is A x² + 2 B x y + C y² = 1: centre (0, 0), a not
/// below b, angle in radians. A circle (A = C, B = 0) has no direction: axes and angle are NaN.
ORVELMATH_EXPORT Ellipse ellipseOfCentred(Conic const &conic);

/// The image of an ellipse under an affine map. A map that makes it a circle leaves the axes and
/// the angle NaN, as `ellipseOfCentred` does.
ORVELMATH_EXPORT Ellipse transformEllipse(Ellipse const &e, TMat const &m);

/// All real crossings of two ellipses: the degenerate members of the pencil spanned by the two
/// conics are split into lines, which are cut with e1.
///
/// A crossing that lies within 0.0001 of an earlier one, in x and in y, is dropped: the first of a
/// close group stays. The order is that of discovery.
///
/// The limits are absolute, for ellipses of about unit size: crossings are found for more than 99
/// of 100 pairs with axes between 0.05 and 3 and a clear distance from contact, but only for about
/// half of the pairs with axes around 100, where a pair of crossing lines passes for parallel.
/// Scale large ellipses down first. What is found is right: a candidate must fulfil the equation
/// of e2 within 1e-9 in the frame in which e2 is the unit circle. A contact without crossing is
/// lost or comes as one point. Identical ellipses give a count without meaning, NaN gives 0.
///
/// Constant cost, no allocation.
/// @param count how many points were written
/// @param points caller's array. Four entries do for ellipses that differ and are of similar size;
///     identical ellipses, or an e2 about 1e9 times as large as e1, may give up to twelve
/// @image html ellipse_crossings.svg
/// @see orvelExact::ellipseCrossings, which finds all at any size
ORVELMATH_EXPORT void FindIntersections(Ellipse &e1, Ellipse &e2, int &count,
                                        Point2D *const points);

/// One crossing of two ellipses, chosen by its order around e1: the crossings are ordered by their
/// direction from e1's centre, counter-clockwise from e1's own x axis (a crossing exactly on the
/// axis comes last). With order[k] the k-th of them:
///
/// | Crossings | inner false | inner true |
/// |---|---|---|
/// | 0 | none | none |
/// | 1 | the only one | the only one |
/// | 2 | order[0], or order[1] when last | none |
/// | 3 | order[0], or order[2] when last | order[1] |
/// | 4 | order[0], or order[3] when last | order[1], or order[2] when last |
/// | 5 or more | none | none |
///
/// @return true when `point` was written; for "none" it is left alone
/// @image html FindIntersections2.svg
/// @see orvelExact::ellipseCrossings
ORVELMATH_EXPORT bool FindIntersections2(Ellipse &e1, Ellipse &e2, bool last, bool inner,
                                         Point2D &point);

} // namespace mathPoly

/// All crossings of a circle and an ellipse, as `mathPoly::FindIntersections` finds them.
/// @param angle of the ellipse's own x axis, degrees
/// @param a, b semi-axes along and across the own x axis
/// @param points caller's array, see `mathPoly::FindIntersections`
/// @param count how many points were written; always set
/// @param tol not read
/// @return 1 when there is any, else 0
/// @see orvelExact::ellipseCrossings
ORVELMATH_EXPORT int intersect_circle_ellipse(Point2D const &c, double r, Point2D const &centre,
                                              double angle, double a, double b,
                                              Point2D *const points, int &count, double tol);

/// All crossings of two ellipses, as `mathPoly::FindIntersections` finds them.
/// @param angle1, angle2 of the own x axes, degrees
/// @param points caller's array, see `mathPoly::FindIntersections`
/// @param count how many points were found, cut at 4; always set
/// @param tol not read
/// @return 1 when there is any, else 0
/// @see orvelExact::ellipseCrossings
ORVELMATH_EXPORT int intersect_ellipse_ellipse(Point2D const &c1, double angle1, double a1,
                                               double b1, Point2D const &c2, double angle2,
                                               double a2, double b2, Point2D *const points,
                                               int &count, double tol);

/// One crossing of the infinite line through p0 and p1 with an ellipse.
/// @param angle of the ellipse's own x axis, degrees
/// @param a, b semi-axes along and across the own x axis
/// @param other false: the crossing further along the direction from p0 to p1; true: the other
/// @param out written when 1 is returned
/// @param eps limits the discriminant of the quadratic, not a length: a line that misses by no
///     more counts as a tangent, and both selectors give its nearest approach
/// @return 1 found, 0 not. A line of length 1e-100 or less, or NaN input, returns 1 with an `out`
///     that is NaN.
/// @image html intersect_line_ellipse.svg
/// @see orvelExact::lineCrossings
ORVELMATH_EXPORT int intersect_line_ellipse(Point2D const &p0, Point2D const &p1,
                                            Point2D const &centre, double angle, double a, double b,
                                            bool other, Point2D &out, double eps);
