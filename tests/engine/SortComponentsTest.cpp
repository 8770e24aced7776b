#include "support/Bits.h"
#include <OrvelMath/base/valueTypes.h>
#include <OrvelMath/engine/sortComponents_p.h>

#include <algorithm>

using support::SameBits;

TEST(SortComponents, SortsEveryOrderAndItsColumns)
{
    int order[3] = {0, 1, 2};
    do {
        vectorC3d<double> alone(order[0], order[1], order[2]);
        vectorC3d<double> v = alone;
        matrixC3x3<double> m;
        for (int column = 0; column < 3; ++column) {
            m.setAxis(column, vectorC3d<double>(order[column], 10.0 + order[column], -1.0));
        }
        engine::sortComponents(alone);
        engine::sortComponents(v, m);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(double(i), alone[i]);
            EXPECT_EQ(double(i), v[i]);
            EXPECT_EQ(double(i), m(0, i));
            EXPECT_EQ(10.0 + i, m(1, i));
        }
    } while (std::next_permutation(order, order + 3));
}

TEST(SortComponents, NaNStaysWhereNothingPassesIt)
{
    vectorC3d<double> v(3.0, support::nan, 1.0);
    engine::sortComponents(v);
    EXPECT_TRUE(SameBits(3.0, v[0]));
    EXPECT_TRUE(SameBits(support::nan, v[1]));
    EXPECT_TRUE(SameBits(1.0, v[2]));
}
