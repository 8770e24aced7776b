#include "support/Bits.h"
#include <OrvelMath/engine/angles_p.h>

#include <random>

using support::SameBits;

TEST(Angles, ConvertWholeTurns)
{
    EXPECT_TRUE(SameBits(engine::pi, engine::degreesTimesPiBy180(180.0)));
    EXPECT_TRUE(SameBits(engine::pi, engine::degreesTimesFactor(180.0)));
    EXPECT_TRUE(SameBits(180.0, engine::radiansByFactor(engine::pi)));
    EXPECT_TRUE(SameBits(180.0, engine::radiansTimes180ByPi(engine::pi)));
    EXPECT_TRUE(SameBits(180.0, engine::radiansByPiTimes180(engine::pi)));
}

TEST(Angles, OrdersDifferInTheLastBit)
{
    // One function for all would move the results of the others.
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> degrees(0.0, 360.0);
    int toRadians = 0;
    int toDegreesByFactor = 0;
    int toDegreesDividedFirst = 0;
    for (int i = 0; i < 10000; ++i) {
        double const angle = degrees(random);
        double const radians = engine::degreesTimesPiBy180(angle);
        toRadians += radians != engine::degreesTimesFactor(angle);
        toDegreesByFactor +=
            engine::radiansTimes180ByPi(radians) != engine::radiansByFactor(radians);
        toDegreesDividedFirst +=
            engine::radiansTimes180ByPi(radians) != engine::radiansByPiTimes180(radians);
        ASSERT_NEAR(radians, engine::degreesTimesFactor(angle), 1e-15 * angle);
        ASSERT_NEAR(angle, engine::radiansByFactor(radians), 1e-12);
        ASSERT_NEAR(angle, engine::radiansByPiTimes180(radians), 1e-12);
    }
    EXPECT_GT(toRadians, 100);
    EXPECT_GT(toDegreesByFactor, 100);
    EXPECT_GT(toDegreesDividedFirst, 100);
}
