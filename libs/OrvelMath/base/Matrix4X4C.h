#pragma once

/// @file
/// Transformations of space: functions on a bare 4x4 array, and the class that holds one.
///
/// Arrays are row-major: m[row][column]. Points are columns, p' = M p, and the translation is the
/// fourth column. All angles are degrees. NaN and infinity pass through the arithmetic. Every
/// function takes constant time, allocates nothing and throws nothing.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

class Quaternion4D;

/// result = a b, each sum from 0 upward in the inner index.
///
/// @param result written; it may be `a` or `b`, since the product is formed aside
/// @param a, b   only read
ORVELMATH_EXPORT void Math3DMultMatrix(double (*const result)[4], double const (*const a)[4],
                                       double const (*const b)[4]);

/// m = R m with R = Rz(-c) Ry(b) Rx(-a), written with the right-handed rotations about the axes:
/// the x and the z angle turn opposite to the y angle.
///
/// @param m       read and written
/// @param a, b, c angles about x, y and z, degrees
ORVELMATH_EXPORT void Math3DRotateMatrix(double (*const m)[4], double a, double b, double c);

/// m = T m, with (x, y, z) in the fourth column of T.
///
/// @param m       read and written
/// @param x, y, z model units
ORVELMATH_EXPORT void Math3DTranslateMatrix(double (*const m)[4], double x, double y, double z);

/// m = S m, with S = diag(x, y, z, 1).
///
/// @param m       read and written
/// @param x, y, z factors; negative ones mirror, and 0 makes the matrix singular
ORVELMATH_EXPORT void Math3DScaleMatrix(double (*const m)[4], double x, double y, double z);

/// Overwrites `m` with the rotation about a line, counter-clockwise seen against `direction`.
///
/// @param point     a point on the line, model units
/// @param direction of any length; a zero direction yields NaN
/// @param m         written, all 16 elements
/// @param angle     degrees
/// @see Quaternion4D::SetRotation, in radians and about the origin
ORVELMATH_EXPORT void Math3DGetRotateAxisMatrix(Point3D const &point, Point3D const &direction,
                                                double (*const m)[4], double angle);

/// Inverts in place by Gauss-Jordan elimination without a search for large pivots; a pivot of
/// exactly 0 is repaired by adding a row.
///
/// Every element that a step writes is set to 0 when its size is below 1e-9, so that small elements
/// of an inverse vanish: diag(1e10, 1, 1, 1) gives 0 in the corner. A NaN is no zero: the answer
/// may be true then, with NaN in the inverse.
///
/// @param m read, and written with the inverse
/// @return false for a singular matrix, up to the 1e-9 above; `m` is then left half reduced
/// @see Matrix4X4C::InvertOrthogonal, faster, for a rotation with translation
/// @see orvelExact::inverseOf
ORVELMATH_EXPORT bool Math3DInvertMatrix(double (*const m)[4]);

/// Sets elements of the top-left 3x3 part whose size is below 1e-9 to 0. NaN stays.
///
/// @param m read and written
/// @see Math3DCorrectMatrixOne
ORVELMATH_EXPORT void Math3DCorrectMatrix(double (*const m)[4]);

/// Sets elements of the top-left 3x3 part that differ from 1 or -1 by less than 1e-9 to 1 or -1.
/// NaN stays.
///
/// @param m read and written
/// @see Math3DCorrectMatrix
ORVELMATH_EXPORT void Math3DCorrectMatrixOne(double (*const m)[4]);

/// Transposes all four rows and columns in place.
ORVELMATH_EXPORT void Math3DTransponateMatrix(double (*const m)[4]);

/// Makes the three axis columns orthonormal: the first keeps its direction, the
/// third is rebuilt from the first two and never read. Axes of length exactly 0 stay 0, and
/// parallel first two axes leave the second and the third 0 up to rounding. Translation and fourth
/// row stay.
///
/// @param m read and written
/// @see orvelExact::nearestRotation
ORVELMATH_EXPORT void Math3DRefresh(double (&m)[4][4]);

/// True when all 16 elements differ by less than `tolerance`, strictly: with 0 no matrix equals
/// itself. NaN compares unequal, and so do two equal infinities.
///
/// @param a, b      only read
/// @param tolerance of an element
ORVELMATH_EXPORT bool Math3DCompareMatrix(double const (*const a)[4], double const (*const b)[4],
                                          double tolerance);

/// True when the length of each of the three axis columns differs from 1 by no more than 1e-9. Not
/// a test of orthogonality; a mirror passes, and so does NaN.
///
/// @param m only read
/// @see Matrix4X4C::IsValidMatrix, which finds NaN
ORVELMATH_EXPORT bool Math3DCheckMatrix(double const (*const m)[4]);

/// The homogeneous transformation of the library: 16 doubles, row-major. A plain value: a copy
/// shares nothing.
///
/// `Rotate`, `Translate` and `Scale` act after what the matrix does already. Angles are degrees.
///
/// @see matrixC4x4, the same matrix in column-major memory; Quaternion4D, in radians
class ORVELMATH_EXPORT Matrix4X4C
{
public:
    /// The identity.
    Matrix4X4C();
    Matrix4X4C(Matrix4X4C const &) = default;
    /// Row by row, copied.
    Matrix4X4C(double const (&values)[4][4]);
    /// From the column-major image of the same mathematical matrix.
    Matrix4X4C(matrixC4x4<double> const &m);
    Matrix4X4C &operator=(Matrix4X4C const &) = default;

    /// As the constructor.
    void fromMatrixC4x4Dbl(matrixC4x4<double> const &m);
    /// The column-major image of the same mathematical matrix.
    operator matrixC4x4<double>() const;

    /// Sets the identity.
    void Init();

    /// Copies the array, which may be the object's own.
    void SetMatrixRef(double const (&values)[4][4]);
    /// Writes all 16 elements.
    void GetMatrixCopy(double (&values)[4][4]) const;
    /// The array itself, to be written through also where the matrix is const.
    double (&GetMatrixRef() const)[4][4];
    /// The array itself, to be read.
    double const (&GetConstMatrixRef() const)[4][4];
    /// The 16 values row by row.
    void SetFromDouble(double m00, double m01, double m02, double m03, double m10, double m11,
                       double m12, double m13, double m20, double m21, double m22, double m23,
                       double m30, double m31, double m32, double m33);

    /// Columns from the axes and the origin; the fourth row becomes (0, 0, 0, 1).
    void SetFromCoordSystem(CoordinateSystem const &system);
    /// Axes and origin from the top three rows; the leading member is left as it is found.
    CoordinateSystem GetCoordinateSystem() const;

    /// From the transposed textbook matrix of a rotation, see Quaternion4D::GetMatrix.
    void SetFromQuaternion(Quaternion4D &q);
    /// See Quaternion4D::SetMatrix.
    Quaternion4D GetQuaternion() const;

    /// From 16 values in column-major order.
    void SetFromOpenGL(double *const values);
    void SetFromOpenGL(float *const values);
    /// Writes 16 values in column-major order; the float form narrows.
    void GetOpenGL(double *const values) const;
    void GetOpenGL(float *const values) const;

    /// Top three elements of the columns: axes and translation.
    void SetMatX(Point3D const &axis);
    void SetMatY(Point3D const &axis);
    void SetMatZ(Point3D const &axis);
    void SetMatT(Point3D const &translation);
    Point3D GetMatX() const;
    Point3D GetMatY() const;
    Point3D GetMatZ() const;
    Point3D GetMatT() const;

    /// See Math3DRotateMatrix, with its signs; degrees.
    void Rotate(double a, double b, double c);
    /// See Math3DTranslateMatrix; model units.
    void Translate(double x, double y, double z);
    /// See Math3DScaleMatrix; factors.
    void Scale(double x, double y, double z);
    /// Overwrites the object, see Math3DGetRotateAxisMatrix; degrees.
    void CalcRotateAxisMatrix(Point3D const &point, Point3D const &direction, double angle);

    /// See Math3DInvertMatrix; false leaves the object half reduced.
    /// @see orvelExact::inverseOf
    bool Invert();
    /// Inverse of a rotation with translation: transposes the 3x3 part and turns the translation
    /// back. The fourth row is left alone, and nothing checks that the axes are orthonormal.
    void InvertOrthogonal();
    /// See Math3DCorrectMatrix.
    void Correct();
    /// See Math3DCorrectMatrixOne.
    void CorrectOne();
    /// See Math3DRefresh.
    /// @see orvelExact::nearestRotation
    void AlignAxis();
    /// See Math3DTransponateMatrix.
    void Transponate();
    /// See Math3DCheckMatrix.
    bool CheckMatrix() const;
    /// True when the sums of the first three rows are finite. The fourth row is not looked at.
    bool IsValidMatrix() const;

    /// All elements differ by less than 1e-4; see Math3DCompareMatrix.
    bool operator==(Matrix4X4C const &o) const;
    /// An element differs by 1e-4 or more, or is NaN.
    bool operator!=(Matrix4X4C const &o) const;
    /// The transformation that does `o` first and this one after it.
    Matrix4X4C operator*(Matrix4X4C const &o) const;
    /// this = this times `o`.
    Matrix4X4C &operator*=(Matrix4X4C const &o);
    /// All 16 signs flipped, those of the fourth row as well.
    Matrix4X4C operator-() const;

    /// Image of a point; no division by the homogeneous component.
    Point3D MultMatrixVector(Point3D const &p) const;
    /// Image of a point, multiplied by the reciprocal of its homogeneous component, which is not
    /// guarded against 0.
    Point3D MultMatrixVectorRespectW(Point3D const &p) const;

    ORVELMATH_CLASS_ALLOCATION

private:
    struct Unwritten
    {
    };
    /// Leaves the elements unwritten, for results that are filled in at once.
    explicit Matrix4X4C(Unwritten) {}

    double m_m[4][4];
};
