#include "support/Bits.h"

#include <OrvelMath/base/TMatrix.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>

namespace {

double factorOf(TMatrix const &t)
{
    return t * 1.0 - t * 0.0;
}

double offsetOf(TMatrix const &t)
{
    return t * 0.0;
}

/// The 2x2 part, then the translation.
std::array<double, 6> elementsOf(TMatrix t)
{
    return {t.getValue(0, 0), t.getValue(1, 0), t.getValue(0, 1),
            t.getValue(1, 1), t.getValue(2, 0), t.getValue(2, 1)};
}

std::array<double, 3> thirdRowOf(TMatrix t)
{
    return {t.getValue(0, 2), t.getValue(1, 2), t.getValue(2, 2)};
}

using Elements = std::array<double, 6>;
std::array<double, 3> const plainThirdRow{0.0, 0.0, 1.0};

/// An integer from [low, high), as likely early in a run as late.
int uniform(int low, int high)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high));
}

double anyNumber()
{
    return uniform(-100000, 100001) / 1000.0;
}

TMatrix anyStep()
{
    switch (uniform(0, 4)) {
    case 0:
        return TMatrix(Point2D(anyNumber(), anyNumber()));
    case 1:
        return TMatrix(anyNumber() * 3.6);
    case 2:
        return TMatrix(uniform(0, 3));
    default: {
        double const scale = anyNumber() / 50.0 + 3.0;
        return TMatrix(scale, scale);
    }
    }
}

/// Steps that keep angles, so that the angle map is that of the matrix.
TMatrix anyTransformation()
{
    TMatrix t;
    int const steps = uniform(1, 5);
    for (int i = 0; i < steps; ++i) {
        t *= anyStep();
    }
    return t;
}

} // namespace

TEST(TMatrixValue, DefaultIsTheIdentity)
{
    TMatrix const t;
    EXPECT_EQ(elementsOf(t), (Elements{1.0, 0.0, 0.0, 1.0, 0.0, 0.0}));
    EXPECT_EQ(thirdRowOf(t), plainThirdRow);
    EXPECT_EQ(1.0, factorOf(t));
    EXPECT_EQ(0.0, offsetOf(t));
    EXPECT_FALSE(t.isMirrorMatrix());
}

TEST(TMatrixValue, TranslationMovesPointsAndKeepsAngles)
{
    TMatrix const t(Point2D(5.0, 7.0));
    EXPECT_EQ(t * Point2D(1.0, 2.0), Point2D(6.0, 9.0));
    EXPECT_EQ(30.0, t * 30.0);
}

TEST(TMatrixValue, RotationIsCounterClockwiseInDegrees)
{
    TMatrix const t(90.0);
    Point2D const image = t * Point2D(1.0, 0.0);
    EXPECT_NEAR(0.0, image.x(), 1e-16);
    EXPECT_EQ(1.0, image.y());
    EXPECT_EQ(100.0, t * 10.0);
    double const radians = 33.0 * 3.141592653589793 / 180.0;
    EXPECT_EQ(elementsOf(TMatrix(33.0)),
              (Elements{std::cos(radians), -std::sin(radians), std::sin(radians), std::cos(radians),
                        0.0, 0.0}));
}

TEST(TMatrixValue, PresetMirrors)
{
    EXPECT_EQ(330.0, TMatrix(0) * 30.0);
    EXPECT_EQ(150.0, TMatrix(1) * 30.0);
    EXPECT_EQ(60.0, TMatrix(2) * 30.0);
    EXPECT_EQ(TMatrix(0) * Point2D(2.0, 3.0), Point2D(2.0, -3.0));
    EXPECT_EQ(TMatrix(1) * Point2D(2.0, 3.0), Point2D(-2.0, 3.0));
    EXPECT_EQ(TMatrix(2) * Point2D(2.0, 3.0), Point2D(3.0, 2.0));
    for (int kind = 0; kind < 3; ++kind) {
        EXPECT_TRUE(TMatrix(kind).isMirrorMatrix()) << kind;
        EXPECT_EQ(-1.0, factorOf(TMatrix(kind))) << kind;
        EXPECT_EQ(thirdRowOf(TMatrix(kind)), plainThirdRow) << kind;
        EXPECT_EQ(0.0, elementsOf(TMatrix(kind))[4]) << kind;
        EXPECT_EQ(0.0, elementsOf(TMatrix(kind))[5]) << kind;
    }
}

TEST(TMatrixValue, UnknownMirrorLeavesTheMemoryUnwritten)
{
    for (int kind : {3, -1, 1000}) {
        alignas(TMatrix) unsigned char memory[sizeof(TMatrix)];
        std::memset(memory, 0x5a, sizeof memory);
        new (memory) TMatrix(kind);
        for (unsigned char byte : memory) {
            ASSERT_EQ(0x5a, byte) << kind;
        }
    }
}

TEST(TMatrixScaling, NegativeFactorsAreMirrors)
{
    TMatrix const mirrored(-2.0, 3.0);
    EXPECT_EQ(elementsOf(mirrored), (Elements{-2.0, 0.0, 0.0, 3.0, 0.0, 0.0}));
    EXPECT_EQ(-1.0, factorOf(mirrored));
    EXPECT_EQ(180.0, offsetOf(mirrored));

    TMatrix const flipped(2.0, -3.0);
    EXPECT_EQ(elementsOf(flipped), (Elements{2.0, 0.0, 0.0, -3.0, 0.0, 0.0}));
    EXPECT_EQ(-1.0, factorOf(flipped));
    EXPECT_EQ(360.0, offsetOf(flipped));

    TMatrix const halfTurn(-2.0, -3.0);
    EXPECT_EQ(elementsOf(halfTurn), (Elements{-2.0, 0.0, 0.0, -3.0, 0.0, 0.0}));
    EXPECT_EQ(1.0, factorOf(halfTurn));
    EXPECT_EQ(180.0, offsetOf(halfTurn));
    EXPECT_FALSE(halfTurn.isMirrorMatrix());
}

TEST(TMatrixScaling, PositiveFactorsKeepAngles)
{
    TMatrix const t(2.0, 3.0);
    EXPECT_EQ(t * Point2D(1.0, 1.0), Point2D(2.0, 3.0));
    EXPECT_EQ(1.0, factorOf(t));
    EXPECT_EQ(0.0, offsetOf(t));
    EXPECT_FALSE(TMatrix(0.0, 0.0).isMirrorMatrix());
}

TEST(TMatrixValue, SetMatrixTakesRowsThenFactorThenOffset)
{
    TMatrix t;
    t.setMatrix(1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, -1.0, 45.0);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_EQ(t.getValue(column, row), 3 * row + column + 1);
        }
    }
    EXPECT_EQ(35.0, t * 10.0);
    EXPECT_EQ(t * Point2D(10.0, 100.0), Point2D(213.0, 546.0)); // the third row is not read
}

TEST(TMatrixValue, GetValueTakesTheColumnFirst)
{
    TMatrix t(Point2D(5.0, 7.0));
    EXPECT_EQ(5.0, t.getValue(2, 0));
    EXPECT_EQ(7.0, t.getValue(2, 1));
    EXPECT_EQ(0.0, t.getValue(0, 2));
}

TEST(TMatrixValue, CopyAndAssignmentTakeAllElevenValues)
{
    TMatrix t;
    t.setMatrix(1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, -1.0, 45.0);
    TMatrix const copy(t);
    TMatrix assigned;
    assigned = t;
    EXPECT_EQ(0, std::memcmp(&copy, &t, sizeof t));
    EXPECT_EQ(0, std::memcmp(&assigned, &t, sizeof t));
}

TEST(TMatrixProduct, DoesTheRightFactorFirst)
{
    TMatrix const turn(90.0);
    TMatrix const shift(Point2D(5.0, 0.0));
    Point2D const image = turn * shift * Point2D(1.0, 0.0);
    EXPECT_NEAR(0.0, image.x(), 1e-15);
    EXPECT_EQ(6.0, image.y());

    TMatrix product(turn);
    EXPECT_EQ(&(product *= shift), &product);
    EXPECT_EQ(elementsOf(product), elementsOf(turn * shift));
}

TEST(TMatrixProduct, MultipliesTheThirdRowToo)
{
    TMatrix a;
    a.setMatrix(1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 1.0, 0.0);
    TMatrix square = a * a;
    EXPECT_EQ(102.0, square.getValue(0, 2));
    EXPECT_EQ(126.0, square.getValue(1, 2));
    EXPECT_EQ(150.0, square.getValue(2, 2));
    EXPECT_EQ(42.0, square.getValue(2, 0));
}

TEST(TMatrixProduct, ComposesTheAngleMapLikeThePointMap)
{
    TMatrix const mirror(0);
    TMatrix const turn(20.0);
    EXPECT_EQ((mirror * turn) * 5.0, mirror * (turn * 5.0));
    EXPECT_EQ((turn * mirror) * 5.0, turn * (mirror * 5.0));
    EXPECT_TRUE((mirror * turn).isMirrorMatrix());
    EXPECT_FALSE((mirror * mirror).isMirrorMatrix());
}

TEST(TMatrixInverse, InvertsDiagonalMatrices)
{
    TMatrix const inverse = ~TMatrix(2.0, 4.0);
    EXPECT_EQ(elementsOf(inverse), (Elements{0.5, 0.0, 0.0, 0.25, 0.0, 0.0}));
    EXPECT_EQ(thirdRowOf(inverse), plainThirdRow);
}

TEST(TMatrixInverse, LosesTheMirrorFlag)
{
    TMatrix const inverse = ~TMatrix(-2.0, 4.0);
    EXPECT_EQ(elementsOf(inverse), (Elements{-0.5, 0.0, 0.0, 0.25, 0.0, 0.0}));
    EXPECT_FALSE(inverse.isMirrorMatrix());
    EXPECT_EQ(0.0, offsetOf(inverse));
}

TEST(TMatrixInverse, ScalesTheCompanionOfATranslation)
{
    TMatrix inverse = ~TMatrix(Point2D(5.0, 7.0));
    EXPECT_EQ(elementsOf(inverse), (Elements{1.0, 0.0, 0.0, 1.0, 0.0, 0.0}));
    EXPECT_EQ(24.0, inverse.getValue(2, 2));
}

TEST(TMatrixInverse, AddsARowWhereThePivotIsZero)
{
    // Pivot 0 gets row 1: (1 1), then row 1 is left with (0 -1); each factor scales the companion.
    TMatrix inverse = ~TMatrix(2);
    EXPECT_EQ(elementsOf(inverse), (Elements{0.0, 0.0, -0.0, -2.0, 0.0, 0.0}));
    EXPECT_EQ(1.0, inverse.getValue(2, 2));
}

TEST(TMatrixInverse, SingularMatrixGivesTheDefault)
{
    TMatrix zero;
    zero.setMatrix(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, -1.0, 30.0);
    TMatrix const inverse = ~zero;
    EXPECT_EQ(elementsOf(inverse), elementsOf(TMatrix()));
    EXPECT_EQ(thirdRowOf(inverse), plainThirdRow);
    EXPECT_EQ(1.0, factorOf(inverse));
    EXPECT_EQ(0.0, offsetOf(inverse));

    TMatrix dependent; // found singular in the middle, with the companion changed already
    dependent.setMatrix(1.0, 1.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.0, 1.0, 1.0, 0.0);
    EXPECT_EQ(elementsOf(~dependent), elementsOf(TMatrix()));
}

TEST(TMatrixLength, IsMeasuredAlongTheDiagonal)
{
    EXPECT_DOUBLE_EQ(2.0, TMatrix(Point2D(5.0, 7.0)).Laenge(2.0));
    EXPECT_DOUBLE_EQ(3.0, TMatrix(3.0, 3.0).Laenge(1.0));
    EXPECT_DOUBLE_EQ(10.0, TMatrix(1.0, 7.0).Laenge(2.0)); // sqrt((1 + 49) / 2) = 5
    EXPECT_DOUBLE_EQ(4.0, TMatrix(2).Laenge(4.0));
}

TEST(TMatrixCorrection, SnapsTheLinearPartToZero)
{
    TMatrix t;
    t.setMatrix(9.9e-10, -9.9e-10, 1e-12, 1e-9, -1e-9, 1e-12, 1e-12, 1e-12, 1.0, -1.0, 1e-12);
    EXPECT_EQ(&t.correct(), &t);
    EXPECT_EQ(elementsOf(t), (Elements{0.0, 0.0, 1e-9, -1e-9, 1e-12, 1e-12}));
    EXPECT_EQ(1e-12, t.getValue(0, 2));
    EXPECT_EQ(1e-12, offsetOf(t));
}

TEST(TMatrixCorrection, SnapsTheLinearPartToOneAndMinusOne)
{
    TMatrix t;
    t.setMatrix(1.0 + 9e-10, -1.0 - 9e-10, 1.0 + 9e-10, 1.0 - 9e-10, -1.0 + 9e-10, 1.0, 1.0, 1.0,
                1.0 + 9e-10, 1.0, 1.0 + 9e-10);
    EXPECT_EQ(&t.correctOne(), &t);
    EXPECT_EQ(elementsOf(t), (Elements{1.0, -1.0, 1.0, -1.0, 1.0 + 9e-10, 1.0}));
    EXPECT_EQ(1.0 + 9e-10, t.getValue(2, 2));

    TMatrix outside;
    outside.setMatrix(1.000000001, 0.999999999, 0.0, -1.000000001, -0.999999999, 0.0, 0.0, 0.0, 1.0,
                      1.0, 0.0);
    outside.correctOne();
    EXPECT_EQ(elementsOf(outside),
              (Elements{1.000000001, 0.999999999, -1.000000001, -0.999999999, 0.0, 0.0}));
}

TEST(TMatrixNonFinite, PassesThrough)
{
    EXPECT_TRUE(std::isnan(TMatrix(support::nan) * 1.0));
    EXPECT_TRUE(std::isnan((TMatrix(Point2D(support::nan, 0.0)) * Point2D(1.0, 1.0)).x()));
    EXPECT_FALSE(TMatrix(support::nan, support::nan).isMirrorMatrix());
    TMatrix t(support::nan, 1.0);
    EXPECT_TRUE(std::isnan(t.correct().correctOne().getValue(0, 0)));
    EXPECT_TRUE(std::isnan((~t).getValue(0, 0)));
}

RC_GTEST_PROP(TMatrixProperty, CompositionActsOnPointsAsTheFactorsDo, ())
{
    TMatrix const a = anyTransformation();
    TMatrix const b = anyTransformation();
    Point2D const p(anyNumber(), anyNumber());
    Point2D const atOnce = (a * b) * p;
    Point2D const inTurn = a * (b * p);
    RC_ASSERT((atOnce - inTurn).Length() <= 1e-10 * (1.0 + inTurn.Length() + p.Length()) * 1e3);
}

RC_GTEST_PROP(TMatrixProperty, CompositionActsOnAnglesAsTheFactorsDo, ())
{
    TMatrix const a = anyTransformation();
    TMatrix const b = anyTransformation();
    double const angle = anyNumber();
    RC_ASSERT(std::fabs((a * b) * angle - a * (b * angle)) < 1e-9);
}

RC_GTEST_PROP(TMatrixProperty, AngleMapIsThatOfDirections, ())
{
    TMatrix const t = anyTransformation();
    double const angle = anyNumber();
    Point2D turned = t * VecWin(angle) - t * Point2D();
    Point2D const expected = VecWin(t * angle);
    RC_PRE(turned.Length() > 1e-6);
    RC_ASSERT((turned.Normalize() - expected).Length() < 1e-6);
}

RC_GTEST_PROP(TMatrixProperty, InverseOfADiagonalMatrixUndoesIt, ())
{
    double const sx = anyNumber();
    double const sy = anyNumber();
    RC_PRE(sx != 0.0 && sy != 0.0);
    TMatrix const t(sx, sy);
    Point2D const p(anyNumber(), anyNumber());
    RC_ASSERT((~t * (t * p) - p).Length() <= 1e-15 * p.Length());
}
