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
    : m_x(x)
    , m_y(y)
    , m_z(z)
    , m_w(w)
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
    x = m_x;
    y = m_y;
    z = m_z;
    w = m_w;
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
    m_x = sa * cb * cc - ca * sb * sc;
    m_y = ca * sb * cc + sa * cb * sc;
    m_z = ca * cb * sc - sa * sb * cc;
    m_w = ca * cb * cc + sa * sb * sc;
}

void Quaternion4D::GetEuler(double &aboutY, double &aboutZ, double &aboutX)
{
    double const halfSine = m_x * m_y + m_z * m_w; // half the sine of the angle about z
    // Less than 3.7 degrees from a pole, the other two angles turn about nearly the same axis: one
    // of them takes all.
    if (halfSine > 0.499) {
        aboutY = 2.0 * std::atan2(m_x, m_w);
        aboutZ = halfPi;
        aboutX = 0.0;
    } else if (-0.499 > halfSine) {
        aboutY = -2.0 * std::atan2(m_x, m_w);
        aboutZ = -halfPi;
        aboutX = 0.0;
    } else {
        aboutY =
            std::atan2(2.0 * m_y * m_w - 2.0 * m_x * m_z, 1.0 - 2.0 * m_y * m_y - 2.0 * m_z * m_z);
        aboutZ = std::asin(2.0 * halfSine);
        aboutX =
            std::atan2(2.0 * m_x * m_w - 2.0 * m_y * m_z, 1.0 - 2.0 * m_x * m_x - 2.0 * m_z * m_z);
    }
}

void Quaternion4D::SetRotation(Point3D const &axis, double angle)
{
    Point3D const unitAxis = axis.Normalize();
    double const sine = std::sin(angle * 0.5);
    m_x = unitAxis.x() * sine;
    m_y = unitAxis.y() * sine;
    m_z = unitAxis.z() * sine;
    m_w = std::cos(angle * 0.5);
}

void Quaternion4D::GetAngleAxis(Point3D &axis, double &angle) const
{
    angle = 0.0;
    axis = Point3D(1.0, 0.0, 0.0);
    if (std::fabs(m_w) > 1.0) {
        return;
    }
    double const sine = std::sqrt(1.0 - m_w * m_w);
    if (0.0001 > std::fabs(sine)) { // sine of half the angle
        return;
    }
    angle = 2.0 * std::acos(m_w);
    axis = Point3D(m_x / sine, m_y / sine, m_z / sine);
}

void Quaternion4D::SetMatrix(Matrix4X4C const &matrix)
{
    double const(&m)[4][4] = matrix.GetConstMatrixRef();
    double const trace = m[0][0] + m[1][1] + m[2][2];
    if (trace > 0.0) {
        double const root = std::sqrt(trace + 1.0);
        double const factor = 0.5 / root;
        m_w = root * 0.5;
        m_x = (m[1][2] - m[2][1]) * factor;
        m_y = (m[2][0] - m[0][2]) * factor;
        m_z = (m[0][1] - m[1][0]) * factor;
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
    m_w = (m[j][k] - m[k][j]) * factor;
    vectorPart[j] = (m[i][j] + m[j][i]) * factor;
    vectorPart[k] = (m[i][k] + m[k][i]) * factor;
    m_x = vectorPart[0];
    m_y = vectorPart[1];
    m_z = vectorPart[2];
}

Matrix4X4C Quaternion4D::GetMatrix() const
{
    double const x = m_x;
    double const y = m_y;
    double const z = m_z;
    double const w = m_w;
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
    return m_y * other.m_y + m_x * other.m_x + m_z * other.m_z + m_w * other.m_w;
}

double Quaternion4D::LengthSqr() const
{
    return m_x * m_x + m_y * m_y + m_z * m_z + m_w * m_w;
}

double Quaternion4D::Length() const
{
    return std::sqrt(LengthSqr());
}

Quaternion4D Quaternion4D::Normal() const
{
    double const length = Length();
    return Quaternion4D(m_x / length, m_y / length, m_z / length, m_w / length);
}

void Quaternion4D::Normalize()
{
    *this = Normal();
}

Quaternion4D Quaternion4D::Slerp(Quaternion4D const &to, double t) const
{
    double const dot = m_x * to.m_x + m_w * to.m_w + m_y * to.m_y + m_z * to.m_z;
    bool const isOpposite = 0.0 > dot;
    double const cosine = isOpposite ? -dot : dot;

    double weightThis = 1.0 - t;
    double weightTo = t;
    // The cosine of half the angle between the rotations. Nearer ones are mixed linearly, before
    // sin(angle) comes to 0.
    if (0.99999 > cosine) {
        double const angle = std::acos(std::max(-1.0, cosine));
        weightThis = std::sin((1.0 - t) * angle) / std::sin(angle);
        weightTo = std::sin(angle * t) / std::sin(angle);
    }
    if (isOpposite) {
        weightTo = -weightTo;
    }
    return Quaternion4D(weightThis * m_x + weightTo * to.m_x, weightThis * m_y + weightTo * to.m_y,
                        weightThis * m_z + weightTo * to.m_z, weightThis * m_w + weightTo * to.m_w);
}

Quaternion4D Quaternion4D::Lerp(Quaternion4D const &to, double t) const
{
    return Quaternion4D((to.m_x - m_x) * t + m_x, (to.m_y - m_y) * t + m_y,
                        (to.m_z - m_z) * t + m_z, (to.m_w - m_w) * t + m_w);
}

void Matrix4X4C::SetFromQuaternion(Quaternion4D &quaternion)
{
    *this = quaternion.GetMatrix();
}

Quaternion4D Matrix4X4C::GetQuaternion() const
{
    return Quaternion4D(*this);
}
