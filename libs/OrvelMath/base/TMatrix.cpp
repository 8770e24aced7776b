#include <OrvelMath/base/TMatrix.h>

#include <OrvelMath/engine/angles_p.h>

#include <cmath>

static_assert(sizeof(TMatrix) == 11 * sizeof(double), "angle factor, angle offset, nine elements");

TMatrix::TMatrix()
    : TMatrix(Point2D(0.0, 0.0))
{
}

TMatrix::TMatrix(Point2D const &translation)
    : m_angleFactor(1.0)
    , m_angleOffset(0.0)
    , m_matrix{{1.0, 0.0, translation.x()}, {0.0, 1.0, translation.y()}, {0.0, 0.0, 1.0}}
{
}

TMatrix::TMatrix(double angle)
{
    double const radians = engine::degreesTimesPiBy180(angle);
    double const cosine = std::cos(radians);
    double const sine = std::sin(radians);
    setMatrix(cosine, -sine, 0.0, sine, cosine, 0.0, 0.0, 0.0, 1.0, 1.0, angle);
}

TMatrix::TMatrix(double scaleX, double scaleY)
{
    setMatrix(std::fabs(scaleX), 0.0, 0.0, 0.0, std::fabs(scaleY), 0.0, 0.0, 0.0, 1.0, 1.0, 0.0);
    if (0.0 > scaleX) {
        *this = TMatrix(1) * *this;
    }
    if (0.0 > scaleY) {
        *this = TMatrix(0) * *this;
    }
}

// No default here: an unknown kind leaves the object as it was.
TMatrix::TMatrix(int kind)
{
    switch (kind) {
    case 0:
        setMatrix(1.0, 0.0, 0.0, 0.0, -1.0, 0.0, 0.0, 0.0, 1.0, -1.0, 360.0);
        break;
    case 1:
        setMatrix(-1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0, -1.0, 180.0);
        break;
    case 2:
        setMatrix(0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, -1.0, 90.0);
        break;
    }
}

void TMatrix::setMatrix(double m00, double m01, double m02, double m10, double m11, double m12,
                        double m20, double m21, double m22, double factor, double offset)
{
    double const elements[3][3] = {{m00, m01, m02}, {m10, m11, m12}, {m20, m21, m22}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            m_matrix[row][column] = elements[row][column];
        }
    }
    m_angleFactor = factor;
    m_angleOffset = offset;
}

Point2D TMatrix::operator*(Point2D const &point) const
{
    return Point2D(m_matrix[0][1] * point.y() + m_matrix[0][0] * point.x() + m_matrix[0][2],
                   m_matrix[1][1] * point.y() + m_matrix[1][0] * point.x() + m_matrix[1][2]);
}

double TMatrix::operator*(double angle) const
{
    return angle * m_angleFactor + m_angleOffset;
}

TMatrix TMatrix::operator*(TMatrix const &other) const
{
    TMatrix product;
    product.m_angleFactor = other.m_angleFactor * m_angleFactor;
    product.m_angleOffset = other.m_angleOffset * m_angleFactor + m_angleOffset;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 3; ++k) {
                sum += m_matrix[row][k] * other.m_matrix[k][column];
            }
            product.m_matrix[row][column] = sum;
        }
    }
    return product;
}

TMatrix &TMatrix::operator*=(TMatrix const &other)
{
    *this = *this * other;
    return *this;
}

TMatrix TMatrix::operator~() const
{
    TMatrix source(*this);
    TMatrix companion;
    auto &a = source.m_matrix;
    auto &b = companion.m_matrix;
    for (int i = 0; i < 3; ++i) {
        if (a[i][i] == 0.0) {
            int donor = i;
            while (donor < 3 && a[donor][i] == 0.0) {
                ++donor;
            }
            if (donor == 3) {
                return TMatrix();
            }
            for (int k = 0; k < 3; ++k) {
                a[i][k] += a[donor][k];
                b[i][k] += b[donor][k];
            }
        }
        for (int row = 0; row < 3; ++row) {
            if (row == i) {
                continue;
            }
            double const factor = a[row][i] / a[i][i];
            for (int k = 0; k < 3; ++k) {
                a[row][k] = a[row][k] - factor * a[i][k];
                b[i][k] = b[i][k] - b[i][k] * factor; // row i of the companion: see the header
            }
        }
        double const pivot = a[i][i];
        for (int k = 0; k < 3; ++k) {
            a[i][k] /= pivot;
            b[i][k] /= pivot;
        }
    }
    return companion;
}

double TMatrix::Laenge(double length) const
{
    double const half = std::sqrt(0.5);
    Point2D const diagonal = *this * Point2D(half, half) - *this * Point2D(0.0, 0.0);
    return diagonal.Length() * length;
}

bool TMatrix::isMirrorMatrix() const
{
    return 0.0 > m_angleFactor;
}

TMatrix &TMatrix::correct()
{
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            double &value = m_matrix[row][column];
            if (-1e-9 < value && value < 1e-9) { // an element
                value = 0.0;
            }
        }
    }
    return *this;
}

TMatrix &TMatrix::correctOne()
{
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            double &value = m_matrix[row][column];
            if (0.999999999 < value && value < 1.000000001) { // within 1e-9 of 1
                value = 1.0;
            } else if (-1.000000001 < value && value < -0.999999999) { // within 1e-9 of -1
                value = -1.0;
            }
        }
    }
    return *this;
}

double TMatrix::getValue(int column, int row)
{
    return m_matrix[row][column];
}
