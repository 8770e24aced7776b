#include <OrvelMath/base/Matrix4X4C.h>

#include <cmath>
#include <cstring>

namespace {

template <typename T>
void readColumnMajor(double (&m)[4][4], T const *values)
{
    for (int col = 0; col < 4; ++col) {
        for (int row = 0; row < 4; ++row) {
            m[row][col] = static_cast<double>(values[4 * col + row]);
        }
    }
}

template <typename T>
void writeColumnMajor(double const (&m)[4][4], T *values)
{
    for (int col = 0; col < 4; ++col) {
        for (int row = 0; row < 4; ++row) {
            values[4 * col + row] = static_cast<T>(m[row][col]);
        }
    }
}

// A row against (x, y, z, 1), in the order of the library's other point sums: y first.
double rowTimesPoint(double const (&row)[4], Point3D const &p)
{
    return row[1] * p.y() + row[0] * p.x() + row[2] * p.z() + row[3];
}

void setColumn(double (&m)[4][4], int i, Point3D const &v)
{
    m[0][i] = v.x();
    m[1][i] = v.y();
    m[2][i] = v.z();
}

Point3D column(double const (&m)[4][4], int i)
{
    return {m[0][i], m[1][i], m[2][i]};
}

} // namespace

Matrix4X4C::Matrix4X4C()
{
    Init();
}

Matrix4X4C::Matrix4X4C(double const (&values)[4][4])
{
    std::memcpy(m_m, values, sizeof m_m);
}

Matrix4X4C::Matrix4X4C(matrixC4x4<double> const &m)
{
    fromMatrixC4x4Dbl(m);
}

void Matrix4X4C::fromMatrixC4x4Dbl(matrixC4x4<double> const &m)
{
    readColumnMajor(m_m, m.data());
}

Matrix4X4C::operator matrixC4x4<double>() const
{
    matrixC4x4<double> m;
    writeColumnMajor(m_m, m.data());
    return m;
}

void Matrix4X4C::Init()
{
    SetFromDouble(1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0);
}

void Matrix4X4C::SetMatrixRef(double const (&values)[4][4])
{
    std::memmove(m_m, values, sizeof m_m);
}

void Matrix4X4C::GetMatrixCopy(double (&values)[4][4]) const
{
    std::memmove(values, m_m, sizeof m_m);
}

double (&Matrix4X4C::GetMatrixRef() const)[4][4]
{
    return const_cast<Matrix4X4C *>(this)->m_m;
}

double const (&Matrix4X4C::GetConstMatrixRef() const)[4][4]
{
    return m_m;
}

void Matrix4X4C::SetFromDouble(double m00, double m01, double m02, double m03, double m10,
                               double m11, double m12, double m13, double m20, double m21,
                               double m22, double m23, double m30, double m31, double m32,
                               double m33)
{
    double const values[4][4] = {
        {m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}};
    SetMatrixRef(values);
}

void Matrix4X4C::SetFromCoordSystem(CoordinateSystem const &system)
{
    SetMatX(system.xAxis);
    SetMatY(system.yAxis);
    SetMatZ(system.zAxis);
    SetMatT(system.origin);
    m_m[3][0] = m_m[3][1] = m_m[3][2] = 0.0;
    m_m[3][3] = 1.0;
}

CoordinateSystem Matrix4X4C::GetCoordinateSystem() const
{
    CoordinateSystem system;
    system.xAxis = GetMatX();
    system.yAxis = GetMatY();
    system.zAxis = GetMatZ();
    system.origin = GetMatT();
    return system;
}

void Matrix4X4C::SetFromOpenGL(double *const values)
{
    readColumnMajor(m_m, values);
}

void Matrix4X4C::SetFromOpenGL(float *const values)
{
    readColumnMajor(m_m, values);
}

void Matrix4X4C::GetOpenGL(double *const values) const
{
    writeColumnMajor(m_m, values);
}

void Matrix4X4C::GetOpenGL(float *const values) const
{
    writeColumnMajor(m_m, values);
}

void Matrix4X4C::SetMatX(Point3D const &axis)
{
    setColumn(m_m, 0, axis);
}

void Matrix4X4C::SetMatY(Point3D const &axis)
{
    setColumn(m_m, 1, axis);
}

void Matrix4X4C::SetMatZ(Point3D const &axis)
{
    setColumn(m_m, 2, axis);
}

void Matrix4X4C::SetMatT(Point3D const &translation)
{
    setColumn(m_m, 3, translation);
}

Point3D Matrix4X4C::GetMatX() const
{
    return column(m_m, 0);
}

Point3D Matrix4X4C::GetMatY() const
{
    return column(m_m, 1);
}

Point3D Matrix4X4C::GetMatZ() const
{
    return column(m_m, 2);
}

Point3D Matrix4X4C::GetMatT() const
{
    return column(m_m, 3);
}

void Matrix4X4C::Rotate(double a, double b, double c)
{
    Math3DRotateMatrix(m_m, a, b, c);
}

void Matrix4X4C::Translate(double x, double y, double z)
{
    Math3DTranslateMatrix(m_m, x, y, z);
}

void Matrix4X4C::Scale(double x, double y, double z)
{
    Math3DScaleMatrix(m_m, x, y, z);
}

void Matrix4X4C::CalcRotateAxisMatrix(Point3D const &point, Point3D const &direction, double angle)
{
    Math3DGetRotateAxisMatrix(point, direction, m_m, angle);
}

bool Matrix4X4C::Invert()
{
    return Math3DInvertMatrix(m_m);
}

void Matrix4X4C::InvertOrthogonal()
{
    Point3D const t = column(m_m, 3);
    Point3D const axes[3] = {column(m_m, 0), column(m_m, 1), column(m_m, 2)};
    for (int row = 0; row < 3; ++row) {
        Point3D const &r = axes[row];
        m_m[row][0] = r.x();
        m_m[row][1] = r.y();
        m_m[row][2] = r.z();
        m_m[row][3] = (r.y() * t.y() + r.x() * t.x() + r.z() * t.z() + 0.0) * -1.0;
    }
}

void Matrix4X4C::Correct()
{
    Math3DCorrectMatrix(m_m);
}

void Matrix4X4C::CorrectOne()
{
    Math3DCorrectMatrixOne(m_m);
}

void Matrix4X4C::AlignAxis()
{
    Math3DRefresh(m_m);
}

void Matrix4X4C::Transponate()
{
    Math3DTransponateMatrix(m_m);
}

bool Matrix4X4C::CheckMatrix() const
{
    return Math3DCheckMatrix(m_m);
}

bool Matrix4X4C::IsValidMatrix() const
{
    for (int row = 0; row < 3; ++row) {
        double const *const r = m_m[row];
        if (!std::isfinite(r[1] + r[0] + r[2] + r[3])) {
            return false;
        }
    }
    return true;
}

bool Matrix4X4C::operator==(Matrix4X4C const &o) const
{
    return Math3DCompareMatrix(m_m, o.m_m, 1e-4); // elements
}

bool Matrix4X4C::operator!=(Matrix4X4C const &o) const
{
    return !(*this == o);
}

Matrix4X4C Matrix4X4C::operator*(Matrix4X4C const &o) const
{
    Matrix4X4C result{Unwritten()};
    Math3DMultMatrix(result.m_m, m_m, o.m_m);
    return result;
}

Matrix4X4C &Matrix4X4C::operator*=(Matrix4X4C const &o)
{
    Math3DMultMatrix(m_m, m_m, o.m_m);
    return *this;
}

Matrix4X4C Matrix4X4C::operator-() const
{
    Matrix4X4C result{Unwritten()};
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            result.m_m[row][col] = -m_m[row][col];
        }
    }
    return result;
}

Point3D Matrix4X4C::MultMatrixVector(Point3D const &p) const
{
    return {rowTimesPoint(m_m[0], p), rowTimesPoint(m_m[1], p), rowTimesPoint(m_m[2], p)};
}

Point3D Matrix4X4C::MultMatrixVectorRespectW(Point3D const &p) const
{
    double const reciprocal = 1.0 / rowTimesPoint(m_m[3], p);
    return {rowTimesPoint(m_m[0], p) * reciprocal, rowTimesPoint(m_m[1], p) * reciprocal,
            rowTimesPoint(m_m[2], p) * reciprocal};
}
