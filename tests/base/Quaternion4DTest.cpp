#include "support/Bits.h"

#include <OrvelMath/base/Quaternion4D.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>

namespace {

double const pi = 3.141592653589793;

using Components = std::array<double, 4>;
using Rotation = std::array<std::array<double, 3>, 3>;

Components componentsOf(Quaternion4D const &q)
{
    Components c;
    q.GetComponents(c[0], c[1], c[2], c[3]);
    return c;
}

double distance(Quaternion4D const &a, Quaternion4D const &b)
{
    Components const u = componentsOf(a);
    Components const v = componentsOf(b);
    double sum = 0.0;
    for (std::size_t i = 0; i < 4; ++i) {
        sum += (u[i] - v[i]) * (u[i] - v[i]);
    }
    return std::sqrt(sum);
}

Quaternion4D negated(Quaternion4D const &q)
{
    Components const c = componentsOf(q);
    return Quaternion4D(-c[0], -c[1], -c[2], -c[3]);
}

Rotation product(Rotation const &a, Rotation const &b)
{
    Rotation result{};
    for (std::size_t r = 0; r < 3; ++r) {
        for (std::size_t c = 0; c < 3; ++c) {
            for (std::size_t k = 0; k < 3; ++k) {
                result[r][c] += a[r][k] * b[k][c];
            }
        }
    }
    return result;
}

/// The textbook rotation about a coordinate axis, counter-clockwise against it.
Rotation aboutAxis(std::size_t axis, double angle)
{
    std::size_t const j = (axis + 1) % 3;
    std::size_t const k = (axis + 2) % 3;
    Rotation result{};
    result[axis][axis] = 1.0;
    result[j][j] = result[k][k] = std::cos(angle);
    result[j][k] = -std::sin(angle);
    result[k][j] = std::sin(angle);
    return result;
}

/// The textbook rotation about any unit axis (O. Rodrigues, 1840).
Rotation aboutDirection(Point3D const &u, double angle)
{
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    Rotation result;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            double value = (1.0 - c) * u[row] * u[column];
            if (row == column) {
                value += c;
            } else {
                value += ((column - row + 3) % 3 == 1 ? -s : s) * u[3 - row - column];
            }
            result[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = value;
        }
    }
    return result;
}

/// How far the 3x3 part of `m` is from the transpose of `textbook`.
double distanceFromTranspose(Matrix4X4C const &m, Rotation const &textbook)
{
    double greatest = 0.0;
    for (std::size_t r = 0; r < 3; ++r) {
        for (std::size_t c = 0; c < 3; ++c) {
            greatest = std::fmax(greatest, std::fabs(m.GetConstMatrixRef()[r][c] - textbook[c][r]));
        }
    }
    return greatest;
}

/// An integer from [low, high), as likely early in a run as late.
int uniform(int low, int high)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high));
}

double anyNumber(double limit)
{
    return uniform(-1000000, 1000001) * 1e-6 * limit;
}

Point3D anyAxis()
{
    Point3D const axis(anyNumber(1.0), anyNumber(1.0), anyNumber(1.0));
    RC_PRE(axis.Length() > 1e-3);
    return axis;
}

Quaternion4D anyRotation()
{
    return Quaternion4D(anyAxis(), anyNumber(2.0 * pi));
}

void expectComponents(Quaternion4D const &q, double x, double y, double z, double w)
{
    EXPECT_EQ(componentsOf(q), (Components{x, y, z, w}));
}

} // namespace

TEST(QuaternionValue, ConstructorsAndComponents)
{
    expectComponents(Quaternion4D(), 0.0, 0.0, 0.0, 1.0);
    Quaternion4D q(1.0, 2.0, 3.0, 4.0);
    expectComponents(q, 1.0, 2.0, 3.0, 4.0);
    Quaternion4D const copy(q);
    expectComponents(copy, 1.0, 2.0, 3.0, 4.0);
    q.SetComponents(5.0, 6.0, 7.0, 8.0);
    expectComponents(q, 5.0, 6.0, 7.0, 8.0);
    q = copy;
    expectComponents(q, 1.0, 2.0, 3.0, 4.0);
    q.SetIdentity();
    expectComponents(q, 0.0, 0.0, 0.0, 1.0);
    EXPECT_EQ(sizeof(Quaternion4D), 4 * sizeof(double));
}

TEST(QuaternionValue, ConvertingConstructorsDoAsTheirSetters)
{
    Point3D const angles(0.3, 0.2, 0.1);
    Quaternion4D set;
    set.SetEuler(angles);
    EXPECT_EQ(componentsOf(Quaternion4D(angles)), componentsOf(set));
    set.SetRotation(angles, 0.7);
    EXPECT_EQ(componentsOf(Quaternion4D(angles, 0.7)), componentsOf(set));
    Matrix4X4C const matrix = set.GetMatrix();
    Quaternion4D fromMatrix;
    fromMatrix.SetMatrix(matrix);
    EXPECT_EQ(componentsOf(Quaternion4D(matrix)), componentsOf(fromMatrix));
}

TEST(QuaternionValue, AllocatesAndFreesThroughTheClass)
{
    std::unique_ptr<Quaternion4D> const one(new Quaternion4D(1.0, 2.0, 3.0, 4.0));
    expectComponents(*one, 1.0, 2.0, 3.0, 4.0);
    std::unique_ptr<Quaternion4D[]> const several(new Quaternion4D[3]);
    expectComponents(several[2], 0.0, 0.0, 0.0, 1.0);
    alignas(Quaternion4D) unsigned char memory[sizeof(Quaternion4D)];
    Quaternion4D *const placed = new (memory) Quaternion4D(4.0, 3.0, 2.0, 1.0);
    EXPECT_EQ(static_cast<void *>(placed), static_cast<void *>(memory));
    expectComponents(*placed, 4.0, 3.0, 2.0, 1.0);
}

TEST(QuaternionValue, LengthAndDotProduct)
{
    Quaternion4D const q(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(30.0, q.LengthSqr());
    EXPECT_EQ(q.Length(), std::sqrt(30.0));
    EXPECT_EQ(70.0, q.Dot(Quaternion4D(5.0, 6.0, 7.0, 8.0)));
    // y is added first: the large products cancel before the small ones are lost in them
    EXPECT_EQ(11.0, Quaternion4D(1e20, 1e20, 1.0, 2.0).Dot(Quaternion4D(-1.0, 1.0, 3.0, 4.0)));

    double const length = std::sqrt(30.0);
    expectComponents(q.Normal(), 1.0 / length, 2.0 / length, 3.0 / length, 4.0 / length);
    Quaternion4D normalised(q);
    normalised.Normalize();
    EXPECT_EQ(componentsOf(normalised), componentsOf(q.Normal()));
}

TEST(QuaternionValue, ZeroHasNoUnitCopy)
{
    Quaternion4D zero(0.0, 0.0, 0.0, 0.0);
    for (double c : componentsOf(zero.Normal())) {
        EXPECT_TRUE(std::isnan(c));
    }
    zero.Normalize();
    for (double c : componentsOf(zero)) {
        EXPECT_TRUE(std::isnan(c));
    }
}

TEST(QuaternionMatrix, IdentityGivesTheIdentity)
{
    EXPECT_TRUE(Math3DCompareMatrix(Quaternion4D().GetMatrix().GetConstMatrixRef(),
                                    Matrix4X4C().GetConstMatrixRef(), 1e-300));
}

TEST(QuaternionMatrix, IsTheTransposeOfTheTextbookForm)
{
    Quaternion4D q;
    q.SetRotation(Point3D(0.0, 0.0, 1.0), pi / 2.0);
    Matrix4X4C const matrix = q.GetMatrix();
    double const(&m)[4][4] = matrix.GetConstMatrixRef();
    EXPECT_NEAR(1.0, m[0][1], 1e-15);
    EXPECT_NEAR(-1.0, m[1][0], 1e-15);
    EXPECT_NEAR(0.0, m[0][0], 1e-15);
    EXPECT_EQ(1.0, m[2][2]);
    EXPECT_LT(distance(Quaternion4D(matrix), q), 1e-15);
}

TEST(QuaternionMatrix, ElementsOfAnUnevenQuaternion)
{
    Matrix4X4C const matrix = Quaternion4D(1.0, 2.0, 3.0, 4.0).GetMatrix();
    double const expected[4][4] = {{-25.0, 28.0, -10.0, 0.0},
                                   {-20.0, -19.0, 20.0, 0.0},
                                   {22.0, 4.0, -9.0, 0.0},
                                   {0.0, 0.0, 0.0, 1.0}};
    EXPECT_TRUE(Math3DCompareMatrix(matrix.GetConstMatrixRef(), expected, 1e-300));
}

TEST(QuaternionMatrix, HalfTurnsTakeTheLargestDiagonalElement)
{
    Matrix4X4C m;
    m.Scale(-1.0, 1.0, -1.0);
    expectComponents(Quaternion4D(m), 0.0, 1.0, 0.0, 0.0);
    m.Init();
    m.Scale(1.0, -1.0, -1.0);
    expectComponents(Quaternion4D(m), 1.0, 0.0, 0.0, 0.0);
    m.Init();
    m.Scale(-1.0, -1.0, 1.0);
    expectComponents(Quaternion4D(m), 0.0, 0.0, 1.0, 0.0);
}

TEST(QuaternionMatrix, TiesGoToTheLowerIndex)
{
    Matrix4X4C m; // a half turn about (1, 1, 0): both of the first two would do
    m.SetFromDouble(0.0, 1.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0,
                    1.0);
    double const root = std::sqrt(2.0);
    expectComponents(Quaternion4D(m), root * 0.5, 2.0 * (0.5 / root), 0.0, 0.0);
}

TEST(QuaternionMatrix, ReadsOnlyTheRotationPart)
{
    Matrix4X4C m;
    m.SetFromDouble(0.0, 1.0, 0.0, 7.0, -1.0, 0.0, 0.0, 8.0, 0.0, 0.0, 1.0, 9.0, 4.0, 5.0, 6.0,
                    2.0);
    double const root = std::sqrt(2.0);
    expectComponents(Quaternion4D(m), 0.0, 0.0, 2.0 * (0.5 / root), root * 0.5);
}

TEST(QuaternionMatrix, AnyMatrixGoesByItsLargestDiagonalElement)
{
    Matrix4X4C m;
    m.SetFromDouble(-1.0, 5.0, 6.0, 0.0, 3.0, 0.0, 7.0, 0.0, 4.0, 9.0, 0.0, 0.0, 0.0, 0.0, 0.0,
                    1.0);
    // the second of equals: 0 - (-1 + 0) + 1 = 2
    double const root = std::sqrt(2.0);
    double const factor = 0.5 / root;
    expectComponents(Quaternion4D(m), 8.0 * factor, root * 0.5, 16.0 * factor, -2.0 * factor);
}

TEST(QuaternionMatrix, MembersOfTheMatrixGoThroughTheQuaternion)
{
    Quaternion4D q(Point3D(1.0, 2.0, 3.0), 0.8);
    Matrix4X4C m;
    m.Translate(1.0, 2.0, 3.0);
    m.SetFromQuaternion(q);
    EXPECT_TRUE(
        Math3DCompareMatrix(m.GetConstMatrixRef(), q.GetMatrix().GetConstMatrixRef(), 1e-300));
    EXPECT_EQ(componentsOf(m.GetQuaternion()), componentsOf(Quaternion4D(m)));
}

TEST(QuaternionRotation, NormalisesItsAxis)
{
    Quaternion4D const q(Point3D(0.0, 0.0, 8.0), 0.5);
    expectComponents(q, 0.0, 0.0, std::sin(0.25), std::cos(0.25));
    expectComponents(Quaternion4D(Point3D(), 0.5), 0.0, 0.0, 0.0, std::cos(0.25));
}

TEST(QuaternionAngleAxis, GuardsGiveNoRotation)
{
    Point3D axis(7.0, 7.0, 7.0);
    double angle = 7.0;
    Quaternion4D().GetAngleAxis(axis, angle);
    EXPECT_EQ(0.0, angle);
    EXPECT_EQ(axis, Point3D(1.0, 0.0, 0.0));

    for (Quaternion4D const &q :
         {Quaternion4D(0.0, 0.0, 1.0, 1.5), Quaternion4D(0.0, 0.0, 1.0, -1.5),
          Quaternion4D(Point3D(0.0, 0.0, 1.0), 1.9e-4),
          Quaternion4D(Point3D(0.0, 0.0, 1.0), 2.0 * pi - 1.9e-4)}) {
        angle = 7.0;
        axis = Point3D(7.0, 7.0, 7.0);
        q.GetAngleAxis(axis, angle);
        EXPECT_EQ(0.0, angle);
        EXPECT_EQ(axis, Point3D(1.0, 0.0, 0.0));
    }
}

TEST(QuaternionAngleAxis, SmallTurnBeyondTheGuardIsReported)
{
    Point3D axis;
    double angle = 0.0;
    Quaternion4D(Point3D(0.0, 0.0, 1.0), 2.1e-4).GetAngleAxis(axis, angle);
    EXPECT_NEAR(2.1e-4, angle, 1e-11);
    EXPECT_NEAR(1.0, axis.z(), 1e-7);
}

TEST(QuaternionEuler, SetTurnsAboutTheFixedAxesInOrder)
{
    double const c = std::cos(0.15);
    double const s = std::sin(0.15);
    expectComponents(Quaternion4D(Point3D(0.3, 0.0, 0.0)), s, 0.0, 0.0, c);
    expectComponents(Quaternion4D(Point3D(0.0, 0.3, 0.0)), 0.0, s, 0.0, c);
    expectComponents(Quaternion4D(Point3D(0.0, 0.0, 0.3)), 0.0, 0.0, s, c);
}

TEST(QuaternionEuler, SingleTurnsComeBackInAnotherPlace)
{
    double const expected[3][3] = {{0.0, 0.0, 0.3}, {0.3, 0.0, 0.0}, {0.0, 0.3, 0.0}};
    for (int axis = 0; axis < 3; ++axis) {
        Point3D angles;
        angles[axis] = 0.3;
        double y;
        double z;
        double x;
        Quaternion4D(angles).GetEuler(y, z, x);
        EXPECT_NEAR(y, expected[axis][0], 1e-15) << axis;
        EXPECT_NEAR(z, expected[axis][1], 1e-15) << axis;
        EXPECT_NEAR(x, expected[axis][2], 1e-15) << axis;
    }
}

TEST(QuaternionEuler, SeveralTurnsDoNotComeBack)
{
    double y;
    double z;
    double x;
    Quaternion4D(Point3D(0.3, 0.2, 0.1)).GetEuler(y, z, x);
    EXPECT_DOUBLE_EQ(0.20097742484949532, y);
    EXPECT_DOUBLE_EQ(0.09800018592316886, z);
    EXPECT_DOUBLE_EQ(0.28006921733608603, x);
}

TEST(QuaternionEuler, PolesAreExact)
{
    double y = 7.0;
    double z = 7.0;
    double x = 7.0;
    Quaternion4D(Point3D(0.0, 0.0, pi / 2.0)).GetEuler(y, z, x);
    EXPECT_EQ(0.0, y);
    EXPECT_EQ(1.5707963267948966, z);
    EXPECT_EQ(0.0, x);

    Quaternion4D south(-0.1, 0.2, -0.7, 0.7); // x y + z w = -0.51
    south.GetEuler(y, z, x);
    EXPECT_EQ(y, -2.0 * std::atan2(-0.1, 0.7));
    EXPECT_EQ(-1.5707963267948966, z);
    EXPECT_EQ(0.0, x);

    Quaternion4D(0.0, 0.0, 0.499, 1.0).GetEuler(y, z, x); // the limit itself is no pole
    EXPECT_EQ(z, std::asin(2.0 * 0.499));
    Quaternion4D(0.0, 0.0, -0.499, 1.0).GetEuler(y, z, x);
    EXPECT_EQ(z, std::asin(2.0 * -0.499));
}

TEST(QuaternionSlerp, EndsAndOpposites)
{
    Quaternion4D const q(Point3D(1.0, 2.0, 3.0), 0.4);
    Quaternion4D const r(Point3D(3.0, -1.0, 0.5), 2.1);
    EXPECT_LT(distance(q.Slerp(r, 0.0), q), 1e-15);
    EXPECT_LT(distance(q.Slerp(r, 1.0), r), 1e-15);
    EXPECT_LT(distance(q.Slerp(negated(r), 1.0), r), 1e-15);
    EXPECT_EQ(componentsOf(q.Slerp(negated(q), 0.5)), componentsOf(q));
}

TEST(QuaternionSlerp, IsLinearFromTheLimitUpward)
{
    Quaternion4D const from(0.0, 0.0, 0.0, 1.0);
    double const s = std::sqrt(1.0 - 0.99999 * 0.99999);
    Quaternion4D const atLimit(0.0, 0.0, s, 0.99999);
    EXPECT_EQ(componentsOf(from.Slerp(atLimit, 0.5))[2], 0.5 * s);
    double const below = std::nextafter(0.99999, 0.0);
    double const angle = std::acos(below);
    EXPECT_EQ(componentsOf(from.Slerp(Quaternion4D(0.0, 0.0, s, below), 0.5))[2],
              std::sin(angle * 0.5) / std::sin(angle) * s);
}

TEST(QuaternionLerp, TakesNoShortWay)
{
    Quaternion4D const q(1.0, 2.0, 3.0, 4.0);
    expectComponents(q.Lerp(negated(q), 0.5), 0.0, 0.0, 0.0, 0.0);
    expectComponents(q.Lerp(Quaternion4D(5.0, 6.0, 7.0, 8.0), 0.25), 2.0, 3.0, 4.0, 5.0);
    EXPECT_EQ(componentsOf(q.Lerp(Quaternion4D(), 0.0)), componentsOf(q));
}

TEST(QuaternionNonFinite, PassesThrough)
{
    Quaternion4D const q(support::nan, 0.0, 0.0, 1.0);
    EXPECT_TRUE(std::isnan(q.Length()));
    EXPECT_TRUE(std::isnan(q.GetMatrix().GetConstMatrixRef()[1][1]));
    EXPECT_TRUE(std::isnan(componentsOf(q.Slerp(Quaternion4D(), 0.5))[0]));
    EXPECT_TRUE(std::isnan(componentsOf(q.Lerp(Quaternion4D(), 0.5))[0]));
    Point3D axis;
    double angle = 0.0;
    Quaternion4D(0.0, 0.0, 1.0, support::nan).GetAngleAxis(axis, angle);
    EXPECT_TRUE(std::isnan(angle));
    EXPECT_TRUE(std::isnan(axis.z()));
    Matrix4X4C m;
    m.Scale(support::nan, 1.0, 1.0);
    EXPECT_TRUE(std::isnan(componentsOf(Quaternion4D(m))[3]));
    double y = 0.0;
    double z = 0.0;
    double x = 0.0;
    Quaternion4D(0.0, 0.0, support::nan, 1.0).GetEuler(y, z, x);
    EXPECT_TRUE(std::isnan(y));
    EXPECT_TRUE(std::isnan(z));
}

RC_GTEST_PROP(QuaternionProperty, MatrixIsTheTransposedRotationAboutTheAxis, ())
{
    Point3D const axis = anyAxis();
    double const angle = anyNumber(2.0 * pi);
    Matrix4X4C const m = Quaternion4D(axis, angle).GetMatrix();
    RC_ASSERT(distanceFromTranspose(m, aboutDirection(axis.Normalize(), angle)) < 1e-14);
    RC_ASSERT(m.CheckMatrix());
    RC_ASSERT((Math3DVektorprodukt(m.GetMatX(), m.GetMatY()) - m.GetMatZ()).Length() < 1e-14);
}

RC_GTEST_PROP(QuaternionProperty, MatrixAndBackIsTheSameRotation, ())
{
    Quaternion4D const q = anyRotation();
    Quaternion4D const back(q.GetMatrix());
    RC_ASSERT(std::fmin(distance(back, q), distance(back, negated(q))) < 1e-14);
}

RC_GTEST_PROP(QuaternionProperty, HalfTurnsComeBackFromTheMatrixToo, ())
{
    Quaternion4D const q(anyAxis(), pi + anyNumber(1e-6));
    Quaternion4D const back(q.GetMatrix());
    RC_ASSERT(std::fmin(distance(back, q), distance(back, negated(q))) < 1e-13);
}

RC_GTEST_PROP(QuaternionProperty, AngleAndAxisComeBack, ())
{
    Quaternion4D const q = anyRotation();
    Point3D axis;
    double angle = 0.0;
    q.GetAngleAxis(axis, angle);
    RC_ASSERT(angle >= 0.0 && angle <= 2.0 * pi);
    Quaternion4D const back(axis, angle);
    if (angle != 0.0) {
        RC_ASSERT(distance(back, q) < 1e-8);
    } else { // no more is lost than the guard swallows
        RC_ASSERT(std::fmin(distance(back, q), distance(back, negated(q))) < 2e-4);
    }
}

RC_GTEST_PROP(QuaternionProperty, SetEulerTurnsAboutXThenYThenZ, ())
{
    Point3D const e(anyNumber(pi), anyNumber(pi), anyNumber(pi));
    Rotation const expected =
        product(aboutAxis(2, e.z()), product(aboutAxis(1, e.y()), aboutAxis(0, e.x())));
    RC_ASSERT(distanceFromTranspose(Quaternion4D(e).GetMatrix(), expected) < 1e-14);
}

RC_GTEST_PROP(QuaternionProperty, GetEulerReadsYThenZThenX, ())
{
    Quaternion4D q = anyRotation();
    double y = 0.0;
    double z = 0.0;
    double x = 0.0;
    q.GetEuler(y, z, x);
    double const tolerance = std::fabs(z) < 1.5 ? 1e-12 : 0.1; // the poles are cut off
    Rotation const expected = product(aboutAxis(1, y), product(aboutAxis(2, z), aboutAxis(0, x)));
    RC_ASSERT(distanceFromTranspose(q.GetMatrix(), expected) < tolerance);
}

RC_GTEST_PROP(QuaternionProperty, SlerpKeepsTheLength, ())
{
    Quaternion4D const q = anyRotation();
    double const t = uniform(0, 1001) * 1e-3;
    Quaternion4D const far = anyRotation();
    if (std::fabs(q.Dot(far)) < 0.99999) {
        RC_ASSERT(std::fabs(q.Slerp(far, t).Length() - 1.0) < 1e-12);
    }
    Quaternion4D const near = q.Lerp(far, uniform(0, 1001) * 4e-6).Normal();
    RC_ASSERT(std::fabs(q.Slerp(near, t).Length() - 1.0) < 1e-5);
    RC_ASSERT(std::fabs(q.Slerp(negated(near), t).Length() - 1.0) < 1e-5);
}

RC_GTEST_PROP(QuaternionProperty, SlerpTurnsInProportion, ())
{
    Point3D const axis = anyAxis();
    double const start = anyNumber(1.0);
    double const turn = anyNumber(3.0);
    RC_PRE(std::fabs(turn) > 0.01);
    double const t = uniform(0, 1001) * 1e-3;
    Quaternion4D const between =
        Quaternion4D(axis, start).Slerp(Quaternion4D(axis, start + turn), t);
    RC_ASSERT(distance(between, Quaternion4D(axis, start + turn * t)) < 1e-12);
}
