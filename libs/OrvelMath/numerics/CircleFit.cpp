#include <OrvelMath/engine/LinearSystemT_p.h>
#include <OrvelMath/numerics/CircleFit.h>

#include <cmath>

namespace {

using Vector = vectorC2d<double>;
using Points = std::vector<Vector, OrvelAllocatorT<Vector>>;
using Circle = std::pair<Vector, double>;

Circle noCircle()
{
    return {Vector(0.0, 0.0), 0.0};
}

Vector findMean(Points const &points)
{
    double x = 0.0, y = 0.0;
    for (Vector const &p : points) {
        x += p.x();
        y += p.y();
    }
    double const n = double(points.size());
    return Vector(x / n, y / n);
}

/// The root of P(x) = 4 x^4 + a2 x^2 + a1 x + a0 that Newton's method reaches from 0.
double findRoot(double a2, double a1, double a0)
{
    double x = 0.0;
    double y = a0;
    for (int step = 0; step < 99; ++step) { // so that it returns for every input
        double const slope = 16.0 * (x * x * x) + 2.0 * a2 * x + a1;
        if (1e-16 > slope) { // P'; signed, so a falling curve stops as well
            break;
        }
        double const xNew = x - y / slope;
        double const yNew = 4.0 * (xNew * xNew * xNew * xNew) + a2 * (xNew * xNew) + a1 * xNew + a0;
        if (1e-16 > std::fabs(x - xNew) || std::fabs(yNew) > std::fabs(y)) { // step; value of P
            break;
        }
        x = xNew;
        y = yNew;
    }
    return x;
}

} // namespace

std::pair<vectorC2d<double>, double>
MatUtil::kasaFit(std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>> const &points)
{
    double const n = double(points.size());
    Vector const mean = findMean(points);
    double uu = 0.0, vv = 0.0, uv = 0.0, zu = 0.0, zv = 0.0;
    for (Vector const &p : points) {
        double const u = p.x() - mean.x();
        double const v = p.y() - mean.y();
        double const z = u * u + v * v;
        uu += u * u;
        vv += v * v;
        uv += u * v;
        zu += z * u * 0.5;
        zv += z * v * 0.5;
    }
    double const mxx = uu / n;
    double const myy = vv / n;
    double const mxy = uv / n;

    double const columns[4] = {mxx, mxy, mxy, myy};
    double const rhs[2] = {zu / n, zv / n};
    double c[2];
    if (LinearSystemT<2, 2>(columns, 1e-12).solve(rhs, c) != 0) {
        return noCircle();
    }
    return {Vector(c[0] + mean.x(), c[1] + mean.y()),
            std::sqrt(mxx + myy + c[0] * c[0] + c[1] * c[1])};
}

std::pair<vectorC2d<double>, double>
MatUtil::taubinFit(std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>> const &points,
                   double minDeterminant)
{
    if (points.size() < 3) {
        return noCircle();
    }
    double const n = double(points.size());
    Vector const mean = findMean(points);
    double uu = 0.0, vv = 0.0, uv = 0.0, zu = 0.0, zv = 0.0, zz = 0.0;
    for (Vector const &p : points) {
        double const u = p.x() - mean.x();
        double const v = p.y() - mean.y();
        double const z = u * u + v * v;
        uu += u * u;
        vv += v * v;
        uv += u * v;
        zu += z * u;
        zv += z * v;
        zz += z * z;
    }
    double const mxx = uu / n, myy = vv / n, mxy = uv / n;
    double const mxz = zu / n, myz = zv / n, mzz = zz / n;

    double const mz = mxx + myy;
    double const cov = mxx * myy - mxy * mxy;
    double const var = mzz - mz * mz;
    double const a2 = 4.0 * cov - 3.0 * mz * mz - mzz;
    double const a1 = (var + 4.0 * cov) * mz - mxz * mxz - myz * myz;
    double const a0 = mxz * (mxz * myy - myz * mxy) + myz * (myz * mxx - mxz * mxy) - var * cov;
    double const x = findRoot(a2, a1, a0);

    double const det = x * x - x * mz + cov;
    if (minDeterminant > det) {
        return noCircle();
    }
    double const cu = (mxz * (myy - x) - myz * mxy) / (2.0 * det);
    double const cv = (myz * (mxx - x) - mxz * mxy) / (2.0 * det);
    return {Vector(cu + mean.x(), cv + mean.y()), std::sqrt(cu * cu + cv * cv + mz - (x + x))};
}
