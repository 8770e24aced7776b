#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/sse2_p.h>

#include <cmath>

namespace {

struct Vector
{
    Vector(Point2D const &from, Point2D const &to)
        : x(to.x() - from.x())
        , y(to.y() - from.y())
    {
    }

    double length() const { return std::sqrt(x * x + y * y); }

    double x;
    double y;
};

/// Whether a place along a segment is within tol of one of its ends.
bool isAtEnd(double place, double length, double tol)
{
    return tol > place || place > length - tol;
}

bool coincide(Point2D const &a, Point2D const &b, double tol)
{
    return Math2DComparePoints(a, b, tol) == 0;
}

/// Where two segments p0 + t d and p2 + s e cut.
struct Cut
{
    Cut(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3)
        : d(p0, p1)
        , e(p2, p3)
        , divisor(d.x * e.y - d.y * e.x)
        , tNumerator((p2.x() - p0.x()) * e.y - (p2.y() - p0.y()) * e.x)
        , uNumerator((p1.y() - p3.y()) * (p0.x() - p1.x()) - (p1.x() - p3.x()) * (p0.y() - p1.y()))
    {
    }

    Vector d;
    Vector e;
    double divisor;
    double tNumerator;
    /// Along the second segment from p3 back to p2.
    double uNumerator;
};

#ifdef __SSE2__
/// The answer wherever bounds tell it without a root: no crossing, or one that is farther than the
/// tolerance from all four ends. Which of them is hard to predict, so they are told without a
/// branch; NaN leaves the answer unclear.
class QuickAnswer
{
public:
    QuickAnswer(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                double tol)
        : m_start(sse2::load(p0))
        , m_d(_mm_sub_pd(sse2::load(p1), m_start))
        , m_e(_mm_sub_pd(sse2::load(p3), sse2::load(p2)))
        , m_divisor(sse2::cross(m_d, m_e))
    {
        __m128d const p = _mm_sub_pd(sse2::load(p2), m_start);
        __m128d const q = _mm_sub_pd(sse2::load(p1), sse2::load(p3));
        // The numerators p x e and q x d.
        m_numerators = _mm_sub_pd(_mm_mul_pd(_mm_unpacklo_pd(p, q), _mm_unpackhi_pd(m_e, m_d)),
                                  _mm_mul_pd(_mm_unpackhi_pd(p, q), _mm_unpacklo_pd(m_e, m_d)));
        __m128d const sign = _mm_and_pd(_mm_set1_pd(-0.0), m_divisor);
        __m128d const n = _mm_xor_pd(sign, m_numerators);
        __m128d const divisor = _mm_xor_pd(sign, m_divisor);

        // Outside 0 to 1 by so much that no rounding or underflow of the division changes it.
        __m128d const off = _mm_or_pd(_mm_cmplt_pd(n, _mm_mul_pd(divisor, _mm_set1_pd(-1e-200))),
                                      _mm_cmpgt_pd(n, _mm_mul_pd(divisor, _mm_set1_pd(1 + 1e-15))));
        // Farther from both ends than the tolerance, however the lengths are rounded.
        __m128d const absD = sse2::abs(m_d);
        __m128d const absE = sse2::abs(m_e);
        __m128d const sizes = _mm_max_pd(_mm_unpacklo_pd(absD, absE), _mm_unpackhi_pd(absD, absE));
        __m128d const margin = _mm_mul_pd(
            _mm_add_pd(_mm_set1_pd(tol), _mm_mul_pd(_mm_set1_pd(1e-13), sizes)), divisor);
        __m128d const inset = _mm_mul_pd(_mm_min_pd(n, _mm_sub_pd(divisor, n)), sizes);

        crosses = _mm_movemask_pd(_mm_cmpgt_pd(inset, margin)) == 3;
        // Within these sizes nothing overflows or underflows, save numerators that are off then.
        bool const areSizesBounded = _mm_movemask_pd(_mm_cmplt_pd(sizes, _mm_set1_pd(1e60))) == 3;
        bool const isDivisible = area() > 1e-60;
        bool const isInRange = areSizesBounded & isDivisible & (tol >= 0);
        bool const isOff = _mm_movemask_pd(off) != 0;
        isClear = isInRange & (crosses | isOff);
    }

    /// Whether both ends of the first segment lie so far from the second one's line that no two
    /// ends can coincide: farther than the tolerance and all rounding.
    bool areEndsApart(Point2D const &p2, Point2D const &p3, double tol) const
    {
        __m128d const coordinates = _mm_add_pd(
            _mm_add_pd(sse2::abs(sse2::load(p2)), sse2::abs(sse2::load(p3))), sse2::abs(m_d));
        __m128d const limit =
            _mm_set1_pd((tol + 1e-14 * sse2::sum(coordinates)) * sse2::sum(sse2::abs(m_e)));
        __m128d const t = _mm_unpacklo_pd(m_numerators, m_numerators);
        __m128d const distances =
            sse2::abs(_mm_sub_pd(t, _mm_move_sd(m_divisor, _mm_setzero_pd())));
        return _mm_movemask_pd(_mm_cmpgt_pd(distances, limit)) == 3;
    }

    /// The size of the cross product.
    double area() const { return std::fabs(_mm_cvtsd_f64(m_divisor)); }

    IntersectionType deliver(Point2D &out) const
    {
        __m128d const t = _mm_div_sd(m_numerators, m_divisor);
        double unused[2];
        // The output stays unwritten without a branch.
        _mm_storeu_pd(crosses ? &out.x() : unused,
                      _mm_add_pd(m_start, _mm_mul_pd(_mm_unpacklo_pd(t, t), m_d)));
        return crosses ? ProperCrossing : NoIntersection;
    }

    bool crosses;
    bool isClear;

private:
    __m128d m_start;
    __m128d m_d;
    __m128d m_e;
    __m128d m_divisor;
    __m128d m_numerators;
};
#endif

/// Crossing and class of two segments that aren't parallel.
IntersectionType cross(Cut const &cut, Point2D const &p0, Point2D &out, double tol)
{
    double const t = cut.tNumerator / cut.divisor;
    if (t < 0 || t > 1) {
        return NoIntersection;
    }
    double const u = cut.uNumerator / cut.divisor;
    if (u < 0 || u > 1) {
        return NoIntersection;
    }
    out = Point2D(p0.x() + t * cut.d.x, p0.y() + t * cut.d.y);

    double const firstLength = cut.d.length();
    double const secondLength = cut.e.length();
    bool const atEndOfFirst = isAtEnd(firstLength * t, firstLength, tol);
    bool const atEndOfSecond = isAtEnd(secondLength * u, secondLength, tol);
    if (atEndOfFirst && atEndOfSecond) {
        return EndToEnd;
    }
    return atEndOfFirst || atEndOfSecond ? EndOnSegment : ProperCrossing;
}

/// The definition in full. Apart, as the next, so that a quick answer need not save any registers.
[[gnu::noinline]] IntersectionType crossCarefully(Point2D const &p0, Point2D const &p1,
                                                  Point2D const &p2, Point2D const &p3,
                                                  Point2D &out, double tol)
{
    bool const isAtFirst = coincide(p0, p3, tol) || coincide(p0, p2, tol);
    if (isAtFirst || coincide(p1, p3, tol) || coincide(p1, p2, tol)) {
        out = isAtFirst ? p0 : p1;
        return EndToEnd;
    }
    Cut const cut(p0, p1, p2, p3);
    return tol * tol > std::fabs(cut.divisor) ? NoIntersection : cross(cut, p0, out, tol);
}

[[gnu::noinline]] IntersectionType crossCarelessly(Point2D const &p0, Point2D const &p1,
                                                   Point2D const &p2, Point2D const &p3,
                                                   Point2D &out, double tol)
{
    Cut const cut(p0, p1, p2, p3);
    return cut.divisor == 0.0 ? NoIntersection : cross(cut, p0, out, tol);
}

} // namespace

int Math2DComparePoints(Point2D const &a, Point2D const &b, double tol)
{
    if (a.x() > b.x() + tol) {
        return 1;
    }
    if (b.x() - tol > a.x()) {
        return -1;
    }
    if (a.y() > b.y() + tol) {
        return 1;
    }
    return b.y() - tol > a.y() ? -1 : 0;
}

IntersectionType Math2DIntersect2Lines(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, Point2D &out, double tol)
{
#ifdef __SSE2__
    QuickAnswer const quick(p0, p1, p2, p3, tol);
    bool const areEndsApart = quick.areEndsApart(p2, p3, tol);
    bool const isParallel = tol * tol > quick.area();
    if (quick.isClear & areEndsApart & !isParallel) {
        return quick.deliver(out);
    }
#endif
    return crossCarefully(p0, p1, p2, p3, out, tol);
}

IntersectionType Math2DIntersect2LinesWrong(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                            Point2D const &p3, Point2D &out, double tol)
{
#ifdef __SSE2__
    QuickAnswer const quick(p0, p1, p2, p3, tol);
    if (quick.isClear) {
        return quick.deliver(out);
    }
#endif
    return crossCarelessly(p0, p1, p2, p3, out, tol);
}

Point2D inter_lin_lin(Point2D const &p, Point2D const &d, Point2D const &q, Point2D const &e,
                      double /*tol*/)
{
    double const crossProduct = d.x() * e.y() - e.x() * d.y();
    if (crossProduct == 0.0) {
        return Point2D(p.x() + (q.x() - p.x()) * 0.5, p.y() + (q.y() - p.y()) * 0.5);
    }
    double const t = ((q.x() - p.x()) * e.y() - (q.y() - p.y()) * e.x()) / crossProduct;
    return Point2D(p.x() + t * d.x(), p.y() + t * d.y());
}
