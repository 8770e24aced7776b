#include <OrvelMath/base/Matrix4X4C.h>

#include "support/Bits.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstring>
#include <type_traits>

namespace {

using support::inf;
using support::nan;
using support::SameBits;

static_assert(sizeof(Matrix4X4C) == 16 * sizeof(double) && !std::is_polymorphic_v<Matrix4X4C>);

using Array = double[4][4];

Matrix4X4C diagonal(double a, double b, double c, double d)
{
    double const values[4][4] = {{a, 0, 0, 0}, {0, b, 0, 0}, {0, 0, c, 0}, {0, 0, 0, d}};
    return Matrix4X4C(values);
}

// 1 to 16 in memory order.
Matrix4X4C counted()
{
    Matrix4X4C m;
    m.SetFromDouble(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    return m;
}

double at(Matrix4X4C const &m, int row, int col)
{
    return m.GetConstMatrixRef()[row][col];
}

void expectSameBits(Matrix4X4C const &expected, Matrix4X4C const &actual)
{
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            EXPECT_TRUE(SameBits(at(expected, row, col), at(actual, row, col)))
                << "row " << row << ", column " << col;
        }
    }
}

TEST(Matrix4X4C, LayoutsKeepTheMathematicalMatrix)
{
    matrixC4x4<double> columns = matrixC4x4<double>::identity();
    columns[12] = 5;
    columns[13] = 6;
    columns[14] = 7;
    Matrix4X4C const m(columns);
    EXPECT_TRUE(m.GetMatT() == Point3D(5, 6, 7));
    EXPECT_EQ(6.0, at(m, 1, 3));
    EXPECT_TRUE(static_cast<matrixC4x4<double>>(m) == columns);

    double gl[16];
    counted().GetOpenGL(gl);
    float glf[16];
    counted().GetOpenGL(glf);
    matrixC4x4<double> const image = counted();
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(at(counted(), i % 4, i / 4), gl[i]);
        EXPECT_EQ(float(gl[i]), glf[i]);
        EXPECT_EQ(gl[i], image[i]);
    }
    Matrix4X4C back;
    back.SetFromOpenGL(gl);
    expectSameBits(counted(), back);
    back.Init();
    back.SetFromOpenGL(glf);
    expectSameBits(counted(), back);
    back.Init();
    back.fromMatrixC4x4Dbl(image);
    expectSameBits(counted(), back);
}

TEST(Matrix4X4C, ArrayAccess)
{
    Matrix4X4C const m = counted();
    Array copy;
    m.GetMatrixCopy(copy);
    EXPECT_EQ(7.0, copy[1][2]);
    EXPECT_EQ(&m.GetMatrixRef()[0][0], &m.GetConstMatrixRef()[0][0]);
    Matrix4X4C other;
    expectSameBits(diagonal(1, 1, 1, 1), other);
    other.SetMatrixRef(copy);
    expectSameBits(m, other);
    other.SetMatrixRef(other.GetConstMatrixRef());
    expectSameBits(m, other);
    other.GetMatrixRef()[3][3] = -1;
    EXPECT_EQ(-1.0, at(other, 3, 3));
    expectSameBits(m, Matrix4X4C(m));
    expectSameBits(m, Matrix4X4C(copy));
}

TEST(Matrix4X4C, ColumnsAreTheAxes)
{
    Matrix4X4C m = counted();
    EXPECT_TRUE(m.GetMatX() == Point3D(1, 5, 9));
    EXPECT_TRUE(m.GetMatY() == Point3D(2, 6, 10));
    EXPECT_TRUE(m.GetMatZ() == Point3D(3, 7, 11));
    EXPECT_TRUE(m.GetMatT() == Point3D(4, 8, 12));
    m.SetMatX({-1, -5, -9});
    m.SetMatY({-2, -6, -10});
    m.SetMatZ({-3, -7, -11});
    m.SetMatT({-4, -8, -12});
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            double const value = 4 * row + col + 1;
            EXPECT_EQ(row < 3 ? -value : value, at(m, row, col));
        }
    }
}

TEST(Matrix4X4C, CoordinateSystemThereAndBack)
{
    CoordinateSystem system;
    system.xAxis = Point3D(1, 2, 3);
    system.yAxis = Point3D(4, 5, 6);
    system.zAxis = Point3D(7, 8, 9);
    system.origin = Point3D(10, 11, 12);
    Matrix4X4C m = counted();
    m.SetFromCoordSystem(system);
    Matrix4X4C expected;
    expected.SetFromDouble(1, 4, 7, 10, 2, 5, 8, 11, 3, 6, 9, 12, 0, 0, 0, 1);
    expectSameBits(expected, m);
    CoordinateSystem const back = m.GetCoordinateSystem();
    EXPECT_TRUE(back.xAxis == system.xAxis && back.yAxis == system.yAxis);
    EXPECT_TRUE(back.zAxis == system.zAxis && back.origin == system.origin);
}

TEST(Math3DMultMatrix, ResultMayBeAnOperand)
{
    Matrix4X4C const a = counted();
    Matrix4X4C const b = counted() * diagonal(1, -1, 2, 3);
    Matrix4X4C left = a;
    Math3DMultMatrix(left.GetMatrixRef(), left.GetMatrixRef(), b.GetConstMatrixRef());
    expectSameBits(a * b, left);
    Matrix4X4C right = b;
    Math3DMultMatrix(right.GetMatrixRef(), a.GetConstMatrixRef(), right.GetMatrixRef());
    expectSameBits(a * b, right);
    Matrix4X4C assigned = a;
    EXPECT_EQ(&assigned, &(assigned *= b));
    expectSameBits(a * b, assigned);
    EXPECT_EQ(1 * 1 + 2 * 5 + 3 * 9 + 4 * 13, at(a * a, 0, 0));
    EXPECT_EQ(13 * 4 + 14 * 8 + 15 * 12 + 16 * 16, at(a * a, 3, 3));
}

TEST(Math3DRotateMatrix, SignsOfTheThreeAngles)
{
    Matrix4X4C y;
    y.Rotate(0, 90, 0);
    EXPECT_NEAR(1.0, at(y, 0, 2), 1e-15);
    EXPECT_EQ(-1.0, at(y, 2, 0));
    Matrix4X4C x;
    x.Rotate(90, 0, 0);
    EXPECT_EQ(1.0, at(x, 1, 2));
    EXPECT_EQ(-1.0, at(x, 2, 1));
    Matrix4X4C z;
    z.Rotate(0, 0, 90);
    EXPECT_EQ(1.0, at(z, 0, 1));
    EXPECT_EQ(-1.0, at(z, 1, 0));
}

RC_GTEST_PROP(Math3DRotateMatrix, IsTheProductOfTheThreeTurns, ())
{
    double const a = *rc::gen::inRange(-3600, 3600) / 10.0;
    double const b = *rc::gen::inRange(-3600, 3600) / 10.0;
    double const c = *rc::gen::inRange(-3600, 3600) / 10.0;
    Matrix4X4C x;
    Matrix4X4C y;
    Matrix4X4C z;
    Point3D const origin;
    x.CalcRotateAxisMatrix(origin, Point3D(1, 0, 0), -a);
    y.CalcRotateAxisMatrix(origin, Point3D(0, 1, 0), b);
    z.CalcRotateAxisMatrix(origin, Point3D(0, 0, 1), -c);
    Matrix4X4C m;
    m.Rotate(a, b, c);
    Matrix4X4C const product = z * y * x;
    RC_ASSERT(Math3DCompareMatrix(m.GetConstMatrixRef(), product.GetConstMatrixRef(), 1e-13));
    RC_ASSERT(m.CheckMatrix());
}

TEST(Matrix4X4C, NewFactorsActLast)
{
    Matrix4X4C m;
    m.Translate(1, 2, 3);
    m.Scale(2, 3, 4);
    EXPECT_TRUE(m.MultMatrixVector(Point3D(1, 1, 1)) == Point3D(4, 9, 16));
    Matrix4X4C n;
    n.Scale(2, 3, 4);
    n.Translate(1, 2, 3);
    EXPECT_TRUE(n.MultMatrixVector(Point3D(1, 1, 1)) == Point3D(3, 5, 7));
    Matrix4X4C moved = counted();
    moved.Translate(1, 0, 0);
    EXPECT_EQ(1.0 + 13.0, at(moved, 0, 0)) << "the fourth row takes part";
}

TEST(Math3DGetRotateAxisMatrix, TurnsAboutALineOffTheOrigin)
{
    Matrix4X4C m = counted();
    m.CalcRotateAxisMatrix(Point3D(1, 0, 0), Point3D(0, 0, 1), 180);
    Point3D const image = m.MultMatrixVector(Point3D(2, 0, 0));
    EXPECT_NEAR(0.0, image.x(), 1e-15);
    EXPECT_NEAR(0.0, image.y(), 1e-15);
    EXPECT_EQ(0.0, image.z());
}

TEST(Math3DGetRotateAxisMatrix, IsCounterClockwiseAgainstTheDirection)
{
    Matrix4X4C m;
    m.CalcRotateAxisMatrix(Point3D(), Point3D(0, 0, 1), 30);
    double const radians = 30 * 0.017453292519943295;
    EXPECT_TRUE(SameBits(std::cos(radians), at(m, 0, 0)));
    EXPECT_TRUE(SameBits(-std::sin(radians), at(m, 0, 1)));
    EXPECT_TRUE(SameBits(std::sin(radians), at(m, 1, 0)));
    Matrix4X4C x;
    x.CalcRotateAxisMatrix(Point3D(), Point3D(-3, 0, 0), 90);
    EXPECT_TRUE(x.MultMatrixVector(Point3D(0, 1, 0)).IsNear(Point3D(0, 0, -1)));
}

TEST(Math3DGetRotateAxisMatrix, ZeroDirectionYieldsNan)
{
    Matrix4X4C m;
    m.CalcRotateAxisMatrix(Point3D(), Point3D(), 90);
    EXPECT_TRUE(std::isnan(at(m, 0, 0)));
    EXPECT_FALSE(m.IsValidMatrix());
}

RC_GTEST_PROP(Math3DGetRotateAxisMatrix, KeepsTheLineAndDistances, ())
{
    auto const coordinate = [] { return *rc::gen::inRange(-1000, 1000) / 64.0; };
    Point3D const point(coordinate(), coordinate(), coordinate());
    Point3D const direction(coordinate(), coordinate(), coordinate());
    RC_PRE(direction.Length() > 0.1);
    Matrix4X4C m;
    m.CalcRotateAxisMatrix(point, direction, coordinate() * 20);
    RC_ASSERT((m.MultMatrixVector(point + direction) - point - direction).Length() < 1e-11);
    Point3D const p(coordinate(), coordinate(), coordinate());
    RC_ASSERT(std::fabs((m.MultMatrixVector(p) - point).Length() - (p - point).Length()) < 1e-11);
}

TEST(Math3DInvertMatrix, IdentityAndZero)
{
    Matrix4X4C m;
    EXPECT_TRUE(m.Invert());
    expectSameBits(Matrix4X4C(), m);
    Matrix4X4C zero = diagonal(0, 0, 0, 0);
    EXPECT_FALSE(zero.Invert());
    expectSameBits(diagonal(0, 0, 0, 0), zero);
}

TEST(Math3DInvertMatrix, Diagonals)
{
    Matrix4X4C m = diagonal(2, 4, 1, 1);
    EXPECT_TRUE(m.Invert());
    expectSameBits(diagonal(0.5, 0.25, 1, 1), m);
    Matrix4X4C large = diagonal(1e10, 1, 1, 1);
    EXPECT_TRUE(large.Invert());
    expectSameBits(diagonal(0, 1, 1, 1), large); // 1e-10 is snapped
}

TEST(Math3DInvertMatrix, ZeroOnTheDiagonalIsRepairedByAddingARow)
{
    Matrix4X4C m;
    m.SetFromDouble(0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    Matrix4X4C const swapAxes = m;
    EXPECT_TRUE(m.Invert());
    EXPECT_TRUE(m == swapAxes);
    // Swapping the rows would give a first row of 1 / 1e-12 here; adding row 1 to the zero in the
    // corner snaps it away, and the column stays without a pivot.
    Matrix4X4C tiny;
    tiny.SetFromDouble(0, 1, 0, 0, 1e-12, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    EXPECT_FALSE(tiny.Invert());
    EXPECT_EQ(0.0, at(tiny, 0, 0));
    EXPECT_EQ(1.0, at(tiny, 0, 1));
}

TEST(Math3DInvertMatrix, SingularLeavesTheMatrixHalfReduced)
{
    Matrix4X4C m;
    m.SetFromDouble(1, 2, 0, 0, 2, 4, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    EXPECT_FALSE(m.Invert());
    Matrix4X4C reduced;
    reduced.SetFromDouble(1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    expectSameBits(reduced, m);
    Matrix4X4C last; // the pivot of the last row is the one that vanishes
    last.SetFromDouble(1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 1);
    EXPECT_FALSE(last.Invert());
}

TEST(Math3DInvertMatrix, FactorsWithinTheBandAreSkipped)
{
    Matrix4X4C m = diagonal(1, 1, 1, 1);
    m.GetMatrixRef()[1][0] = 1e-9; // of exactly the band, so no elimination
    EXPECT_TRUE(m.Invert());
    expectSameBits(Matrix4X4C(), m);
    Matrix4X4C above = diagonal(1, 1, 1, 1);
    above.GetMatrixRef()[1][0] = 2e-9;
    EXPECT_TRUE(above.Invert());
    EXPECT_TRUE(SameBits(-2e-9, at(above, 1, 0)));
}

RC_GTEST_PROP(Math3DInvertMatrix, UndoesWellConditionedMatrices, ())
{
    Matrix4X4C m;
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            m.GetMatrixRef()[row][col] =
                *rc::gen::inRange(-1000, 1000) / 1000.0 + (row == col ? 6.0 : 0.0);
        }
    }
    Matrix4X4C inverse = m;
    RC_ASSERT(inverse.Invert());
    Matrix4X4C const product = m * inverse;
    RC_ASSERT(
        Math3DCompareMatrix(product.GetConstMatrixRef(), Matrix4X4C().GetConstMatrixRef(), 1e-7));
}

TEST(InvertOrthogonal, TurnsTheTranslationBackAndKeepsTheFourthRow)
{
    Matrix4X4C m;
    m.SetFromDouble(0, -1, 0, 5, 1, 0, 0, 6, 0, 0, 1, 7, 2, 3, 4, 9);
    m.InvertOrthogonal();
    Matrix4X4C expected;
    expected.SetFromDouble(0, 1, 0, -6, -1, 0, 0, 5, 0, 0, 1, -7, 2, 3, 4, 9);
    EXPECT_TRUE(m == expected);
    Matrix4X4C still;
    still.InvertOrthogonal();
    EXPECT_TRUE(SameBits(-0.0, at(still, 0, 3))) << "0.0 times -1.0";
}

RC_GTEST_PROP(InvertOrthogonal, AgreesWithTheGeneralInverse, ())
{
    // Angles that keep the diagonal away from 0, where the general inverse finds poor pivots.
    auto const angle = [] { return *rc::gen::inRange(-40, 40); };
    Matrix4X4C m;
    m.Rotate(angle(), angle(), angle());
    m.Translate(*rc::gen::inRange(-9, 9), *rc::gen::inRange(-9, 9), *rc::gen::inRange(-9, 9));
    Matrix4X4C general = m;
    RC_ASSERT(general.Invert());
    m.InvertOrthogonal();
    RC_ASSERT(Math3DCompareMatrix(m.GetConstMatrixRef(), general.GetConstMatrixRef(), 1e-7));
}

TEST(Math3DCorrectMatrix, SnapsTheRotationPartOnly)
{
    Matrix4X4C m;
    m.SetFromDouble(5e-10, 1e-9, -5e-10, 1e-10, -1e-9, 1, nan, 1e-10, 0, 0, 1, 1e-10, 1e-10, 0, 0,
                    1);
    m.Correct();
    EXPECT_TRUE(SameBits(0.0, at(m, 0, 0)));
    EXPECT_EQ(1e-9, at(m, 0, 1));
    EXPECT_TRUE(SameBits(0.0, at(m, 0, 2)));
    EXPECT_EQ(-1e-9, at(m, 1, 0));
    EXPECT_TRUE(std::isnan(at(m, 1, 2)));
    EXPECT_EQ(1e-10, at(m, 0, 3));
    EXPECT_EQ(1e-10, at(m, 3, 0));
}

TEST(Math3DCorrectMatrixOne, SnapsToOneAndMinusOne)
{
    Matrix4X4C m;
    m.SetFromDouble(1 + 5e-10, 1.000000001, 0.999999999, 1 + 5e-10, -1 + 5e-10, -1.000000001,
                    -0.999999999, 0, 5e-10, 0, -1 - 5e-10, 0, 1 + 5e-10, 0, 0, 1);
    Matrix4X4C const before = m;
    m.CorrectOne();
    EXPECT_EQ(1.0, at(m, 0, 0));
    EXPECT_EQ(1.000000001, at(m, 0, 1));
    EXPECT_EQ(0.999999999, at(m, 0, 2));
    EXPECT_EQ(at(before, 0, 3), at(m, 0, 3));
    EXPECT_EQ(-1.0, at(m, 1, 0));
    EXPECT_EQ(-1.000000001, at(m, 1, 1));
    EXPECT_EQ(-0.999999999, at(m, 1, 2));
    EXPECT_EQ(5e-10, at(m, 2, 0));
    EXPECT_EQ(-1.0, at(m, 2, 2));
    EXPECT_EQ(at(before, 3, 0), at(m, 3, 0));
}

TEST(Math3DTransponateMatrix, TransposesAllFour)
{
    Matrix4X4C m = counted();
    m.Transponate();
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            EXPECT_EQ(at(counted(), col, row), at(m, row, col));
        }
    }
}

TEST(Math3DRefresh, KeepsTheFirstAxisAndRebuildsTheThird)
{
    Matrix4X4C m;
    m.SetFromDouble(2, 1, nan, 4, 0, 3, nan, 5, 0, 0, nan, 6, 7, 8, 9, 10);
    m.AlignAxis();
    EXPECT_TRUE(m.GetMatX() == Point3D(1, 0, 0));
    EXPECT_TRUE(m.GetMatY() == Point3D(0, 1, 0));
    EXPECT_TRUE(m.GetMatZ() == Point3D(0, 0, 1));
    EXPECT_TRUE(m.GetMatT() == Point3D(4, 5, 6));
    EXPECT_EQ(10.0, at(m, 3, 3));
}

TEST(Math3DRefresh, ZeroFirstColumnZeroesAllThree)
{
    Matrix4X4C m = counted();
    m.SetMatX(Point3D());
    m.AlignAxis();
    EXPECT_TRUE(m.GetMatX() == Point3D());
    EXPECT_TRUE(m.GetMatY() == Point3D());
    EXPECT_TRUE(m.GetMatZ() == Point3D());
    EXPECT_TRUE(m.GetMatT() == Point3D(4, 8, 12));
}

TEST(Math3DCompareMatrix, IsStrict)
{
    Matrix4X4C const m = counted();
    EXPECT_FALSE(Math3DCompareMatrix(m.GetConstMatrixRef(), m.GetConstMatrixRef(), 0.0));
    EXPECT_TRUE(Math3DCompareMatrix(m.GetConstMatrixRef(), m.GetConstMatrixRef(), 5e-324));
    Matrix4X4C other = m;
    other.GetMatrixRef()[3][3] += 0.5;
    EXPECT_FALSE(Math3DCompareMatrix(m.GetConstMatrixRef(), other.GetConstMatrixRef(), 0.5));
    EXPECT_TRUE(Math3DCompareMatrix(m.GetConstMatrixRef(), other.GetConstMatrixRef(), 0.75));
    other.GetMatrixRef()[0][0] = nan;
    EXPECT_FALSE(Math3DCompareMatrix(m.GetConstMatrixRef(), other.GetConstMatrixRef(), inf));
}

TEST(Matrix4X4C, EqualityHasABand)
{
    Matrix4X4C m = counted();
    for (int i = 0; i < 16; ++i) {
        m.GetMatrixRef()[i / 4][i % 4] += 0.00005;
    }
    EXPECT_TRUE(m == counted());
    EXPECT_FALSE(m != counted());
    m.GetMatrixRef()[2][1] += 0.0001;
    EXPECT_TRUE(m != counted());
}

TEST(Math3DCheckMatrix, LooksAtColumnLengthsOnly)
{
    EXPECT_TRUE(diagonal(-1, 1, 1, 5).CheckMatrix());
    EXPECT_FALSE(diagonal(2, 1, 1, 1).CheckMatrix());
    EXPECT_FALSE(diagonal(1, 1, 1 + 2e-9, 1).CheckMatrix());
    EXPECT_TRUE(diagonal(1, 1 + 5e-10, 1, 1).CheckMatrix());
    EXPECT_TRUE(diagonal(nan, 1, 1, 1).CheckMatrix()) << "no test is above";
    Matrix4X4C skew;
    skew.SetMatY(Point3D(1, 0, 0));
    EXPECT_TRUE(skew.CheckMatrix()) << "orthogonality is not tested";
}

TEST(Matrix4X4C, ValidityLooksAtThreeRows)
{
    Matrix4X4C m;
    EXPECT_TRUE(m.IsValidMatrix());
    m.GetMatrixRef()[3][2] = nan;
    EXPECT_TRUE(m.IsValidMatrix());
    m.GetMatrixRef()[2][3] = inf;
    EXPECT_FALSE(m.IsValidMatrix());
    m.GetMatrixRef()[2][1] = -inf; // two opposite infinities make NaN
    EXPECT_FALSE(m.IsValidMatrix());
    Matrix4X4C n;
    n.GetMatrixRef()[0][0] = nan;
    EXPECT_FALSE(n.IsValidMatrix());
}

TEST(Matrix4X4C, NegationFlipsAllSixteen)
{
    Matrix4X4C const m = -counted();
    EXPECT_EQ(-16.0, at(m, 3, 3));
    EXPECT_TRUE(SameBits(-0.0, at(-Matrix4X4C(), 0, 1)));
}

TEST(Matrix4X4C, PointImages)
{
    Matrix4X4C const m = counted();
    EXPECT_TRUE(m.MultMatrixVector(Point3D(1, 10, 100)) == Point3D(325, 773, 1221));
    Point3D const image = m.MultMatrixVectorRespectW(Point3D(1, 10, 100));
    double const reciprocal = 1.0 / (14.0 * 10 + 13.0 + 15.0 * 100 + 16);
    EXPECT_TRUE(SameBits(325 * reciprocal, image.x()));
    EXPECT_TRUE(SameBits(773 * reciprocal, image.y()));
    EXPECT_TRUE(SameBits(1221 * reciprocal, image.z()));
    Point3D const atInfinity = diagonal(1, 1, 1, 0).MultMatrixVectorRespectW(Point3D(1, -1, 0));
    EXPECT_EQ(inf, atInfinity.x());
    EXPECT_EQ(-inf, atInfinity.y());
    EXPECT_TRUE(std::isnan(atInfinity.z()));
}

TEST(Matrix4X4C, RowSumsStartWithTheSecondElement)
{
    Matrix4X4C m;
    m.SetFromDouble(0.1, 1e16, -1e16, 0.3, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    double const y = 0.7;
    double const z = 0.7;
    double const x = 3.3;
    EXPECT_TRUE(SameBits(1e16 * y + 0.1 * x + -1e16 * z + 0.3, m.MultMatrixVector({x, y, z}).x()));
}

TEST(Matrix4X4C, ClassLevelAllocation)
{
    Matrix4X4C *const m = new Matrix4X4C;
    EXPECT_EQ(1.0, at(*m, 2, 2));
    delete m;
    delete[] new Matrix4X4C[2];
}

} // namespace
