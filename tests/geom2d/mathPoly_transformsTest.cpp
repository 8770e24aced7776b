#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/mathPoly.h>

namespace {

using mathPoly::Conic;
using mathPoly::Ellipse;
using mathPoly::Point;
using mathPoly::TMat;

/// A point of the ellipse at a parameter in radians.
Point2D pointOf(Ellipse const &e, double t)
{
    double const u = e.a * std::cos(t);
    double const v = e.b * std::sin(t);
    return Point2D(std::cos(e.angle) * u - std::sin(e.angle) * v + e.cx,
                   std::sin(e.angle) * u + std::cos(e.angle) * v + e.cy);
}

double degreesOf(double angle)
{
    return Ellipse(Point2D(0, 0), angle, 1, 1).angle;
}

TEST(EllipseAngle, IsReducedByFullTurnsAndStoredInRadians)
{
    EXPECT_EQ(degreesOf(90), 90 * pi / 180);
    EXPECT_EQ(degreesOf(0), 0);
    EXPECT_EQ(degreesOf(360), 360 * pi / 180);
    EXPECT_EQ(degreesOf(720), 360 * pi / 180);
    EXPECT_EQ(degreesOf(361.5), 1.5 * pi / 180);
    EXPECT_EQ(degreesOf(-90), 270 * pi / 180);
    EXPECT_EQ(degreesOf(-360), 0);
    EXPECT_FALSE(std::signbit(degreesOf(-720)));
    EXPECT_EQ(degreesOf(-1e-20), 360 * pi / 180);
    EXPECT_TRUE(std::isnan(degreesOf(nan64)));
    EXPECT_TRUE(std::isnan(degreesOf(inf)));
    EXPECT_TRUE(std::isnan(degreesOf(-inf)));
    EXPECT_LE(degreesOf(1e300), 360 * pi / 180);
}

RC_GTEST_PROP(EllipseAngleProperty, EqualsRepeatedSubtraction, ())
{
    double const start = anyNumber(100000) / 7.0;
    double angle = start;
    while (angle > 360) {
        angle -= 360;
    }
    while (angle < 0) {
        angle += 360;
    }
    RC_ASSERT(degreesOf(start) == angle * pi / 180);
}

TEST(EllipseFields, ComeFromTheConstructors)
{
    Ellipse const e(Point2D(1, 2), 30, 4, 3);
    EXPECT_EQ(e.cx, 1);
    EXPECT_EQ(e.cy, 2);
    EXPECT_EQ(e.a, 4);
    EXPECT_EQ(e.b, 3);
    Ellipse c(Point2D(5, 6), 7);
    EXPECT_EQ(c.a, 7);
    EXPECT_EQ(c.b, 7);
    EXPECT_EQ(c.angle, 0);
    c = e;
    EXPECT_EQ(c.angle, 30 * pi / 180);
}

TEST(ConicOfEllipse, AxisParallel)
{
    Conic const q(Ellipse(Point2D(1, 2), 0, 2, 1));
    EXPECT_EQ(q.A, 0.25);
    EXPECT_EQ(q.B, 0);
    EXPECT_EQ(q.C, 1);
    EXPECT_EQ(q.D, -0.25);
    EXPECT_EQ(q.E, -2);
    EXPECT_EQ(q.F, 3.25);
    Conic const centred = Conic::centred(Ellipse(Point2D(1, 2), 0, 2, 1));
    EXPECT_EQ(centred.A, 0.25);
    EXPECT_EQ(centred.D, 0);
    EXPECT_EQ(centred.E, 0);
    EXPECT_EQ(centred.F, -1);
}

RC_GTEST_PROP(ConicOfEllipseProperty, VanishesOnTheEllipseAndIsMinusOneAtTheCentre, ())
{
    Ellipse const e(anyPoint(10), anyNumber(400), 0.1 + anyPositive(5), 0.1 + anyPositive(5));
    Conic const q(e);
    double const size = 1e-13 / (std::min(e.a, e.b) * std::min(e.a, e.b)) * 1000;
    requireNear(valueAt(q, e.cx, e.cy), -1, size);
    for (int i = 0; i < 8; ++i) {
        Point2D const p = pointOf(e, i);
        requireNear(valueAt(q, p.x(), p.y()), 0, size);
    }
}

TEST(TMatrixOfPlane, ATurnTakesThePresentMapAlong)
{
    // All six members of the map before the turn differ, and a quarter turn carries each over.
    TMat m{2, 3, 5, 7, 11, 13};
    m.rotate(pi / 2);
    EXPECT_NEAR(-3, m.m00, 1e-14);
    EXPECT_NEAR(2, m.m10, 1e-14);
    EXPECT_NEAR(-7, m.m01, 1e-14);
    EXPECT_NEAR(5, m.m11, 1e-14);
    EXPECT_NEAR(-13, m.tx, 1e-14);
    EXPECT_NEAR(11, m.ty, 1e-14);
}

TEST(TMatrixOfPlane, TwoTurnsAddUp)
{
    TMat twice{2, 3, 5, 7, 11, 13};
    TMat once = twice;
    twice.rotate(0.4);
    twice.rotate(0.7);
    once.rotate(1.1);
    Point p{1, -2};
    Point q = p;
    twice.apply(p);
    once.apply(q);
    EXPECT_NEAR(q.x, p.x, 1e-13);
    EXPECT_NEAR(q.y, p.y, 1e-13);
}

TEST(TMatrixOfPlane, StepsFollowOneAnother)
{
    TMat m;
    Point p{3, 4};
    m.apply(p);
    EXPECT_EQ(p.x, 3);
    EXPECT_EQ(p.y, 4);
    m.translate(-1, -2);
    m.rotate(pi / 2);
    m.scale(2, 10);
    m.apply(p); // (2, 2), then (-2, 2), then (-4, 20)
    EXPECT_NEAR(p.x, -4, 1e-14);
    EXPECT_NEAR(p.y, 20, 1e-14);
}

RC_GTEST_PROP(UnitToEllipseProperty, MapsTheUnitCircleOntoTheEllipse, ())
{
    Ellipse const e(anyPoint(10), anyNumber(400), anyPositive(5), anyPositive(5));
    TMat const m = mathPoly::unitToEllipse(e);
    for (int i = 0; i < 8; ++i) {
        Point p{std::cos(i), std::sin(i)};
        m.apply(p);
        requireNear(distanceOf(Point2D(p.x, p.y), pointOf(e, i)), 0, 1e-12);
    }
}

TEST(EllipseOfCentred, LongAxisComesFirst)
{
    Ellipse const e = mathPoly::ellipseOfCentred(Conic(1, 0, 0.25, 0, 0, -1)); // high
    EXPECT_NEAR(e.a, 2, 1e-15);
    EXPECT_NEAR(e.b, 1, 1e-15);
    EXPECT_NEAR(std::fabs(std::sin(e.angle)), 1, 1e-15);
    Ellipse const wide = mathPoly::ellipseOfCentred(Conic(0.25, 0, 1, 0, 0, -1));
    EXPECT_EQ(wide.a, 2);
    EXPECT_EQ(wide.angle, 0);
    EXPECT_TRUE(std::isnan(mathPoly::ellipseOfCentred(Conic(1, 0, 1, 0, 0, -1)).angle));
}

TEST(TransformCentred, DividesByTheSquaredDeterminant)
{
    TMat m;
    m.scale(2, 3);
    Conic const q = mathPoly::transformCentred(Conic(1, 0.5, 1, 0, 0, -1), m);
    EXPECT_EQ(q.A, 0.25);
    EXPECT_EQ(q.B, 0.5 / 6);
    EXPECT_EQ(q.C, 1.0 / 9);
    EXPECT_EQ(q.F, -1);
}

RC_GTEST_PROP(TransformEllipseProperty, CarriesThePointsAlong, ())
{
    Ellipse const e(anyPoint(10), anyNumber(400), 1 + anyPositive(3), 1 + anyPositive(3));
    TMat m;
    m.scale(0.5 + anyPositive(2), 0.5 + anyPositive(2));
    m.rotate(anyNumber(3));
    m.scale(0.5 + anyPositive(2), 0.5 + anyPositive(2));
    m.translate(anyNumber(5), anyNumber(5));
    Ellipse const image = mathPoly::transformEllipse(e, m);
    RC_PRE(image.a > 1.001 * image.b);
    Conic const q(image);
    for (int i = 0; i < 8; ++i) {
        Point2D const p = pointOf(e, i);
        Point mapped{p.x(), p.y()};
        m.apply(mapped);
        requireNear(valueAt(q, mapped.x, mapped.y), 0, 1e-9);
    }
}

} // namespace
