#include <OrvelMath/base/Quaternion4D.h>

#include <algorithm>
#include <cmath>

namespace {

double const halfPi = 1.5707963267948966;

} // namespace

Quaternion4D::Quaternion4D()
    : Quaternion4D(0.0, 0.0, 0.0, 1.0)
{
}

Quaternion4D::Quaternion4D(double x, double y, double z, double w)
    : mX(x)
    , mY(y)
    , mZ(z)
    , mW(w)
{
}

Quaternion4D::Quaternion4D(Matrix4X4C const &matrix)
{
    SetMatrix(matrix);
}

Quaternion4D::Quaternion4D(Point3D const &angles)
{
    SetEuler(angles);
}

Quaternion4D::Quaternion4D(Point3D const &axis, double angle)
{
    SetRotation(axis, angle);
}

void Quaternion4D::SetComponents(double x, double y, double z, double w)
{
    *this = Quaternion4D(x, y, z, w);
}

void Quaternion4D::GetComponents(double &x, double &y, double &z, double &w) const
{
    x = mX;
    y = mY;
    z = mZ;
    w = mW;
}

void Quaternion4D::SetIdentity()
{
    *this = Quaternion4D();
}

void Quaternion4D::SetEuler(Point3D const &angles)
{
    double const a = angles.x() * 0.5;
    double const b = angles.y() * 0.5;
    double const c = angles.z() * 0.5;
    double const sa = std::sin(a);
    double const ca = std::cos(a);
    double const sb = std::sin(b);
    double const cb = std::cos(b);
    double const sc = std::sin(c);
    double const cc = std::cos(c);
    mX = sa * cb * cc - ca * sb * sc;
    mY = ca * sb * cc + sa * cb * sc;
    mZ = ca * cb * sc - sa * sb * cc;
    mW = ca * cb * cc + sa * sb * sc;
}

void Quaternion4D::GetEuler(double &aboutY, double &aboutZ, double &aboutX)
{
    double const halfSine = mX * mY + mZ * mW; // half the sine of the angle about z
    if (halfSine > 0.499) {
        aboutY = 2.0 * std::atan2(mX, mW);
        aboutZ = halfPi;
        aboutX = 0.0;
    } else if (-0.499 > halfSine) {
        aboutY = -2.0 * std::atan2(mX, mW);
        aboutZ = -halfPi;
        aboutX = 0.0;
    } else {
        aboutY = std::atan2(2.0 * mY * mW - 2.0 * mX * mZ, 1.0 - 2.0 * mY * mY - 2.0 * mZ * mZ);
        aboutZ = std::asin(2.0 * halfSine);
        aboutX = std::atan2(2.0 * mX * mW - 2.0 * mY * mZ, 1.0 - 2.0 * mX * mX - 2.0 * mZ * mZ);
    }
}

void Quaternion4D::SetRotation(Point3D const &axis, double angle)
{
    const Point3D unitAxis = axis.Normalize();
    double const sine = std::sin(angle * 0.5);
    mX = unitAxis.x() * sine;
    mY = unitAxis.y() * sine;
    mZ = unitAxis.z() * sine;
    mW = std::cos(angle * 0.5);
}

void Quaternion4D::GetAngleAxis(Point3D &axis, double &angle) const
{
    angle = 0.0;
    axis = Point3D(1.0, 0.0, 0.0);
    if (std::fabs(mW) > 1.0) {
        return;
    }
    double const sine = std::sqrt(1.0 - mW * mW);
    if (0.0001 > std::fabs(sine)) { // sine of half the angle
        return;
    }
    angle = 2.0 * std::acos(mW);
    axis = Point3D(mX / sine, mY / sine, mZ / sine);
}

void Quaternion4D::SetMatrix(Matrix4X4C const &matrix)
{
    double const(&m)[4][4] = matrix.GetConstMatrixRef();
    double const trace = m[0][0] + m[1][1] + m[2][2];
    if (trace > 0.0) {
        double const root = std::sqrt(trace + 1.0);
        double const factor = 0.5 / root;
        mW = root * 0.5;
        mX = (m[1][2] - m[2][1]) * factor;
        mY = (m[2][0] - m[0][2]) * factor;
        mZ = (m[0][1] - m[1][0]) * factor;
        return;
    }

    int i = m[1][1] > m[0][0] ? 1 : 0;
    if (m[2][2] > m[i][i]) {
        i = 2;
    }
    int const j = (i + 1) % 3;
    int const k = (j + 1) % 3;

    double vectorPart[3];
    double factor = std::sqrt(m[i][i] - (m[k][k] + m[j][j]) + 1.0);
    vectorPart[i] = factor * 0.5;
    if (factor != 0.0) {
        factor = 0.5 / factor;
    }
    mW = (m[j][k] - m[k][j]) * factor;
    vectorPart[j] = (m[i][j] + m[j][i]) * factor;
    vectorPart[k] = (m[i][k] + m[k][i]) * factor;
    mX = vectorPart[0];
    mY = vectorPart[1];
    mZ = vectorPart[2];
}

Matrix4X4C Quaternion4D::GetMatrix() const
{
    double const x = mX;
    double const y = mY;
    double const z = mZ;
    double const w = mW;
    double const rows[4][4] = {
        {1.0 - 2.0 * y * y - 2.0 * z * z, 2.0 * x * y + 2.0 * w * z, 2.0 * x * z - 2.0 * w * y,
         0.0},
        {2.0 * x * y - 2.0 * w * z, 1.0 - 2.0 * x * x - 2.0 * z * z, 2.0 * y * z + 2.0 * w * x,
         0.0},
        {2.0 * x * z + 2.0 * w * y, 2.0 * y * z - 2.0 * w * x, 1.0 - 2.0 * x * x - 2.0 * y * y,
         0.0},
        {0.0, 0.0, 0.0, 1.0},
    };
    return Matrix4X4C(rows);
}

double Quaternion4D::Dot(Quaternion4D const &other) const
{
    return mY * other.mY + mX * other.mX + mZ * other.mZ + mW * other.mW;
}

double Quaternion4D::LengthSqr() const
{
    return mX * mX + mY * mY + mZ * mZ + mW * mW;
}

double Quaternion4D::Length() const
{
    return std::sqrt(LengthSqr());
}

Quaternion4D Quaternion4D::Normal() const
{
    double const length = Length();
    return Quaternion4D(mX / length, mY / length, mZ / length, mW / length);
}

void Quaternion4D::Normalize()
{
    *this = Normal();
}

Quaternion4D Quaternion4D::Slerp(Quaternion4D const &to, double t) const
{
    double const dot = mX * to.mX + mW * to.mW + mY * to.mY + mZ * to.mZ;
    bool const isOpposite = 0.0 > dot;
    double const cosine = isOpposite ? -dot : dot;

    double weightThis = 1.0 - t;
    double weightTo = t;
    if (0.99999 > cosine) { // cosine of half the angle between the rotations
        double const angle = std::acos(std::max(-1.0, cosine));
        weightThis = std::sin((1.0 - t) * angle) / std::sin(angle);
        weightTo = std::sin(angle * t) / std::sin(angle);
    }
    if (isOpposite) {
        weightTo = -weightTo;
    }
    return Quaternion4D(weightThis * mX + weightTo * to.mX, weightThis * mY + weightTo * to.mY,
                        weightThis * mZ + weightTo * to.mZ, weightThis * mW + weightTo * to.mW);
}

Quaternion4D Quaternion4D::Lerp(Quaternion4D const &to, double t) const
{
    return Quaternion4D((to.mX - mX) * t + mX, (to.mY - mY) * t + mY, (to.mZ - mZ) * t + mZ,
                        (to.mW - mW) * t + mW);
}

void Matrix4X4C::SetFromQuaternion(Quaternion4D &quaternion)
{
    *this = quaternion.GetMatrix();
}

Quaternion4D Matrix4X4C::GetQuaternion() const
{
    return Quaternion4D(*this);
}
