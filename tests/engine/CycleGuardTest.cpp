#include "support/Bits.h"

#include <OrvelMath/engine/CycleGuard_p.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// How many states the guard takes in before it answers yes: a way in of `tail` states, then
/// `circle` states again and again.
int stepsUntilNoticed(int tail, int circle)
{
    engine::CycleGuard<int> guard;
    for (int step = 0; step < 100 * (tail + circle); ++step) {
        int const state = step < tail ? step : tail + (step - tail) % circle;
        if (guard.comesAgain(state)) {
            return step;
        }
    }
    return -1;
}

} // namespace

TEST(CycleGuard, NoticesEveryCircleWithinThreeTimesItsWay)
{
    for (int tail = 0; tail < 40; ++tail) {
        for (int circle = 1; circle < 40; ++circle) {
            int const steps = stepsUntilNoticed(tail, circle);
            ASSERT_GE(steps, tail + circle) << tail << " " << circle;
            ASSERT_LE(steps, 3 * (tail + circle)) << tail << " " << circle;
        }
    }
}

TEST(CycleGuard, MarksTheFirstSecondAndFourthState)
{
    // The marks decide at which state of the circle a walk stops.
    EXPECT_EQ(1, stepsUntilNoticed(0, 1));
    EXPECT_EQ(3, stepsUntilNoticed(0, 2));
    EXPECT_EQ(6, stepsUntilNoticed(0, 3));
    EXPECT_EQ(7, stepsUntilNoticed(0, 4));
}

TEST(CycleGuard, SaysNothingOfASequenceThatNeverRepeats)
{
    engine::CycleGuard<int> guard;
    for (int state = 0; state < 100000; ++state) {
        ASSERT_FALSE(guard.comesAgain(state));
    }
}

TEST(CycleGuard, DoesNotTakeItsEmptyMemoryForAState)
{
    engine::CycleGuard<int> guard;
    EXPECT_FALSE(guard.comesAgain(0));
    EXPECT_TRUE(guard.comesAgain(0));
}

TEST(CycleGuard, AsksTheGivenComparison)
{
    struct SameNumber
    {
        bool operator()(double a, double b) const
        {
            return a == b || (std::isnan(a) && std::isnan(b));
        }
    };
    engine::CycleGuard<double, SameNumber> guard;
    EXPECT_FALSE(guard.comesAgain(support::nan));
    EXPECT_TRUE(guard.comesAgain(support::nan));
}
