#include "support/Bits.h"
#include <OrvelMath/engine/Lanes_p.h>
#include <OrvelMath/engine/Pair_p.h>

#include <array>
#include <cmath>

namespace {

using support::inf;
using support::SameBits;

template <int W>
struct Width
{
    static constexpr int value = W;
};

template <typename W>
class LanesOfDoubles : public testing::Test
{
public:
    static constexpr int width = W::value;
    using L = engine::Lanes<double, width>;
    using Vector = typename L::Vector;

    static std::array<double, width> numbers(double first)
    {
        std::array<double, width> values;
        for (int i = 0; i < width; ++i) {
            values[std::size_t(i)] = first + i;
        }
        return values;
    }

    static void expectLanes(std::array<double, width> const &expected, Vector const &actual)
    {
        for (int i = 0; i < width; ++i) {
            EXPECT_TRUE(SameBits(expected[std::size_t(i)], actual[i])) << "lane " << i;
        }
    }
};

using Widths = testing::Types<Width<2>, Width<4>, Width<8>>;
TYPED_TEST_SUITE(LanesOfDoubles, Widths);

} // namespace

TYPED_TEST(LanesOfDoubles, LoadAndStoreKeepTheOrderWithoutAlignment)
{
    constexpr int W = TestFixture::width;
    double memory[2 * W + 1];
    for (int i = 0; i < 2 * W + 1; ++i) {
        memory[i] = i;
    }
    typename TestFixture::Vector v;
    TestFixture::L::load(v, memory + 1);
    TestFixture::expectLanes(TestFixture::numbers(1.0), v);
    TestFixture::L::store(memory + W, v);
    EXPECT_EQ(1.0, memory[W]);
    EXPECT_EQ(double(W), memory[2 * W - 1]);
    EXPECT_EQ(double(2 * W), memory[2 * W]);
}

TYPED_TEST(LanesOfDoubles, LoadEveryTakesTheStep)
{
    constexpr int W = TestFixture::width;
    double memory[4 * W];
    for (int i = 0; i < 4 * W; ++i) {
        memory[i] = i;
    }
    typename TestFixture::Vector v;
    TestFixture::L::template loadEvery<4>(v, memory);
    for (int i = 0; i < W; ++i) {
        EXPECT_EQ(4.0 * i, v[i]);
    }
}

TYPED_TEST(LanesOfDoubles, TransposeExchangesRowsAndLanes)
{
    constexpr int W = TestFixture::width;
    typename TestFixture::Vector rows[W];
    for (int r = 0; r < W; ++r) {
        for (int c = 0; c < W; ++c) {
            rows[r][c] = 10.0 * r + c;
        }
    }
    TestFixture::L::transpose(rows);
    for (int r = 0; r < W; ++r) {
        for (int c = 0; c < W; ++c) {
            EXPECT_EQ(10.0 * c + r, rows[r][c]);
        }
    }
}

TYPED_TEST(LanesOfDoubles, MagnitudeClearsEverySign)
{
    constexpr int W = TestFixture::width;
    double const samples[] = {-0.0, -3.5, inf, -inf, 0.0, -5e-324, 7.0, -support::nan};
    typename TestFixture::Vector v, positive;
    for (int i = 0; i < W; ++i) {
        v[i] = samples[i];
    }
    TestFixture::L::magnitude(positive, v);
    for (int i = 0; i < W; ++i) {
        EXPECT_TRUE(SameBits(std::fabs(samples[i]), positive[i]));
        EXPECT_FALSE(std::signbit(positive[i]));
    }
}

TYPED_TEST(LanesOfDoubles, KeepWhereGivesPlusZeroElsewhere)
{
    constexpr int W = TestFixture::width;
    typename TestFixture::Vector v, kept;
    TestFixture::L::broadcast(v, -2.0);
    v[W - 1] = support::nan;
    TestFixture::L::keepWhere(kept, v < 0.0, v);
    EXPECT_TRUE(SameBits(-2.0, kept[0]));
    EXPECT_TRUE(SameBits(0.0, kept[W - 1]));
}

TYPED_TEST(LanesOfDoubles, AnyAsksEachLane)
{
    constexpr int W = TestFixture::width;
    for (int lane = 0; lane < W; ++lane) {
        typename TestFixture::Vector v = {};
        EXPECT_FALSE(TestFixture::L::any(v > 0.0));
        v[lane] = 1.0;
        EXPECT_TRUE(TestFixture::L::any(v > 0.0));
    }
}

TEST(Pair, LesserAndGreaterTakeTheSecondWhereOneIsNaN)
{
    engine::Pair const a{support::nan, 1.0};
    engine::Pair const b{2.0, support::nan};
    EXPECT_TRUE(SameBits(2.0, engine::lesserOr(a, b)[0]));
    EXPECT_TRUE(SameBits(support::nan, engine::lesserOr(a, b)[1]));
    EXPECT_TRUE(SameBits(2.0, engine::greaterOr(a, b)[0]));
    EXPECT_TRUE(SameBits(support::nan, engine::greaterOr(a, b)[1]));
}

TEST(Pair, LesserOfTwoZerosIsTheSecond)
{
    EXPECT_TRUE(SameBits(-0.0, engine::lesserOr(engine::pairOf(0.0), engine::pairOf(-0.0))[0]));
    EXPECT_TRUE(SameBits(0.0, engine::greaterOr(engine::pairOf(-0.0), engine::pairOf(0.0))[1]));
}

TEST(Pair, AnswerBitsNumberTheLanes)
{
    EXPECT_EQ(0, engine::answerBits(engine::PairMask{0, 0}));
    EXPECT_EQ(1, engine::answerBits(engine::PairMask{-1, 0}));
    EXPECT_EQ(2, engine::answerBits(engine::PairMask{0, -1}));
    EXPECT_EQ(3, engine::answerBits(engine::PairMask{-1, -1}));
}

TEST(Pair, SignsTurnLaneByLane)
{
    engine::Pair const a{1.0, 2.0};
    EXPECT_EQ(1.0, engine::negatedWhere(engine::PairMask{0, -1}, a)[0]);
    EXPECT_EQ(-2.0, engine::negatedWhere(engine::PairMask{0, -1}, a)[1]);
    EXPECT_EQ(-1.0, engine::turnedBySign(engine::Pair{-0.0, 5.0}, a)[0]);
    EXPECT_EQ(2.0, engine::turnedBySign(engine::Pair{-0.0, 5.0}, a)[1]);
}

TEST(Pair, CrossProductStandsInBothLanes)
{
    engine::Pair const cross = engine::crossProduct(engine::Pair{3.0, 4.0}, engine::Pair{5.0, 7.0});
    EXPECT_EQ(1.0, cross[0]);
    EXPECT_EQ(1.0, cross[1]);
}

TEST(Pair, PicksLanesByPlace)
{
    engine::Pair const a{1.0, 2.0};
    engine::Pair const b{3.0, 4.0};
    EXPECT_EQ(1.0, engine::firsts(a, b)[0]);
    EXPECT_EQ(3.0, engine::firsts(a, b)[1]);
    EXPECT_EQ(2.0, engine::seconds(a, b)[0]);
    EXPECT_EQ(4.0, engine::seconds(a, b)[1]);
    EXPECT_EQ(2.0, engine::exchanged(a)[0]);
    EXPECT_EQ(1.0, engine::exchanged(a)[1]);
    EXPECT_EQ(7.0, engine::sumOf(b));
    EXPECT_EQ(12.0, engine::productOf(b));
}
