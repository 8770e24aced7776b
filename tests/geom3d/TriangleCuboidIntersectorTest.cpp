#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

using namespace MatUtil;

namespace {

using Vector = vectorC3d<double>;

constexpr int full = 3; // a split axis that asks for every test
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct Triangle
{
    Vector a, b, c;
};

struct Box
{
    Vector lo, hi;
};

const Box unitBox{Vector(0, 0, 0), Vector(1, 1, 1)};

TriangleCuboidIntersectionType
classify(Triangle const &t, Box const &box, int axis = full,
         TriangleCuboidIntersectionType parent = TriangleCuboidDisjoint)
{
    return TriangleCuboidIntersector(t.a, t.b, t.c).intersect(box.lo, box.hi, axis, parent);
}

bool meets(Triangle const &t, Box const &box)
{
    return triangleIntersectsCuboid(t.a, t.b, t.c, box.lo, box.hi);
}

// The triangle with its coordinates moved round by `turn` places: x to y to z to x.
Vector turned(Vector const &v, int turn)
{
    Vector r;
    for (int q = 0; q < 3; ++q) {
        r[(q + turn) % 3] = v[q];
    }
    return r;
}

Triangle turned(Triangle const &t, int turn)
{
    return {turned(t.a, turn), turned(t.b, turn), turned(t.c, turn)};
}

Box half(Box const &box, int axis, int side)
{
    Box child = box;
    double const m = (box.lo[axis] + box.hi[axis]) * 0.5;
    (side == 0 ? child.hi : child.lo)[axis] = m;
    return child;
}

} // namespace

TEST(TriangleCuboid, EnumeratorsHaveTheirNumbers)
{
    EXPECT_EQ(int(TriangleCuboidDisjoint), 0);
    EXPECT_EQ(int(TriangleCuboidContainsCentroid), 1);
    EXPECT_EQ(int(TriangleCuboidOverlap), 2);
    EXPECT_EQ(sizeof(TriangleCuboidIntersector), 10 * sizeof(Vector));
}

TEST(TriangleCuboid, TriangleInsideContainsCentroidWhateverTheAxis)
{
    const Triangle t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
    EXPECT_TRUE(meets(t, unitBox));
    for (int axis : {-1, 0, 1, 2, 3, 1000}) {
        for (auto parent :
             {TriangleCuboidDisjoint, TriangleCuboidContainsCentroid, TriangleCuboidOverlap}) {
            EXPECT_EQ(classify(t, unitBox, axis, parent), TriangleCuboidContainsCentroid);
        }
    }
}

TEST(TriangleCuboid, BoxInsideALargeTriangleOverlaps)
{
    const Triangle t{Vector(-9, -10, 0.5), Vector(30, -10, 0.5), Vector(-9, 40, 0.5)};
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_TRUE(meets(turned(t, turn), unitBox));
        EXPECT_EQ(classify(turned(t, turn), unitBox), TriangleCuboidOverlap);
    }
}

TEST(TriangleCuboid, OneVertexOnAFaceTouches)
{
    const Triangle above{Vector(0.5, 0.25, 1), Vector(3, 0.5, 2), Vector(0.5, 3, 2)};
    const Triangle below{Vector(0.5, 0.25, 0), Vector(3, 0.5, -2), Vector(0.5, 3, -2)};
    for (int turn = 0; turn < 3; ++turn) {
        for (Triangle const &t : {turned(above, turn), turned(below, turn)}) {
            EXPECT_TRUE(meets(t, unitBox));
            EXPECT_EQ(classify(t, unitBox), TriangleCuboidOverlap);
        }
    }
}

TEST(TriangleCuboid, OneVertexBesideAFaceIsDisjoint)
{
    double const next = std::nextafter(1.0, 2.0);
    const Triangle t{Vector(0.5, 0.25, next), Vector(3, 0.5, 2), Vector(0.5, 3, 2)};
    EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
    const Triangle clear{Vector(0.5, 0.25, 1.0625), Vector(3, 0.5, 2), Vector(0.5, 3, 2)};
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_FALSE(meets(turned(clear, turn), unitBox));
        EXPECT_EQ(classify(turned(clear, turn), unitBox), TriangleCuboidDisjoint);
    }
}

TEST(TriangleCuboid, EdgeThroughTheBoxCornerTouches)
{
    // The edge from (2,0,1) to (0,2,1) touches the vertical edge's upper end (1,1,1).
    const Triangle t{Vector(2, 0, 1), Vector(0, 2, 1), Vector(2, 2, 3)};
    const Triangle beside{Vector(2.125, 0, 1), Vector(0, 2.125, 1), Vector(2, 2, 3)};
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_TRUE(meets(turned(t, turn), unitBox));
        EXPECT_EQ(classify(turned(t, turn), unitBox), TriangleCuboidOverlap);
        EXPECT_FALSE(meets(turned(beside, turn), unitBox));
        EXPECT_EQ(classify(turned(beside, turn), unitBox), TriangleCuboidDisjoint);
    }
}

TEST(TriangleCuboid, PlaneBesideTheBoxSeparates)
{
    // In the plane x + y + z = 3 + s, over the corner (1, 1, 1): only the plane test can tell.
    auto const slanted = [](double s) {
        return Triangle{Vector(23 + s, -10, -10), Vector(-9, 21 + s, -9), Vector(-3, -3, 9 + s)};
    };
    EXPECT_EQ(classify(slanted(0), unitBox), TriangleCuboidOverlap);
    EXPECT_TRUE(meets(slanted(0), unitBox));
    EXPECT_EQ(classify(slanted(0.0625), unitBox), TriangleCuboidDisjoint);
    EXPECT_FALSE(meets(slanted(0.0625), unitBox));
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(classify(slanted(0), unitBox, axis, TriangleCuboidOverlap),
                  TriangleCuboidOverlap);
        EXPECT_EQ(classify(slanted(0.0625), unitBox, axis, TriangleCuboidOverlap),
                  TriangleCuboidDisjoint);
    }
}

TEST(TriangleCuboid, PlaneTestHoldsForEitherOrientation)
{
    // The mirrored normal takes the other branch of the corner choice.
    const Triangle t{Vector(9.0625, -3, -3), Vector(-3, -3, 9.0625), Vector(-3, 9.0625, -3)};
    EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
    EXPECT_FALSE(meets(t, unitBox));
    const Triangle under{Vector(-6.0625, 3, 3), Vector(3, -6.0625, 3), Vector(3, 3, -6.0625)};
    EXPECT_EQ(classify(under, unitBox), TriangleCuboidDisjoint);
    EXPECT_FALSE(meets(under, unitBox));
}

TEST(TriangleCuboid, CentroidOnAFaceIsContained)
{
    // Centroid (1, 0.5, 0.5), on the face x = 1.
    const Triangle t{Vector(0, 0.5, 0.5), Vector(1.5, 0, 0), Vector(1.5, 1, 1)};
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(classify(turned(t, turn), unitBox), TriangleCuboidContainsCentroid);
        EXPECT_EQ(classify(turned(t, turn),
                           Box{turned(Vector(1, 0, 0), turn), turned(Vector(2, 1, 1), turn)}),
                  TriangleCuboidContainsCentroid);
    }
}

TEST(TriangleCuboid, ChildOfACentroidParentIsOneOnlyWithTheCentroid)
{
    // Centroid x = 0.25. The upper halves are missed or merely overlapped.
    const Triangle small{Vector(0.125, 0.25, 0.25), Vector(0.25, 0.375, 0.25),
                         Vector(0.375, 0.125, 0.25)};
    const Triangle large{Vector(0, 0.25, 0.25), Vector(0, 0.375, 0.25), Vector(0.75, 0.125, 0.25)};
    for (int turn = 0; turn < 3; ++turn) {
        ASSERT_EQ(classify(turned(small, turn), unitBox), TriangleCuboidContainsCentroid);
        const Box upper = half(unitBox, turn, 1);
        EXPECT_EQ(classify(turned(small, turn), upper, turn, TriangleCuboidContainsCentroid),
                  TriangleCuboidDisjoint);
        EXPECT_EQ(classify(turned(large, turn), upper, turn, TriangleCuboidContainsCentroid),
                  TriangleCuboidOverlap);
        EXPECT_EQ(classify(turned(large, turn), half(unitBox, turn, 0), turn,
                           TriangleCuboidContainsCentroid),
                  TriangleCuboidContainsCentroid);
    }
}

TEST(TriangleCuboid, CentroidParentLimitsTheCentroidTestToTheSplitAxis)
{
    // Outside the parent in the two other coordinates, which breaks the condition: the reduced
    // test does not look there.
    const Triangle t{Vector(0.5, 5, 5), Vector(0.5, 6, 5), Vector(0.5, 5, 6)};
    for (int axis = 0; axis < 3; ++axis) {
        const Triangle u = turned(t, axis);
        EXPECT_EQ(classify(u, unitBox), TriangleCuboidDisjoint);
        EXPECT_EQ(classify(u, unitBox, axis, TriangleCuboidContainsCentroid),
                  TriangleCuboidContainsCentroid);
        EXPECT_NE(classify(u, unitBox, axis, TriangleCuboidOverlap),
                  TriangleCuboidContainsCentroid);
        EXPECT_NE(classify(u, unitBox, (axis + 1) % 3, TriangleCuboidContainsCentroid),
                  TriangleCuboidContainsCentroid);
    }
}

TEST(TriangleCuboid, ReducedTestsSkipTheAxesCrossedWithTheSplitAxis)
{
    // The point (0.5, 5, 0.5) as a triangle: ranges alone can separate it, and a split along x or z
    // leaves the range of y untested.
    Vector const p(0.5, 5, 0.5);
    const Triangle point{p, p, p};
    EXPECT_EQ(classify(point, unitBox), TriangleCuboidDisjoint);
    EXPECT_EQ(classify(point, unitBox, 0, TriangleCuboidOverlap), TriangleCuboidOverlap);
    EXPECT_EQ(classify(point, unitBox, 1, TriangleCuboidOverlap), TriangleCuboidDisjoint);
    EXPECT_EQ(classify(point, unitBox, 2, TriangleCuboidOverlap), TriangleCuboidOverlap);

    // A triangle in x = 0.5 whose slanted edge passes the box: only X x edge separates it, and a
    // split along x leaves that out.
    const Triangle slanted{Vector(0.5, 2.5, 0), Vector(0.5, 0, 2.5), Vector(0.5, 3, 3)};
    for (int turn = 0; turn < 3; ++turn) {
        const Triangle t = turned(slanted, turn);
        EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
        EXPECT_EQ(classify(t, unitBox, turn, TriangleCuboidOverlap), TriangleCuboidOverlap);
        EXPECT_EQ(classify(t, unitBox, (turn + 1) % 3, TriangleCuboidOverlap),
                  TriangleCuboidDisjoint);
        EXPECT_EQ(classify(t, unitBox, (turn + 2) % 3, TriangleCuboidOverlap),
                  TriangleCuboidDisjoint);
    }
}

TEST(TriangleCuboid, ParentTypesOtherThanCentroidAreAlike)
{
    const Triangle t{Vector(0, 0.25, 0.25), Vector(0, 0.375, 0.25), Vector(3, 0.125, 0.25)};
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(classify(t, unitBox, axis, TriangleCuboidDisjoint),
                  classify(t, unitBox, axis, TriangleCuboidOverlap));
    }
}

TEST(TriangleCuboid, DegenerateTriangles)
{
    Vector const in(0.5, 0.5, 0.5);
    Vector const out(1.5, 0.5, 0.5);
    EXPECT_TRUE(meets({in, in, in}, unitBox));
    EXPECT_EQ(classify({in, in, in}, unitBox), TriangleCuboidContainsCentroid);
    EXPECT_FALSE(meets({out, out, out}, unitBox));
    EXPECT_EQ(classify({out, out, out}, unitBox), TriangleCuboidDisjoint);

    // A segment as a triangle, its centroid outside the box: through it, and past its corner.
    const Triangle through{Vector(-1, 0.5, 0.5), Vector(4, 0.5, 0.5), Vector(3, 0.5, 0.5)};
    EXPECT_TRUE(meets(through, unitBox));
    EXPECT_EQ(classify(through, unitBox), TriangleCuboidOverlap);
    const Triangle past{Vector(2.25, 0, 0.5), Vector(0, 2.25, 0.5), Vector(1.125, 1.125, 0.5)};
    EXPECT_FALSE(meets(past, unitBox));
    EXPECT_EQ(classify(past, unitBox), TriangleCuboidDisjoint);
}

TEST(TriangleCuboid, BoxWithoutExtentIsAPoint)
{
    const Triangle t{Vector(0, 0, 0), Vector(4, 0, 0), Vector(0, 4, 0)};
    Vector const on(1, 1, 0);
    Vector const off(1, 1, 0.5);
    EXPECT_TRUE(meets(t, {on, on}));
    EXPECT_EQ(classify(t, {on, on}), TriangleCuboidOverlap);
    EXPECT_FALSE(meets(t, {off, off}));
    EXPECT_EQ(classify(t, {off, off}), TriangleCuboidDisjoint);
}

TEST(TriangleCuboid, ReversedCornersGiveWrongAnswers)
{
    const Triangle t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
    EXPECT_FALSE(meets(t, {unitBox.hi, unitBox.lo}));
    EXPECT_EQ(classify(t, {unitBox.hi, unitBox.lo}), TriangleCuboidDisjoint);
}

TEST(TriangleCuboid, NaNInAVertexSeparates)
{
    const std::array<Vector, 3> good{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4),
                                     Vector(0.4, 0.7, 0.5)};
    for (std::size_t vertex = 0; vertex < 3; ++vertex) {
        for (int q = 0; q < 3; ++q) {
            std::array<Vector, 3> bad = good;
            bad[vertex][q] = notANumber;
            const Triangle t{bad[0], bad[1], bad[2]};
            EXPECT_FALSE(meets(t, unitBox));
            EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
            for (int axis = 0; axis < 3; ++axis) {
                EXPECT_EQ(classify(t, unitBox, axis, TriangleCuboidOverlap),
                          TriangleCuboidDisjoint);
                // A centroid parent answers for the coordinates that the split leaves alone.
                EXPECT_EQ(classify(t, unitBox, axis, TriangleCuboidContainsCentroid),
                          axis == q ? TriangleCuboidDisjoint : TriangleCuboidContainsCentroid);
            }
        }
    }
}

TEST(TriangleCuboid, NaNInACornerSeparates)
{
    const Triangle t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
    for (int q = 0; q < 3; ++q) {
        Box box = unitBox;
        box.hi[q] = notANumber;
        EXPECT_FALSE(meets(t, box));
        EXPECT_EQ(classify(t, box), TriangleCuboidDisjoint);
    }
}

TEST(TriangleCuboid, InfiniteVertexPassesThroughTheArithmetic)
{
    // Infinity minus infinity and infinity times zero are NaN, which separates.
    const Triangle t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(infinity, 0.7, 0.5)};
    EXPECT_FALSE(meets(t, unitBox));
    EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
    const Box everything{Vector(-infinity, -infinity, -infinity),
                         Vector(infinity, infinity, infinity)};
    const Triangle finite{Vector(0, 0, 0), Vector(1, 0, 0), Vector(0, 1, 0)};
    EXPECT_FALSE(meets(finite, everything)); // its centre is NaN
    EXPECT_EQ(classify(finite, everything), TriangleCuboidContainsCentroid);
}

TEST(TriangleCuboid, RoundingMayHideAFaceFromBothCellsThatShareItsPlane)
{
    // The triangle lies in y = 3, the plane between the cells. Their centres and half extents are
    // rounded, so it seems to lie beyond both.
    const Triangle t{Vector(0, 3, 0), Vector(0, 3, 2), Vector(4, 3, 2)};
    EXPECT_EQ(classify(t, {Vector(1.85, 2.85, 0.85), Vector(2, 3, 1)}), TriangleCuboidDisjoint);
    EXPECT_EQ(classify(t, {Vector(1.85, 3, 0.85), Vector(2, 3.15, 1)}), TriangleCuboidDisjoint);
    // Where all halves are exact it touches both.
    EXPECT_EQ(classify(t, {Vector(1.75, 2.75, 1.5), Vector(2, 3, 1.75)}), TriangleCuboidOverlap);
    EXPECT_EQ(classify(t, {Vector(1.75, 3, 1.5), Vector(2, 3.25, 1.75)}), TriangleCuboidOverlap);
}

TEST(TriangleCuboidIntersector, CopiesAreIndependentValues)
{
    const Triangle in{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
    const Triangle out{Vector(5, 5, 5), Vector(6, 5, 5), Vector(5, 6, 5)};
    const TriangleCuboidIntersector first(in.a, in.b, in.c);
    TriangleCuboidIntersector second(out.a, out.b, out.c);
    const TriangleCuboidIntersector third(second);
    TriangleCuboidIntersector &result = (second = first);
    EXPECT_EQ(&result, &second);
    auto const ask = [](TriangleCuboidIntersector const &i) {
        return i.intersect(unitBox.lo, unitBox.hi, full, TriangleCuboidDisjoint);
    };
    EXPECT_EQ(ask(second), TriangleCuboidContainsCentroid);
    EXPECT_EQ(ask(third), TriangleCuboidDisjoint);
    second = TriangleCuboidIntersector(out.a, out.b, out.c);
    EXPECT_EQ(ask(second), TriangleCuboidDisjoint);
    EXPECT_EQ(ask(first), TriangleCuboidContainsCentroid);
}

namespace {

// Pushes random triangles down random chains of halved boxes and compares, at every step, the
// reduced test with the full one, and both with the single question.
template <typename NextTriangle>
void expectReducedEqualsFull(unsigned seed, Box const &root, int maxDepth, NextTriangle next)
{
    std::mt19937 random(seed);
    std::array<std::array<int, 3>, 3> outcomes{}; // by split axis and answer
    int steps = 0;
    while (steps < 500000) {
        const Triangle t = next(random);
        const TriangleCuboidIntersector intersector(t.a, t.b, t.c);
        Box box = root;
        auto type = intersector.intersect(box.lo, box.hi, full, TriangleCuboidDisjoint);
        for (int depth = 0; depth < maxDepth && type != TriangleCuboidDisjoint; ++depth) {
            int const axis = depth % 3;
            int const firstSide = int(random() & 1U);
            TriangleCuboidIntersectionType taken = TriangleCuboidDisjoint;
            Box takenBox = box;
            for (int side : {firstSide, 1 - firstSide}) {
                const Box child = half(box, axis, side);
                auto const reduced = intersector.intersect(child.lo, child.hi, axis, type);
                ASSERT_EQ(reduced,
                          intersector.intersect(child.lo, child.hi, full, TriangleCuboidDisjoint));
                ASSERT_EQ(reduced != TriangleCuboidDisjoint, meets(t, child));
                ++outcomes[std::size_t(axis)][std::size_t(reduced)];
                ++steps;
                if (taken == TriangleCuboidDisjoint) {
                    taken = reduced;
                    takenBox = child;
                }
            }
            type = taken;
            box = takenBox;
        }
    }
    for (auto const &axis : outcomes) {
        for (int count : axis) {
            EXPECT_GT(count, 1000) << "an outcome is hardly ever met";
        }
    }
}

} // namespace

TEST(TriangleCuboidIntersector, ReducedTestsEqualTheFullTestOnRandomDescents)
{
    auto const next = [](std::mt19937 &random) {
        std::uniform_real_distribution<double> place(-1.0, 2.0);
        std::uniform_real_distribution<double> exponent(-12.0, 1.0);
        const double size = std::exp2(exponent(random));
        Vector const p(place(random), place(random), place(random));
        const auto near = [&] {
            return p + Vector(place(random), place(random), place(random)) * size;
        };
        return Triangle{p, near(), near()};
    };
    expectReducedEqualsFull(1, unitBox, 18, next);
}

TEST(TriangleCuboidIntersector, ReducedTestsEqualTheFullTestWhereTouchingIsCommon)
{
    // Multiples of 3 make centroids exact, so that all arithmetic is, and touching happens often.
    auto const next = [](std::mt19937 &random) {
        std::uniform_int_distribution<int> place(-3, 19);
        const auto vertex = [&] {
            return Vector(3 * place(random), 3 * place(random), 3 * place(random));
        };
        return Triangle{vertex(), vertex(), vertex()};
    };
    expectReducedEqualsFull(2, Box{Vector(0, 0, 0), Vector(48, 48, 48)}, 15, next);
}
