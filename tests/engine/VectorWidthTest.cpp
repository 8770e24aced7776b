#include <OrvelMath/engine/vectorWidth_p.h>

#include <gtest/gtest.h>

namespace {

class VectorWidth : public testing::Test
{
protected:
    void TearDown() override { engine::limitVectorWidth(m_before); }

    int const m_before = engine::vectorWidth();
};

} // namespace

TEST_F(VectorWidth, IsAWidthThatTheCodeIsWrittenFor)
{
    EXPECT_TRUE(m_before == 2 || m_before == 4 || m_before == 8) << m_before;
}

TEST_F(VectorWidth, LimitLowersTheAnswer)
{
    EXPECT_EQ(2, engine::limitVectorWidth(2));
    EXPECT_EQ(2, engine::vectorWidth());
}

TEST_F(VectorWidth, LimitOfAnyOtherNumberIsTheNextLowerWidth)
{
    EXPECT_EQ(2, engine::limitVectorWidth(-1));
    EXPECT_EQ(2, engine::limitVectorWidth(3));
    EXPECT_LE(engine::limitVectorWidth(7), 4);
}

TEST_F(VectorWidth, LimitNeverRaisesAboveTheProcessor)
{
    int const processor = engine::limitVectorWidth(8);
    EXPECT_EQ(processor, engine::limitVectorWidth(1000));
    EXPECT_LE(engine::limitVectorWidth(4), processor);
}
