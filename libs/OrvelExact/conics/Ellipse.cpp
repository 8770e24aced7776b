#include <OrvelExact/conics/Ellipse.h>

#include <OrvelExact/measures/circularFunctions_p.h>

namespace orvelExact {

Ellipse circle(Point2 const &centre, double radius)
{
    return {centre, {radius, 0.0}, {0.0, radius}};
}

EllipseArc circleArc(Point2 const &centre, double radius, Point2 const &from, Point2 const &to)
{
    return {circle(centre, radius), from, to};
}

EllipseResult ellipseAtAngle(Point2 const &centre, double angle, double a, double b)
{
    if (!isFinite(centre) || !std::isfinite(angle) || !std::isfinite(a) || !std::isfinite(b)) {
        return {Status::NotFinite, {}};
    }
    if (!(a > 0.0) || !(b > 0.0)) {
        return {Status::Degenerate, {}};
    }
    constexpr double largestAxis = 0x1p900; // products of 106 bits need room above
    if (std::fabs(angle) > largestAngle || a > largestAxis || b > largestAxis) {
        return {Status::OutOfRange, {}};
    }
    SineCosine const turn = sineCosineOf(angle);
    return {Status::Ok,
            {centre,
             {rounded(turn.cosine * a), rounded(turn.sine * a)},
             {rounded(-turn.sine * b), rounded(turn.cosine * b)}}};
}

} // namespace orvelExact
