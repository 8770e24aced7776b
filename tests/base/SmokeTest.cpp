#include <OrvelMath/base/Accuracy3D.h>
#include <OrvelMath/base/Matrix4X4C.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
TEST(Smoke, Links)
{
    EXPECT_EQ(GetAccuracy(), 2);
}
