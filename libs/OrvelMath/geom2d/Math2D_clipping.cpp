#include <OrvelMath/geom2d/Math2D.h>

#include <OrvelMath/engine/CycleGuard_p.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

enum : int { Left = 1, Right = 2, Below = 4, Above = 8 };

/// An upright rectangle and the direction, as passed in, of the segment that is clipped at it.
struct Clipper
{
    double xmin;
    double ymin;
    double xmax;
    double ymax;
    double dx;
    double dy;

    int outcode(double x, double y) const
    {
        int code = 0;
        if (x < xmin) {
            code |= Left;
        }
        if (x > xmax) {
            code |= Right;
        }
        if (y < ymin) {
            code |= Below;
        }
        if (y > ymax) {
            code |= Above;
        }
        return code;
    }

    /// Moves an end to the border, in x and then in y as its outcode tells.
    void move(int code, double &x, double &y) const
    {
        if (code & Left) {
            y += (xmin - x) * dy / dx;
            x = xmin;
        } else if (code & Right) {
            y += (xmax - x) * dy / dx;
            x = xmax;
        }
        if (code & Below) {
            x += (ymin - y) * dx / dy;
            y = ymin;
        } else if (code >= Above) {
            x += (ymax - y) * dx / dy;
            y = ymax;
        }
    }

    void clamp(double &x, double &y) const
    {
        x = std::min(std::max(x, xmin), xmax);
        y = std::min(std::max(y, ymin), ymax);
    }
};

/// The two ends of a segment.
using Ends = std::array<double, 4>;

struct AreSame
{
    bool operator()(Ends const &a, Ends const &b) const
    {
        // A coordinate that is no number stays none, and is the same place again.
        return std::equal(a.begin(), a.end(), b.begin(), [](double x, double y) {
            return x == y || (std::isnan(x) && std::isnan(y));
        });
    }
};

} // namespace

bool clipline(double xmin, double ymin, double xmax, double ymax, double &x1, double &y1,
              double &x2, double &y2)
{
    Clipper const clipper{xmin, ymin, xmax, ymax, x2 - x1, y2 - y1};
    // The steps at which the guard looks show in the result: the ends are clamped where they are
    // then.
    engine::CycleGuard<Ends, AreSame> guard;
    int code1 = clipper.outcode(x1, y1);
    int code2 = clipper.outcode(x2, y2);
    while (code1 != 0 || code2 != 0) {
        if (code1 & code2) {
            return false;
        }
        if (code1 != 0) {
            clipper.move(code1, x1, y1);
            code1 = clipper.outcode(x1, y1);
        }
        if (code1 & code2) {
            return false;
        }
        if (code2 != 0) {
            clipper.move(code2, x2, y2);
            code2 = clipper.outcode(x2, y2);
        }
        // On a segment through a corner, rounding may drive an end off one border and back over the
        // other for ever. Such an end belongs on the corner. In a rectangle whose borders are
        // exchanged no end ever comes to rest, and nothing stays.
        if (guard.comesAgain({x1, y1, x2, y2})) {
            clipper.clamp(x1, y1);
            clipper.clamp(x2, y2);
            return !(xmin > xmax || ymin > ymax);
        }
    }
    return true;
}
