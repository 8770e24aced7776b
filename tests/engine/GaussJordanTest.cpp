#include "support/Bits.h"
#include <OrvelMath/engine/GaussJordan_p.h>

#include <cmath>
#include <random>

using support::SameBits;

TEST(GaussJordan, InverseTimesMatrixIsTheIdentity)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> element(-2.0, 2.0);
    for (int trial = 0; trial < 1000; ++trial) {
        double source[3][3];
        double rows[3][3];
        for (int i = 0; i < 9; ++i) {
            source[i / 3][i % 3] = rows[i / 3][i % 3] = element(random) + (i % 4 == 0 ? 6.0 : 0.0);
        }
        engine::GaussJordan<3> elimination(rows, 1e-12);
        ASSERT_TRUE(elimination.run());
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                double sum = 0.0;
                for (int k = 0; k < 3; ++k) {
                    sum += elimination.inverse()[row][k] * source[k][column];
                }
                ASSERT_NEAR(row == column ? 1.0 : 0.0, sum, 1e-12);
            }
        }
    }
}

TEST(GaussJordan, ReducesTheRowsInPlace)
{
    double rows[2][2] = {{2.0, 1.0}, {4.0, 8.0}};
    engine::GaussJordan<2> elimination(rows, 1e-9);
    ASSERT_TRUE(elimination.run());
    EXPECT_EQ(1.0, rows[0][0]);
    EXPECT_EQ(0.0, rows[0][1]);
    EXPECT_EQ(0.0, rows[1][0]);
    EXPECT_EQ(1.0, rows[1][1]);
}

TEST(GaussJordan, RepairsAZeroOnTheDiagonalByTheFirstRowThatCan)
{
    double rows[2][2] = {{0.0, 1.0}, {1.0, 0.0}};
    engine::GaussJordan<2> elimination(rows, 1e-9);
    ASSERT_TRUE(elimination.run());
    EXPECT_TRUE(SameBits(0.0, elimination.inverse()[0][0]));
    EXPECT_TRUE(SameBits(1.0, elimination.inverse()[0][1]));
    EXPECT_TRUE(SameBits(1.0, elimination.inverse()[1][0]));
    EXPECT_TRUE(SameBits(0.0, elimination.inverse()[1][1]));
}

TEST(GaussJordan, SnapsValuesBelowTheTolerance)
{
    double rows[2][2] = {{1e10, 0.0}, {0.0, 1.0}};
    engine::GaussJordan<2> elimination(rows, 1e-9);
    ASSERT_TRUE(elimination.run());
    EXPECT_TRUE(SameBits(0.0, elimination.inverse()[0][0]));

    double again[2][2] = {{1e10, 0.0}, {0.0, 1.0}};
    engine::GaussJordan<2> finer(again, 1e-12);
    ASSERT_TRUE(finer.run());
    EXPECT_TRUE(SameBits(1e-10, finer.inverse()[0][0]));
}

TEST(GaussJordan, RefusesSingularMatrices)
{
    double column[2][2] = {{0.0, 1.0}, {0.0, 1.0}};
    EXPECT_FALSE(engine::GaussJordan<2>(column, 1e-9).run());
    double rank1[2][2] = {{1.0, 1.0}, {1.0, 1.0}};
    EXPECT_FALSE(engine::GaussJordan<2>(rank1, 1e-9).run());
}
