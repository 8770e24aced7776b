#include <OrvelMath/base/Matrix4X4C.h>

#include <OrvelMath/engine/angles_p.h>

#include <cmath>
#include <cstring>
#include <utility>

namespace {

// The identity, to be filled in.
struct Factor
{
    double m[4][4] = {
        {1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};
};

Factor translation(double x, double y, double z)
{
    Factor t;
    t.m[0][3] = x;
    t.m[1][3] = y;
    t.m[2][3] = z;
    return t;
}

// The rotation that takes the z axis to the direction d.
Factor axisFrame(Point3D const &d)
{
    Factor a;
    double const w = std::sqrt(d.y() * d.y() + d.z() * d.z());
    if (w != 0.0) {
        double const length = std::sqrt(d.x() * d.x() + d.y() * d.y() + d.z() * d.z());
        a.m[0][0] = w / length;
        a.m[0][2] = d.x() / length;
        a.m[1][0] = -(d.y() * d.x()) / (length * w);
        a.m[1][1] = d.z() / w;
        a.m[1][2] = d.y() / length;
        a.m[2][0] = -(d.z() * d.x()) / (length * w);
        a.m[2][1] = -d.y() / w;
        a.m[2][2] = d.z() / length;
    } else {
        double const s = d.x() / std::fabs(d.x());
        a.m[0][0] = 0.0;
        a.m[0][2] = s;
        a.m[2][0] = -s;
        a.m[2][2] = 0.0;
    }
    return a;
}

void divideByLength(Point3D &v)
{
    double const length = v.Length();
    if (length != 0.0) {
        v = Point3D(v.x() / length, v.y() / length, v.z() / length);
    }
}

Point3D column(double const (*const m)[4], int i)
{
    return {m[0][i], m[1][i], m[2][i]};
}

void setColumn(double (*const m)[4], int i, Point3D const &v)
{
    for (int row = 0; row < 3; ++row) {
        m[row][i] = v[row];
    }
}

} // namespace

Point3D Math3DVektorprodukt(Point3D const &a, Point3D const &b)
{
    return {b.z() * a.y() - b.y() * a.z(), b.x() * a.z() - a.x() * b.z(),
            a.x() * b.y() - b.x() * a.y()};
}

void Math3DMultMatrix(double (*const result)[4], double const (*const a)[4],
                      double const (*const b)[4])
{
    double product[4][4];
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            product[row][col] = 0.0 + a[row][0] * b[0][col] + a[row][1] * b[1][col] +
                                a[row][2] * b[2][col] + a[row][3] * b[3][col];
        }
    }
    std::memcpy(result, product, sizeof product);
}

void Math3DRotateMatrix(double (*const m)[4], double a, double b, double c)
{
    double const sx = std::sin(engine::degreesTimesFactor(a));
    double const cx = std::cos(engine::degreesTimesFactor(a));
    double const sy = std::sin(engine::degreesTimesFactor(b));
    double const cy = std::cos(engine::degreesTimesFactor(b));
    double const sz = std::sin(engine::degreesTimesFactor(c));
    double const cz = std::cos(engine::degreesTimesFactor(c));
    double const r[4][4] = {{cy * cz, cx * sz - sx * cz * sy, cx * cz * sy + sx * sz, 0.0},
                            {-sz * cy, sx * sz * sy + cx * cz, sx * cz - cx * sz * sy, 0.0},
                            {-sy, -cy * sx, cx * cy, 0.0},
                            {0.0, 0.0, 0.0, 1.0}};
    Math3DMultMatrix(m, r, m);
}

void Math3DTranslateMatrix(double (*const m)[4], double x, double y, double z)
{
    Math3DMultMatrix(m, translation(x, y, z).m, m);
}

void Math3DScaleMatrix(double (*const m)[4], double x, double y, double z)
{
    Factor s;
    s.m[0][0] = x;
    s.m[1][1] = y;
    s.m[2][2] = z;
    Math3DMultMatrix(m, s.m, m);
}

void Math3DGetRotateAxisMatrix(Point3D const &point, Point3D const &direction, double (*const m)[4],
                               double angle)
{
    Factor const frame = axisFrame(direction);
    Factor transposed;
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            transposed.m[row][col] = frame.m[col][row];
        }
    }
    Factor turn;
    turn.m[0][0] = std::cos(engine::degreesTimesFactor(angle));
    turn.m[0][1] = -std::sin(engine::degreesTimesFactor(angle));
    turn.m[1][0] = std::sin(engine::degreesTimesFactor(angle));
    turn.m[1][1] = std::cos(engine::degreesTimesFactor(angle));

    Math3DMultMatrix(m, translation(point.x(), point.y(), point.z()).m, frame.m);
    Math3DMultMatrix(m, m, turn.m);
    Math3DMultMatrix(m, m, transposed.m);
    Math3DMultMatrix(m, m, translation(-point.x(), -point.y(), -point.z()).m);
}

void Math3DCorrectMatrix(double (*const m)[4])
{
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            double const v = m[row][col];
            if (v > -1e-9 && v < 1e-9) { // an element of a rotation
                m[row][col] = 0.0;
            }
        }
    }
}

void Math3DCorrectMatrixOne(double (*const m)[4])
{
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            double const v = m[row][col];
            if (v > 0.999999999 && v < 1.000000001) {
                m[row][col] = 1.0;
            } else if (v > -1.000000001 && v < -0.999999999) {
                m[row][col] = -1.0;
            }
        }
    }
}

void Math3DTransponateMatrix(double (*const m)[4])
{
    for (int row = 0; row < 4; ++row) {
        for (int col = row + 1; col < 4; ++col) {
            std::swap(m[row][col], m[col][row]);
        }
    }
}

void Math3DRefresh(double (&m)[4][4])
{
    Point3D a = column(m, 0);
    Point3D b = column(m, 1);
    divideByLength(a);
    divideByLength(b);
    Point3D c = Math3DVektorprodukt(a, b);
    b = Math3DVektorprodukt(c, a);
    divideByLength(a);
    divideByLength(b);
    divideByLength(c);
    setColumn(m, 0, a);
    setColumn(m, 1, b);
    setColumn(m, 2, c);
}

bool Math3DCompareMatrix(double const (*const a)[4], double const (*const b)[4], double tolerance)
{
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            if (!(tolerance > std::fabs(a[row][col] - b[row][col]))) {
                return false;
            }
        }
    }
    return true;
}

bool Math3DCheckMatrix(double const (*const m)[4])
{
    for (int i = 0; i < 3; ++i) {
        if (std::fabs(column(m, i).Length() - 1.0) > 1e-9) { // a length
            return false;
        }
    }
    return true;
}
