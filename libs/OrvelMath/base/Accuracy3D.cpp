#include <OrvelMath/base/Accuracy3D.h>

#include <OrvelMath/base/PThreadStorage_p.h>
#include <OrvelMath/base/Singleton_p.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// The calling thread's cell, made with `initial` on its first use.
Accuracy3D &threadCell(Accuracy3D initial)
{
    PThreadStorage<Accuracy3D> *const storage = Singleton<PThreadStorage<Accuracy3D>>::instance();
    Accuracy3D *cell = storage->cell();
    if (!cell) {
        cell = storage->setCell(std::make_unique<Accuracy3D>(initial));
    }
    return *cell;
}

// Step angles in degrees.
struct StepAngles
{
    double coarse;
    double medium;
    double fine;
};

StepAngles stepAngles(Accuracy3D accuracy)
{
    switch (accuracy) {
    case Accuracy3DClass3:
        return {30.0, 15.0, 7.5};
    case Accuracy3DClass4:
        return {15.0, 15.0, 7.5};
    case Accuracy3DClass5:
        return {10.0, 5.0, 3.0};
    case Accuracy3DFinest:
        return {5.0, 3.0, 2.0};
    default:
        return {30.0, 30.0, 15.0};
    }
}

} // namespace

void SetAccuracy(Accuracy3D accuracy)
{
    threadCell(Accuracy3D(0)) = accuracy;
}

Accuracy3D GetAccuracy()
{
    return threadCell(Accuracy3DDefault);
}

double GetAccuracyAngle(double size, double reference)
{
    StepAngles const angles = stepAngles(GetAccuracy());
    if (reference == 0.0) {
        return angles.fine;
    }
    double const ratio = (size + size) / reference;
    if (0.05 > ratio) {
        return angles.coarse;
    }
    if (0.2 > ratio) {
        return angles.medium;
    }
    return angles.fine;
}

bool GetNextAccuracyAngle(double step, double end, double &current)
{
    double const next = current + step;
    if (next >= end - 0.01) { // degrees
        current = end;
        return true;
    }
    double const remainder = std::fmod(next, step);
    if (remainder > step - 0.01) { // degrees: next is a hair short of a multiple
        current = current + remainder;
    } else if (0.01 > remainder) { // degrees: next is a hair past a multiple
        current = (current - remainder) + step;
    } else {
        current = current + (step - remainder);
    }
    return false;
}

int sgn(double value)
{
    if (value == 0.0) {
        return 0;
    }
    return value > 0.0 ? 1 : -1;
}

int sgn(double value, double tolerance)
{
    if (value > -tolerance && tolerance > value) {
        return 0;
    }
    return value > 0.0 ? 1 : -1;
}

int Compare(double a, double b, double tolerance)
{
    if (tolerance > std::fabs(a - b)) {
        return 0;
    }
    return a > b ? 1 : -1;
}

int CSCompareFloats(double a, double b)
{
    // A hundred-thousandth of a, at most 0.001; beside 0, which has no size, 1e-8.
    double const relative = a == 0.0 ? 1e-8 : std::fabs(a * 1e-5);
    return CSCompareFloats(a, b, std::min(0.001, relative));
}

int CSCompareFloats(double a, double b, double tolerance)
{
    if (tolerance >= std::fabs(b - a)) {
        return 0;
    }
    return b > a ? -1 : 1;
}

int ResolveLinear(double a, double b, double &x)
{
    if (a == 0.0) {
        if (b == 0.0) {
            x = 0.0;
            return 1;
        }
        return 0;
    }
    x = -b / a;
    return 1;
}

int ResolveQuadrat(double a, double b, double c, double &x1, double &x2)
{
    if (a == 0.0) {
        if (b == 0.0) {
            if (c == 0.0) {
                x1 = 0.0;
                return 1;
            }
            return 0;
        }
        x1 = -c / b;
        return 1;
    }
    double const discriminant = b * b - (a * 4.0) * c;
    if (0.0 > discriminant) {
        return 0;
    }
    if (discriminant == 0.0) {
        x1 = -b / (a + a);
        return 1;
    }
    double const root = std::sqrt(discriminant);
    x1 = (root - b) / (a + a);
    x2 = (-b - root) / (a + a);
    return 2;
}
