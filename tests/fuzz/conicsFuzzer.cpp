// Reads the bytes as two ellipse arcs, two curves, a line and a tolerance, any bit patterns
// included, and asks for all crossings and the nearest points. What comes back is refused or lies
// on both curves.

#include <OrvelExact/conics/bezierCrossings.h>
#include <OrvelExact/conics/conicCrossings.h>
#include <OrvelExact/conics/ellipseDistance.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace orvelExact;

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// Gives out the bytes; zeros once they are used up.
class Input
{
public:
    Input(std::uint8_t const *data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    /// A small whole number, which makes contacts, or any double.
    double number()
    {
        if (byte() % 2 == 0) {
            return (byte() - 128) / 8.0;
        }
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i) {
            bits = bits << 8 | byte();
        }
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    Point2 point()
    {
        double const x = number();
        return {x, number()};
    }
    EllipseArc arc()
    {
        EllipseArc a;
        a.ellipse.centre = point();
        a.ellipse.u = point();
        a.ellipse.v = point();
        a.from = point();
        a.to = point();
        return a;
    }

private:
    std::uint8_t byte() { return m_position < m_size ? m_data[m_position++] : std::uint8_t(0); }

    std::uint8_t const *m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};

double sizeOf(Ellipse const &e)
{
    double size = 0.0;
    for (Point2 const &p : {e.centre, e.u, e.v}) {
        size = std::fmax(size, std::fmax(std::fabs(p.x()), std::fabs(p.y())));
    }
    return size;
}

void requireOn(Ellipse const &e, Point2 const &direction, Point2 const &point)
{
    require(isFinite(point) && isFinite(direction));
    require(std::fabs(direction.length() - 1.0) < 1e-14);
    Point2 const off = pointAt(e, direction) - point;
    require(std::fabs(off.x()) <= 1e-14 * sizeOf(e) && std::fabs(off.y()) <= 1e-14 * sizeOf(e));
}

void tryPair(EllipseArc const &a, EllipseArc const &b, double tolerance)
{
    ConicCrossings const all = ellipseCrossings(a.ellipse, b.ellipse, tolerance);
    require(all.count >= 0 && all.count <= 4);
    require(all.count == 0 || (all.status == Status::Ok && !all.coincide));
    // of the two directions one is exact, the other as sharp as its ellipse is round
    for (int i = 0; i < all.count; ++i) {
        require(isFinite(all.crossings[i].point));
    }
    ConicCrossings const kept = arcCrossings(a, b, tolerance);
    require(kept.count <= all.count);
}

void tryLine(EllipseArc const &a, Point2 const &p0, Point2 const &p1, double tolerance)
{
    LineCrossings const all = lineCrossings(a.ellipse, p0, p1, tolerance);
    require(all.count >= 0 && all.count <= 2);
    for (int i = 0; i < all.count; ++i) {
        requireOn(a.ellipse, all.crossings[i].direction, all.crossings[i].point);
    }
    require(segmentCrossings(a, p0, p1, tolerance).count <= all.count);
}

void tryPoint(EllipseArc const &a, Point2 const &p)
{
    NearestOnEllipse const whole = nearestOnEllipse(a.ellipse, p);
    if (whole.status == Status::Ok) {
        require(whole.distance >= 0.0);
        requireOn(a.ellipse, whole.direction, whole.point);
    }
    NearestOnEllipse const part = nearestOnArc(a, p);
    if (part.status == Status::Ok) {
        double const rounding = 1e-14 * (whole.distance + sizeOf(a.ellipse));
        require(part.distance >= whole.distance - rounding);
    }
}

void tryCurves(EllipseArc const &a, EllipseArc const &b, double tolerance)
{
    CubicBezier const first{{a.ellipse.centre, a.ellipse.u, a.ellipse.v, a.from}};
    CubicBezier const second{{b.ellipse.centre, b.ellipse.u, b.ellipse.v, b.from}};
    BezierCrossings const all = bezierCrossings(first, second, tolerance);
    require(all.count >= 0 && all.count <= 9);
    for (int i = 0; i < all.count; ++i) {
        BezierCrossing const &x = all.crossings[i];
        require(isFinite(x.point));
        require(x.onFirst >= 0.0 && x.onFirst <= 1.0 && x.onSecond >= 0.0 && x.onSecond <= 1.0);
    }
    BezierLineCrossings const cut = bezierLineCrossings(first, b.from, b.to, tolerance);
    require(cut.count >= 0 && cut.count <= 3);
    for (int i = 0; i < cut.count; ++i) {
        require(isFinite(cut.crossings[i].point));
        require(cut.crossings[i].t >= 0.0 && cut.crossings[i].t <= 1.0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    Input input(data, size);
    EllipseArc const a = input.arc();
    EllipseArc const b = input.arc();
    Point2 const p0 = input.point();
    Point2 const p1 = input.point();
    double const tolerance = input.number();
    tryPair(a, b, tolerance);
    tryCurves(a, b, tolerance);
    tryLine(a, p0, p1, tolerance);
    tryPoint(a, p0);
    return 0;
}
