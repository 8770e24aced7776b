#include <OrvelMath/geom3d/CutPlane.h>

#include "points.h"

#include <type_traits>
#include <utility>

namespace {

double const exampleFrame[4][4] = {
    {1.0, 2.0, 3.0, 4.0}, {5.0, 6.0, 7.0, 8.0}, {9.0, 10.0, 11.0, 12.0}, {13.0, 14.0, 15.0, 16.0}};

CutPlane freePlane()
{
    CutPlane plane(CutPlane::CutPlaneFree, 3, 2.0);
    plane.setFrame(exampleFrame);
    return plane;
}

} // namespace

TEST(CutPlane, TypesHaveTheirNumbers)
{
    EXPECT_EQ(CutPlane::CutPlaneNone, 0);
    EXPECT_EQ(CutPlane::CutPlaneX, 1);
    EXPECT_EQ(CutPlane::CutPlaneY, 2);
    EXPECT_EQ(CutPlane::CutPlaneZ, 3);
    EXPECT_EQ(CutPlane::CutPlaneFree, 4);
}

TEST(CutPlane, DefaultIsNoPlane)
{
    CutPlane const plane;
    EXPECT_EQ(plane.type, CutPlane::CutPlaneNone);
    EXPECT_EQ(plane.direction, 0);
    EXPECT_EQ(plane.distance, 0.0);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(plane.frame[row][column], row == column ? 1.0 : 0.0);
        }
    }
    EXPECT_EQ(plane.getPosition(), Point3D());
    EXPECT_EQ(plane.getNormal(), Point3D());
}

TEST(CutPlane, AxisPlanesMultiplyDirectionAndDistance)
{
    CutPlane const x(CutPlane::CutPlaneX, -1, 2.5);
    EXPECT_EQ(x.getPosition(), Point3D(-2.5, 0.0, 0.0));
    EXPECT_EQ(x.getNormal(), Point3D(-1.0, 0.0, 0.0));
    CutPlane const y(CutPlane::CutPlaneY, 2, 2.5);
    EXPECT_EQ(y.getPosition(), Point3D(0.0, 5.0, 0.0));
    EXPECT_EQ(y.getNormal(), Point3D(0.0, 2.0, 0.0));
    CutPlane const z(CutPlane::CutPlaneZ, 1, -2.5);
    EXPECT_EQ(z.getPosition(), Point3D(0.0, 0.0, -2.5));
    EXPECT_EQ(z.getNormal(), Point3D(0.0, 0.0, 1.0));
}

TEST(CutPlane, FreePlaneReadsTheFrame)
{
    CutPlane const plane = freePlane();
    EXPECT_EQ(plane.getPosition(), Point3D(4.0, 8.0, 12.0));
    EXPECT_EQ(plane.getNormal(), Point3D(2.0, 6.0, 10.0));
    CutPlane const identity(CutPlane::CutPlaneFree, 0, 0.0);
    EXPECT_EQ(identity.getPosition(), Point3D());
    EXPECT_EQ(identity.getNormal(), Point3D(0.0, 1.0, 0.0));
}

TEST(CutPlane, NoPlaneStaysAtTheOriginWhateverIsSet)
{
    CutPlane none(CutPlane::CutPlaneNone, 2, 3.0);
    none.setFrame(exampleFrame);
    EXPECT_EQ(none.getPosition(), Point3D());
    EXPECT_EQ(none.getNormal(), Point3D());
    CutPlane const unknown(static_cast<CutPlane::CutPlaneType>(7), 2, 3.0);
    EXPECT_EQ(unknown.getPosition(), Point3D());
    EXPECT_EQ(unknown.getNormal(), Point3D());
}

TEST(CutPlane, EqualityComparesEveryField)
{
    CutPlane const plane(CutPlane::CutPlaneX, 1, 2.0);
    EXPECT_TRUE(plane == CutPlane(CutPlane::CutPlaneX, 1, 2.0));
    EXPECT_FALSE(plane == CutPlane(CutPlane::CutPlaneY, 1, 2.0));
    EXPECT_FALSE(plane == CutPlane(CutPlane::CutPlaneX, -1, 2.0));
    EXPECT_FALSE(plane == CutPlane(CutPlane::CutPlaneX, 1, 2.0 + 1e-15));
}

TEST(CutPlane, EqualityComparesFramesWithATolerance)
{
    CutPlane const plane(CutPlane::CutPlaneX, 1, 2.0);
    for (int cell = 0; cell < 16; ++cell) {
        CutPlane other(plane);
        double &element = other.frame[cell / 4][cell % 4];
        double const value = element;
        element = value + 0.00009;
        EXPECT_TRUE(plane == other) << cell;
        element = value + 0.001;
        EXPECT_FALSE(plane == other) << cell;
    }
    CutPlane zero(plane); // the tolerance itself is too much
    zero.frame[0][1] = 0.0001;
    EXPECT_FALSE(plane == zero);
}

TEST(CutPlane, NanEqualsNothing)
{
    CutPlane const distant(CutPlane::CutPlaneX, 1, notANumber);
    EXPECT_FALSE(distant == distant);
    CutPlane framed;
    framed.frame[3][3] = notANumber;
    EXPECT_FALSE(framed == framed);
    EXPECT_TRUE(std::isnan(distant.getPosition().x()));
}

TEST(CutPlane, CopiesAndMovesMemberwise)
{
    CutPlane const plane = freePlane();
    CutPlane copy(plane);
    EXPECT_TRUE(copy == plane);
    CutPlane moved(std::move(copy));
    EXPECT_TRUE(moved == plane);
    CutPlane assigned;
    assigned = plane;
    EXPECT_TRUE(assigned == plane);
    CutPlane moveAssigned;
    moveAssigned = std::move(moved);
    EXPECT_TRUE(moveAssigned == plane);
    moveAssigned.frame[0][3] = 99.0;
    EXPECT_EQ(plane.frame[0][3], 4.0);
}

TEST(CutPlane, FrameMaySetItself)
{
    CutPlane plane = freePlane();
    plane.setFrame(plane.frame);
    EXPECT_EQ(plane.getPosition(), Point3D(4.0, 8.0, 12.0));
}
