#include <OrvelMath/geom2d/Math2D.h>

#include <cfloat>
#include <cmath>

// The contract is single precision at every step.
static_assert(FLT_EVAL_METHOD == 0, "float expressions must not be evaluated in a wider type");

int circleLineIntersect(float x1, float y1, float x2, float y2, float cx, float cy, float r,
                        float &ox1, float &oy1, float &ox2, float &oy2)
{
    float const dx = x2 - x1;
    float const dy = y2 - y1;
    float const a = dx * dx + dy * dy;
    float const h = (x1 - cx) * dx + (y1 - cy) * dy;
    float const b = h + h;
    float const g = x1 * cx + y1 * cy;
    float const discriminant =
        b * b - (cx * cx + cy * cy + x1 * x1 + y1 * y1 - (g + g) - r * r) * (4.0f * a);
    if (discriminant < 0.0f) {
        return 0;
    }

    // The root and the quotients are in double precision; the divisor is doubled before it widens.
    double const root = std::sqrt(static_cast<double>(discriminant));
    double const wideB = static_cast<double>(b);
    double const divisor = static_cast<double>(a + a);
    float const t1 = static_cast<float>((root - wideB) / divisor);
    float const t2 = static_cast<float>((-wideB - root) / divisor);
    ox1 = x1 + t1 * dx;
    oy1 = y1 + t1 * dy;
    ox2 = x1 + t2 * dx;
    oy2 = y1 + t2 * dy;
    return 2;
}

int circleLineIntersect(Point2D a, Point2D b, Point2D c, float r, Point2D &o1, Point2D &o2)
{
    float x1 = 0.0f;
    float y1 = 0.0f;
    float x2 = 0.0f;
    float y2 = 0.0f;
    int const count = circleLineIntersect(static_cast<float>(a.x()), static_cast<float>(a.y()),
                                          static_cast<float>(b.x()), static_cast<float>(b.y()),
                                          static_cast<float>(c.x()), static_cast<float>(c.y()), r,
                                          x1, y1, x2, y2);
    o1 = Point2D(static_cast<double>(x1), static_cast<double>(y1));
    o2 = Point2D(static_cast<double>(x2), static_cast<double>(y2));
    return count;
}
