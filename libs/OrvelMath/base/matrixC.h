#pragma once

/// @file
/// Matrices of the second generation, held axis by axis. NaN and infinity run through the
/// arithmetic; every operation takes constant time.

#include <OrvelMath/base/vectorC.h>

/// Matrix of 3x3 values held axis by axis: the images of the x, the y and the z axis.
///
/// The memory is column-major: element (row, col) is cell 3 * col + row. Points are columns,
/// p' = M p. A plain value: a copy shares nothing.
template <typename T>
class matrixC3x3
{
public:
    /// All zero; see identity().
    matrixC3x3()
        : m_cells{}
    {
    }
    /// The image of each axis.
    matrixC3x3(vectorC3d<T> const &xAxis, vectorC3d<T> const &yAxis, vectorC3d<T> const &zAxis)
    {
        for (int i = 0; i < 3; ++i) {
            m_cells[i] = xAxis[i];
            m_cells[3 + i] = yAxis[i];
            m_cells[6 + i] = zAxis[i];
        }
    }
    static matrixC3x3 identity()
    {
        matrixC3x3 m;
        m.m_cells[0] = m.m_cells[4] = m.m_cells[8] = T(1);
        return m;
    }

    /// Memory cell `i`, 0 to 8.
    T operator[](int i) const { return m_cells[i]; }
    T &operator[](int i) { return m_cells[i]; }
    T operator()(int row, int column) const { return m_cells[3 * column + row]; }
    T &operator()(int row, int column) { return m_cells[3 * column + row]; }
    T const *data() const { return m_cells; }
    T *data() { return m_cells; }

    /// Image of axis `i`: column `i` of the matrix.
    vectorC3d<T> axis(int i) const
    {
        return {m_cells[3 * i], m_cells[3 * i + 1], m_cells[3 * i + 2]};
    }
    void setAxis(int i, vectorC3d<T> const &image)
    {
        for (int row = 0; row < 3; ++row) {
            m_cells[3 * i + row] = image[row];
        }
    }

    /// The plain matrix product; each sum runs from 0 upward in the inner index.
    friend matrixC3x3 operator*(matrixC3x3 const &a, matrixC3x3 const &b)
    {
        matrixC3x3 r;
        for (int j = 0; j < 3; ++j) {
            for (int i = 0; i < 3; ++i) {
                T sum = T(0);
                for (int k = 0; k < 3; ++k) {
                    sum = sum + a.m_cells[3 * k + i] * b.m_cells[3 * j + k];
                }
                r.m_cells[3 * j + i] = sum;
            }
        }
        return r;
    }
    /// The image of a vector.
    friend vectorC3d<T> operator*(matrixC3x3 const &m, vectorC3d<T> const &v)
    {
        vectorC3d<T> out;
        for (int c = 0; c < 3; ++c) {
            out[c] = T(0) + v.x() * m[c] + v.y() * m[3 + c] + v.z() * m[6 + c];
        }
        return out;
    }
    /// The image of a point of the plane: the third axis is the translation; no division.
    friend vectorC2d<T> operator*(matrixC3x3 const &m, vectorC2d<T> const &v)
    {
        vectorC2d<T> out;
        for (int c = 0; c < 2; ++c) {
            out[c] = T(0) + v.x() * m[c] + v.y() * m[3 + c] + m[6 + c];
        }
        return out;
    }

    /// Exact, cell by cell.
    friend bool operator==(matrixC3x3 const &a, matrixC3x3 const &b)
    {
        for (int i = 0; i < 9; ++i) {
            if (!(a.m_cells[i] == b.m_cells[i])) {
                return false;
            }
        }
        return true;
    }
    friend bool operator!=(matrixC3x3 const &a, matrixC3x3 const &b) { return !(a == b); }

private:
    T m_cells[9];
};

/// Matrix of 4x4 values held axis by axis: x axis, y axis, z axis, translation, each followed by
/// its homogeneous component.
///
/// The memory is column-major, the order of OpenGL: element (row, col) is cell 4 * col + row
/// and the translation at cells 12, 13 and 14. It is the transposed memory image, and the same
/// mathematical matrix, as Matrix4X4C. Points are columns, p' = M p. A plain value.
template <typename T>
class matrixC4x4
{
public:
    /// All zero; see identity().
    matrixC4x4()
        : m_cells{}
    {
    }
    /// From 16 values in the order of the memory.
    explicit matrixC4x4(T const (&cells)[16])
    {
        for (int i = 0; i < 16; ++i) {
            m_cells[i] = cells[i];
        }
    }
    static matrixC4x4 identity()
    {
        matrixC4x4 m;
        m.m_cells[0] = m.m_cells[5] = m.m_cells[10] = m.m_cells[15] = T(1);
        return m;
    }

    /// Memory cell `i`, 0 to 15.
    T operator[](int i) const { return m_cells[i]; }
    T &operator[](int i) { return m_cells[i]; }
    T operator()(int row, int column) const { return m_cells[4 * column + row]; }
    T &operator()(int row, int column) { return m_cells[4 * column + row]; }
    T const *data() const { return m_cells; }
    T *data() { return m_cells; }

    /// Top three elements of column `i`: the image of an axis, or with 3 the translation.
    vectorC3d<T> axis(int i) const
    {
        return {m_cells[4 * i], m_cells[4 * i + 1], m_cells[4 * i + 2]};
    }
    /// Writes the top three elements of column `i`; the homogeneous component stays.
    void setAxis(int i, vectorC3d<T> const &image)
    {
        for (int row = 0; row < 3; ++row) {
            m_cells[4 * i + row] = image[row];
        }
    }

    /// The plain matrix product; each sum runs from 0 upward in the inner index.
    friend matrixC4x4 operator*(matrixC4x4 const &a, matrixC4x4 const &b)
    {
        matrixC4x4 r;
        for (int j = 0; j < 4; ++j) {
            for (int i = 0; i < 4; ++i) {
                T sum = T(0);
                for (int k = 0; k < 4; ++k) {
                    sum = sum + a.m_cells[4 * k + i] * b.m_cells[4 * j + k];
                }
                r.m_cells[4 * j + i] = sum;
            }
        }
        return r;
    }
    /// The image of a point; no division by the fourth component.
    friend vectorC3d<T> operator*(matrixC4x4 const &m, vectorC3d<T> const &v)
    {
        vectorC3d<T> out;
        for (int c = 0; c < 3; ++c) {
            out[c] = T(0) + v.x() * m[c] + v.y() * m[4 + c] + v.z() * m[8 + c] + m[12 + c];
        }
        return out;
    }
    /// The image of a point of the plane z = 0, in space; no division by the fourth component.
    friend vectorC3d<T> operator*(matrixC4x4 const &m, vectorC2d<T> const &v)
    {
        return m * vectorC3d<T>(v.x(), v.y(), T(0));
    }

    /// Exact, cell by cell.
    friend bool operator==(matrixC4x4 const &a, matrixC4x4 const &b)
    {
        for (int i = 0; i < 16; ++i) {
            if (!(a.m_cells[i] == b.m_cells[i])) {
                return false;
            }
        }
        return true;
    }
    friend bool operator!=(matrixC4x4 const &a, matrixC4x4 const &b) { return !(a == b); }

private:
    T m_cells[16];
};
