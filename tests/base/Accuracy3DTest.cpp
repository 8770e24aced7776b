#include <OrvelMath/base/Accuracy3D.h>

#include "support/Bits.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <thread>
#include <vector>

namespace {

using support::inf;
using support::nan;
using support::preset;

// Runs `body` on a thread that never touched the accuracy.
template <typename Body>
void onFreshThread(Body body)
{
    std::thread(body).join();
}

TEST(AccuracyThread, StartsFromClassTwo)
{
    onFreshThread([] {
        EXPECT_EQ(2, GetAccuracy());
        EXPECT_EQ(15.0, GetAccuracyAngle(1.0, 0.0));
    });
    onFreshThread([] { EXPECT_EQ(15.0, GetAccuracyAngle(1.0, -0.0)); });
}

TEST(AccuracyThread, SettingItLeavesOtherThreadsAlone)
{
    onFreshThread([] {
        SetAccuracy(Accuracy3DFinest);
        onFreshThread([] {
            EXPECT_EQ(2, GetAccuracy());
            SetAccuracy(Accuracy3DClass4);
        });
        EXPECT_EQ(6, GetAccuracy());
    });
}

TEST(AccuracyThread, ManyThreadsKeepTheirOwnClass)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 16; ++i) {
        threads.emplace_back([i] {
            for (int k = 0; k < 200; ++k) {
                SetAccuracy(Accuracy3D(100 * i + k));
                EXPECT_EQ(100 * i + k, GetAccuracy());
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

TEST(AccuracyAngle, FinestClassAtBothLimits)
{
    onFreshThread([] {
        SetAccuracy(Accuracy3DFinest);
        EXPECT_EQ(5.0, GetAccuracyAngle(1.0, 100.0));
        EXPECT_EQ(3.0, GetAccuracyAngle(1.0, 20.0));
        EXPECT_EQ(2.0, GetAccuracyAngle(1.0, 10.0)); // a ratio of exactly 0.2
        EXPECT_EQ(3.0, GetAccuracyAngle(1.0, 40.0)); // a ratio of exactly 0.05
    });
}

TEST(AccuracyAngle, TableByClass)
{
    struct Row
    {
        int accuracy;
        double coarse, medium, fine;
    };
    Row const rows[] = {{2, 30, 30, 15},         {3, 30, 15, 7.5}, {4, 15, 15, 7.5},
                        {5, 10, 5, 3},           {6, 5, 3, 2},     {0, 30, 30, 15},
                        {1, 30, 30, 15},         {7, 30, 30, 15},  {-1, 30, 30, 15},
                        {2147483647, 30, 30, 15}};
    for (Row const &row : rows) {
        onFreshThread([row] {
            SetAccuracy(Accuracy3D(row.accuracy));
            EXPECT_EQ(row.accuracy, GetAccuracy());
            EXPECT_EQ(row.coarse, GetAccuracyAngle(1.0, 100.0)) << row.accuracy;
            EXPECT_EQ(row.medium, GetAccuracyAngle(1.0, 20.0)) << row.accuracy;
            EXPECT_EQ(row.fine, GetAccuracyAngle(1.0, 1.0)) << row.accuracy;
        });
    }
}

TEST(AccuracyAngle, NegativeRatioIsCoarseAndNanIsFine)
{
    onFreshThread([] {
        SetAccuracy(Accuracy3DClass5);
        EXPECT_EQ(10.0, GetAccuracyAngle(-1.0, 1.0));
        EXPECT_EQ(3.0, GetAccuracyAngle(nan, 1.0));
        EXPECT_EQ(3.0, GetAccuracyAngle(1.0, nan));
        EXPECT_EQ(3.0, GetAccuracyAngle(inf, 1.0));
        EXPECT_EQ(10.0, GetAccuracyAngle(1.0, inf));
    });
}

TEST(NextAccuracyAngle, SnapsToTheGridAndHitsTheEnd)
{
    double current = 10.0;
    EXPECT_FALSE(GetNextAccuracyAngle(30.0, 100.0, current));
    EXPECT_EQ(30.0, current);
    EXPECT_FALSE(GetNextAccuracyAngle(30.0, 100.0, current));
    EXPECT_EQ(60.0, current);
    EXPECT_FALSE(GetNextAccuracyAngle(30.0, 100.0, current));
    EXPECT_EQ(90.0, current);
    EXPECT_TRUE(GetNextAccuracyAngle(30.0, 100.0, current));
    EXPECT_EQ(100.0, current);
}

TEST(NextAccuracyAngle, EndIsTakenWithinAHundredth)
{
    double current = 95.0;
    EXPECT_TRUE(GetNextAccuracyAngle(30.0, 100.0, current));
    EXPECT_EQ(100.0, current);
    current = 70.0 - 0.005;
    EXPECT_TRUE(GetNextAccuracyAngle(30.0, 100.0, current));
    EXPECT_EQ(100.0, current);
}

TEST(NextAccuracyAngle, AHairShortOfAMultipleAddsTheRemainder)
{
    double current = 29.995;
    EXPECT_FALSE(GetNextAccuracyAngle(30.0, 1000.0, current));
    EXPECT_TRUE(support::SameBits(29.995 + std::fmod(29.995 + 30.0, 30.0), current));
}

TEST(NextAccuracyAngle, AHairPastAMultipleDropsTheRemainder)
{
    double current = 30.005;
    EXPECT_FALSE(GetNextAccuracyAngle(30.0, 1000.0, current));
    EXPECT_TRUE(support::SameBits((30.005 - std::fmod(30.005 + 30.0, 30.0)) + 30.0, current));
}

TEST(NextAccuracyAngle, StepZeroShortOfTheEndGivesNan)
{
    double current = 5.0;
    EXPECT_FALSE(GetNextAccuracyAngle(0.0, 100.0, current));
    EXPECT_TRUE(std::isnan(current));
}

TEST(Sgn, WithoutTolerance)
{
    EXPECT_EQ(0, sgn(0.0));
    EXPECT_EQ(0, sgn(-0.0));
    EXPECT_EQ(1, sgn(5e-324));
    EXPECT_EQ(-1, sgn(-5e-324));
    EXPECT_EQ(-1, sgn(nan));
    EXPECT_EQ(1, sgn(inf));
    EXPECT_EQ(-1, sgn(-inf));
}

TEST(Sgn, DeadBandIsOpen)
{
    EXPECT_EQ(-1, sgn(0.0, 0.0));
    EXPECT_EQ(0, sgn(0.0, 1e-9));
    EXPECT_EQ(1, sgn(1e-9, 1e-9));
    EXPECT_EQ(-1, sgn(-1e-9, 1e-9));
    EXPECT_EQ(0, sgn(std::nextafter(1e-9, 0.0), 1e-9));
    EXPECT_EQ(-1, sgn(nan, 1.0));
    EXPECT_EQ(1, sgn(2.0, nan));
}

TEST(Compare, OpenBandBesideClosedBand)
{
    EXPECT_EQ(-1, Compare(1.0, 2.0, 1.0));
    EXPECT_EQ(0, CSCompareFloats(1.0, 2.0, 1.0));
    EXPECT_EQ(1, Compare(2.0, 1.0, 1.0));
    EXPECT_EQ(0, Compare(2.0, 1.0, 1.5));
    EXPECT_EQ(1, CSCompareFloats(2.0, 1.0, 0.5));
    EXPECT_EQ(-1, CSCompareFloats(1.0, 2.0, 0.5));
}

TEST(Compare, NanFallsThroughOnDifferentSides)
{
    EXPECT_EQ(-1, Compare(nan, 1.0, 1.0));
    EXPECT_EQ(-1, Compare(1.0, nan, 1.0));
    EXPECT_EQ(1, CSCompareFloats(nan, 1.0, 1.0));
    EXPECT_EQ(1, CSCompareFloats(1.0, nan, 1.0));
    EXPECT_EQ(1, CSCompareFloats(nan, 1.0));
    EXPECT_EQ(1, CSCompareFloats(1.0, nan));
}

TEST(CSCompareFloats, BandComesFromTheFirstOperand)
{
    EXPECT_EQ(0, CSCompareFloats(0.0, 1e-8));
    EXPECT_EQ(1, CSCompareFloats(1e-8, 0.0));
}

TEST(CSCompareFloats, BandIsCapped)
{
    EXPECT_EQ(0, CSCompareFloats(1000.0, 1000.0005));
    EXPECT_EQ(-1, CSCompareFloats(1000.0, 1000.002));
    EXPECT_EQ(1, CSCompareFloats(-1000.0, -1000.002));
}

RC_GTEST_PROP(Compare, IsAntisymmetricAwayFromTheBand, (double a, double b))
{
    RC_PRE(std::fabs(a - b) > 1e-6);
    RC_ASSERT(Compare(a, b, 1e-6) == -Compare(b, a, 1e-6));
    RC_ASSERT(CSCompareFloats(a, b, 1e-6) == -CSCompareFloats(b, a, 1e-6));
}

TEST(ResolveLinear, CountsRootsAndLeavesXAlone)
{
    double x = preset;
    EXPECT_EQ(1, ResolveLinear(0.0, 0.0, x));
    EXPECT_EQ(0.0, x);
    x = preset;
    EXPECT_EQ(0, ResolveLinear(0.0, 1.0, x));
    EXPECT_EQ(preset, x);
    EXPECT_EQ(1, ResolveLinear(4.0, 2.0, x));
    EXPECT_EQ(-0.5, x);
    x = preset;
    EXPECT_EQ(0, ResolveLinear(0.0, nan, x));
    EXPECT_EQ(preset, x);
    EXPECT_EQ(1, ResolveLinear(nan, 1.0, x));
    EXPECT_TRUE(std::isnan(x));
}

TEST(ResolveQuadrat, CountsRootsAndLeavesTheOthersAlone)
{
    double x1 = preset;
    double x2 = preset;
    EXPECT_EQ(2, ResolveQuadrat(1.0, -3.0, 2.0, x1, x2));
    EXPECT_EQ(2.0, x1);
    EXPECT_EQ(1.0, x2);

    x1 = x2 = preset;
    EXPECT_EQ(1, ResolveQuadrat(1.0, 2.0, 1.0, x1, x2));
    EXPECT_EQ(-1.0, x1);
    EXPECT_EQ(preset, x2);

    x1 = x2 = preset;
    EXPECT_EQ(0, ResolveQuadrat(1.0, 0.0, 1.0, x1, x2));
    EXPECT_EQ(preset, x1);
    EXPECT_EQ(preset, x2);
}

TEST(ResolveQuadrat, DegreesBelowTwo)
{
    double x1 = preset;
    double x2 = preset;
    EXPECT_EQ(1, ResolveQuadrat(0.0, 2.0, -6.0, x1, x2));
    EXPECT_EQ(3.0, x1);
    EXPECT_EQ(preset, x2);
    EXPECT_EQ(1, ResolveQuadrat(0.0, 0.0, 0.0, x1, x2));
    EXPECT_EQ(0.0, x1);
    EXPECT_EQ(preset, x2);
    x1 = preset;
    EXPECT_EQ(0, ResolveQuadrat(0.0, 0.0, 1.0, x1, x2));
    EXPECT_EQ(preset, x1);
    EXPECT_EQ(preset, x2);
}

TEST(ResolveQuadrat, NanDiscriminantWritesBoth)
{
    double x1 = preset;
    double x2 = preset;
    EXPECT_EQ(2, ResolveQuadrat(1.0, nan, 1.0, x1, x2));
    EXPECT_TRUE(std::isnan(x1));
    EXPECT_TRUE(std::isnan(x2));
}

RC_GTEST_PROP(ResolveQuadrat, RootsOfIntegerFactorsAreExact, ())
{
    int const r = *rc::gen::inRange(-1000, 1000);
    int const s = *rc::gen::inRange(-1000, 1000);
    int const a = *rc::gen::inRange(1, 50);
    double x1 = preset;
    double x2 = preset;
    int const count = ResolveQuadrat(a, -a * (r + s), double(a) * r * s, x1, x2);
    RC_ASSERT(count == (r == s ? 1 : 2));
    RC_ASSERT(x1 == std::max(r, s));
    if (count == 2) {
        RC_ASSERT(x2 == std::min(r, s));
    }
}

} // namespace
