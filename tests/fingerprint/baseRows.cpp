#include "fingerprint/Rows.h"

#include <OrvelMath/base/Accuracy3D.h>

namespace fingerprint {

namespace {

using M = Matrix4X4C;
using P3 = Point3D const &;

std::vector<Row> comparisonRows()
{
    return {
        own("sgn", [](double v) { return sgn(v); }),
        own("sgn tolerance", [](double v, double t) { return sgn(v, t); }),
        own("Compare", Compare),
        own("CSCompareFloats", [](double a, double b) { return CSCompareFloats(a, b); },
            {100000, true, false}),
        own("CSCompareFloats tolerance",
            [](double a, double b, double t) { return CSCompareFloats(a, b, t); }),
        own("ResolveLinear", ResolveLinear),
        own("ResolveQuadrat", ResolveQuadrat),
        withLibrary("GetAccuracyAngle",
                    [](int accuracy, double size, double reference) {
                        SetAccuracy(Accuracy3D(2 + (accuracy + 2) % 5));
                        double const angle = GetAccuracyAngle(size, reference);
                        SetAccuracy(Accuracy3DDefault);
                        return angle;
                    },
                    {100000, true, false}),
        own("GetNextAccuracyAngle", GetNextAccuracyAngle),
    };
}

std::vector<Row> vectorRows()
{
    return {
        withLibrary("VecWin", VecWin, {100000, true, false}),
        withLibrary("WinVec", [](double x, double y) { return WinVec(x, y); },
                    {100000, true, false}),
        withLibrary("WinVec point", [](Point2D const &p) { return WinVec(p); }),
        own("MatUtil::getSquareOfLength", MatUtil::getSquareOfLength),
        own("Math3DVektorprodukt", Math3DVektorprodukt),
        own("Point2D order",
            [](Point2D const &a, Point2D const &b) {
                return (a < b) + 2 * (a > b) + 4 * (a == b) + 8 * (a != b);
            }),
        own("Point2Df order",
            [](Point2D const &a, Point2D const &b) {
                Point2Df const f(a);
                Point2Df const g(b);
                return (f < g) + 2 * (f > g) + 4 * (f == g) + 8 * (f != g);
            }),
        own("Point2D::Normalize", [](Point2D p) { return p.Normalize(); }),
        own("Point2D::Correct", [](Point2D &p, double tolerance) { p.Correct(tolerance); }),
        own("Point3D::Normalize", [](P3 p) { return p.Normalize(); }),
        own("Point3D::Dot", [](P3 a, P3 b) { return a.Dot(b); }),
        own("Point3D::IsNear", [](P3 a, P3 b) { return a.IsNear(b); }),
        own("Point3D quotient", [](P3 a, double s) { return a / s; }, {100000, true, false}),
        own("vectorC3d::cross",
            [](vectorC3d<double> const &a, vectorC3d<double> const &b) { return a.cross(b); }),
        own("matrixC3x3 product",
            [](matrixC3x3<double> const &a, matrixC3x3<double> const &b) { return a * b; }),
        own("matrixC4x4 product", [](matrixC4x4<double> const &a, matrixC4x4<double> const &b,
                                     vectorC3d<double> const &v) { return a * b * v; }),
    };
}

std::vector<Row> matrixRows()
{
    return {
        own("Math3DMultMatrix",
            [](M const &a, M const &b) {
                M result;
                Math3DMultMatrix(result.GetMatrixRef(), a.GetConstMatrixRef(),
                                 b.GetConstMatrixRef());
                return result;
            }),
        withLibrary("Math3DRotateMatrix",
                    [](M &m, double a, double b, double c) {
                        Math3DRotateMatrix(m.GetMatrixRef(), a, b, c);
                    },
                    {100000, true, false}),
        own("Math3DTranslateMatrix",
            [](M &m, double a, double b, double c) {
                Math3DTranslateMatrix(m.GetMatrixRef(), a, b, c);
            }),
        own("Math3DScaleMatrix", [](M &m, double a, double b,
                                    double c) { Math3DScaleMatrix(m.GetMatrixRef(), a, b, c); }),
        withLibrary("Math3DGetRotateAxisMatrix",
                    [](P3 p, P3 d, M &m, double angle) {
                        Math3DGetRotateAxisMatrix(p, d, m.GetMatrixRef(), angle);
                    },
                    {100000, true, false}),
        own("Math3DInvertMatrix", [](M &m) { return Math3DInvertMatrix(m.GetMatrixRef()); }),
        own("Math3DCorrectMatrix", [](M &m) { Math3DCorrectMatrix(m.GetMatrixRef()); }),
        own("Math3DCorrectMatrixOne", [](M &m) { Math3DCorrectMatrixOne(m.GetMatrixRef()); }),
        own("Math3DTransponateMatrix", [](M &m) { Math3DTransponateMatrix(m.GetMatrixRef()); }),
        own("Math3DRefresh", [](M &m) { Math3DRefresh(m.GetMatrixRef()); }),
        own("Math3DCompareMatrix",
            [](M const &a, M const &b, double tolerance) {
                return Math3DCompareMatrix(a.GetConstMatrixRef(), b.GetConstMatrixRef(), tolerance);
            }),
        own("Math3DCheckMatrix",
            [](M const &m) { return Math3DCheckMatrix(m.GetConstMatrixRef()); }),
        own("Matrix4X4C::Invert", [](M &m) { return m.Invert(); }),
        own("Matrix4X4C::InvertOrthogonal", [](M &m) { m.InvertOrthogonal(); }),
        own("Matrix4X4C::Correct", [](M &m) { m.Correct(); }),
        own("Matrix4X4C::CorrectOne", [](M &m) { m.CorrectOne(); }),
        own("Matrix4X4C::AlignAxis", [](M &m) { m.AlignAxis(); }),
        own("Matrix4X4C::Transponate", [](M &m) { m.Transponate(); }),
        own("Matrix4X4C checks",
            [](M const &m) { return m.CheckMatrix() + 2 * m.IsValidMatrix(); }),
        own("Matrix4X4C product",
            [](M a, M const &b) {
                M const product = a * b;
                a *= b;
                return product == a ? product : -product;
            }),
        own("Matrix4X4C minus", [](M const &m) { return -m; }),
        own("Matrix4X4C comparison",
            [](M const &a, M b, double t) {
                b.GetMatrixRef()[1][2] = a.GetConstMatrixRef()[1][2] + t;
                return (a == b) + 2 * (a != b);
            }),
        own("Matrix4X4C::MultMatrixVector", [](M const &m, P3 p) { return m.MultMatrixVector(p); }),
        own("Matrix4X4C::MultMatrixVectorRespectW",
            [](M const &m, P3 p) { return m.MultMatrixVectorRespectW(p); }),
        withLibrary("Matrix4X4C::Rotate",
                    [](M &m, double a, double b, double c) { m.Rotate(a, b, c); },
                    {100000, true, false}),
        own("Matrix4X4C::Translate",
            [](M &m, double a, double b, double c) { m.Translate(a, b, c); }),
        own("Matrix4X4C::Scale", [](M &m, double a, double b, double c) { m.Scale(a, b, c); }),
        withLibrary("Matrix4X4C::CalcRotateAxisMatrix",
                    [](M &m, P3 p, P3 d, double angle) { m.CalcRotateAxisMatrix(p, d, angle); },
                    {100000, true, false}),
        own("Matrix4X4C axes",
            [](M &m, P3 x, P3 y, P3 z, P3 t) {
                m.SetMatX(x);
                m.SetMatY(y);
                m.SetMatZ(z);
                m.SetMatT(t);
                return m.GetMatX() + m.GetMatY() * 2.0 + m.GetMatZ() * 4.0 + m.GetMatT() * 8.0;
            }),
        own("Matrix4X4C::GetCoordinateSystem",
            [](M const &m, M &again) {
                CoordinateSystem const system = m.GetCoordinateSystem();
                again.SetFromCoordSystem(system);
                return system.xAxis + system.yAxis * 2.0 + system.zAxis * 4.0 + system.origin;
            }),
        own("Matrix4X4C::GetOpenGL",
            [](M const &m, M &again, Hash &hash) {
                double values[16];
                float floats[16];
                m.GetOpenGL(values);
                m.GetOpenGL(floats);
                again.SetFromOpenGL(values);
                hash.add(again);
                again.SetFromOpenGL(floats);
            }),
        own("Matrix4X4C columns", [](M const &m) { return M(matrixC4x4<double>(m)); }),
    };
}

std::vector<Row> quaternionRows()
{
    using Q = Quaternion4D;
    return {
        withLibrary("Quaternion4D angles", [](P3 angles) { return Q(angles); }),
        withLibrary("Quaternion4D axis", [](P3 axis, double angle) { return Q(axis, angle); },
                    {100000, true, false}),
        own("Quaternion4D matrix", [](M const &m) { return Q(m); }),
        own("Quaternion4D::GetMatrix", [](Q const &q) { return q.GetMatrix(); }),
        own("Matrix4X4C::SetFromQuaternion", [](M &m, Q q) { m.SetFromQuaternion(q); }),
        own("Matrix4X4C::GetQuaternion", [](M const &m) { return m.GetQuaternion(); }),
        withLibrary("Quaternion4D::GetEuler",
                    [](Q q, double &y, double &z, double &x) { q.GetEuler(y, z, x); }),
        withLibrary("Quaternion4D::GetAngleAxis",
                    [](Q const &q, Point3D &axis, double &angle) { q.GetAngleAxis(axis, angle); }),
        own("Quaternion4D measures",
            [](Q const &p, Q const &q, Hash &hash) {
                hash.add(p.Dot(q));
                hash.add(p.LengthSqr());
                return p.Length();
            }),
        own("Quaternion4D::Normal", [](Q const &q) { return q.Normal(); }),
        own("Quaternion4D::Normalize", [](Q &q) { q.Normalize(); }),
        withLibrary("Quaternion4D::Slerp",
                    [](Q const &p, Q const &q, double t) { return p.Slerp(q, t); },
                    {100000, true, false}),
        own("Quaternion4D::Lerp", [](Q const &p, Q const &q, double t) { return p.Lerp(q, t); },
            {100000, true, false}),
    };
}

std::vector<Row> planeMapRows()
{
    using T = TMatrix;
    return {
        withLibrary("TMatrix angle", [](double angle) { return T(angle); }, {100000, true, false}),
        own("TMatrix kind", [](int kind) { return T(kind); }),
        own("TMatrix scale", [](double x, double y) { return T(x, y); }, {100000, true, false}),
        own("TMatrix translation", [](Point2D const &p) { return T(p); }),
        own("TMatrix point", [](T const &m, Point2D const &p) { return m * p; }),
        withLibrary("TMatrix turns", [](T const &m, double angle) { return m * angle; },
                    {100000, true, false}),
        withLibrary("TMatrix product",
                    [](T &a, T const &b) {
                        T const product = a * b;
                        a *= b;
                        return product;
                    }),
        withLibrary("TMatrix inverse", [](T const &m) { return ~m; }),
        own("TMatrix::Laenge", [](T const &m, double length) { return m.Laenge(length); },
            {100000, true, false}),
        own("TMatrix::isMirrorMatrix", [](T const &m) { return m.isMirrorMatrix(); }),
        own("TMatrix::correct", [](T &m) { m.correct(); }),
        own("TMatrix::correctOne", [](T &m) { m.correctOne(); }),
    };
}

} // namespace

std::vector<Row> baseRows()
{
    std::vector<Row> rows;
    for (auto const &part :
         {comparisonRows(), vectorRows(), matrixRows(), quaternionRows(), planeMapRows()}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

} // namespace fingerprint
