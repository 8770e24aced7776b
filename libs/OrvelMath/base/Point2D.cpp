#include <OrvelMath/base/Point2D.h>

#include <OrvelMath/engine/angles_p.h>

Point2D VecWin(double angle)
{
    double const radians = engine::degreesTimesPiBy180(angle);
    return {std::cos(radians), std::sin(radians)};
}

double WinVec(double x, double y)
{
    if (x == 0.0) {
        return 0.0 > y ? 270.0 : 90.0;
    }
    double const angle = engine::radiansByFactor(std::atan(y / x));
    if (x > 0.0) {
        return y > 0.0 ? angle : angle + 360.0;
    }
    return angle + 180.0;
}

double WinVec(Point2D const &v)
{
    return WinVec(v.x(), v.y());
}

double MatUtil::getSquareOfLength(Point2D const &v)
{
    return v.Length2();
}
