#include <OrvelMath/geom3d/TriangleCuboidView_p.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <utility>

using namespace MatUtil;

namespace {

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

Box const unitBox{Vector(0, 0, 0), Vector(1, 1, 1)};

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
    Triangle const t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
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
    Triangle const t{Vector(-9, -10, 0.5), Vector(30, -10, 0.5), Vector(-9, 40, 0.5)};
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_TRUE(meets(turned(t, turn), unitBox));
        EXPECT_EQ(classify(turned(t, turn), unitBox), TriangleCuboidOverlap);
    }
}

TEST(TriangleCuboid, OneVertexOnAFaceTouches)
{
    Triangle const above{Vector(0.5, 0.25, 1), Vector(3, 0.5, 2), Vector(0.5, 3, 2)};
    Triangle const below{Vector(0.5, 0.25, 0), Vector(3, 0.5, -2), Vector(0.5, 3, -2)};
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
    Triangle const t{Vector(0.5, 0.25, next), Vector(3, 0.5, 2), Vector(0.5, 3, 2)};
    EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
    Triangle const clear{Vector(0.5, 0.25, 1.0625), Vector(3, 0.5, 2), Vector(0.5, 3, 2)};
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_FALSE(meets(turned(clear, turn), unitBox));
        EXPECT_EQ(classify(turned(clear, turn), unitBox), TriangleCuboidDisjoint);
    }
}

TEST(TriangleCuboid, EdgeThroughTheBoxCornerTouches)
{
    // The edge from (2,0,1) to (0,2,1) touches the vertical edge's upper end (1,1,1).
    Triangle const t{Vector(2, 0, 1), Vector(0, 2, 1), Vector(2, 2, 3)};
    Triangle const beside{Vector(2.125, 0, 1), Vector(0, 2.125, 1), Vector(2, 2, 3)};
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
    Triangle const t{Vector(9.0625, -3, -3), Vector(-3, -3, 9.0625), Vector(-3, 9.0625, -3)};
    EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
    EXPECT_FALSE(meets(t, unitBox));
    Triangle const under{Vector(-6.0625, 3, 3), Vector(3, -6.0625, 3), Vector(3, 3, -6.0625)};
    EXPECT_EQ(classify(under, unitBox), TriangleCuboidDisjoint);
    EXPECT_FALSE(meets(under, unitBox));
}

TEST(TriangleCuboid, CentroidOnAFaceIsContained)
{
    // Centroid (1, 0.5, 0.5), on the face x = 1.
    Triangle const t{Vector(0, 0.5, 0.5), Vector(1.5, 0, 0), Vector(1.5, 1, 1)};
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
    Triangle const small{Vector(0.125, 0.25, 0.25), Vector(0.25, 0.375, 0.25),
                         Vector(0.375, 0.125, 0.25)};
    Triangle const large{Vector(0, 0.25, 0.25), Vector(0, 0.375, 0.25), Vector(0.75, 0.125, 0.25)};
    for (int turn = 0; turn < 3; ++turn) {
        ASSERT_EQ(classify(turned(small, turn), unitBox), TriangleCuboidContainsCentroid);
        Box const upper = half(unitBox, turn, 1);
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
    Triangle const t{Vector(0.5, 5, 5), Vector(0.5, 6, 5), Vector(0.5, 5, 6)};
    for (int axis = 0; axis < 3; ++axis) {
        Triangle const u = turned(t, axis);
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
    Triangle const point{p, p, p};
    EXPECT_EQ(classify(point, unitBox), TriangleCuboidDisjoint);
    EXPECT_EQ(classify(point, unitBox, 0, TriangleCuboidOverlap), TriangleCuboidOverlap);
    EXPECT_EQ(classify(point, unitBox, 1, TriangleCuboidOverlap), TriangleCuboidDisjoint);
    EXPECT_EQ(classify(point, unitBox, 2, TriangleCuboidOverlap), TriangleCuboidOverlap);

    // A triangle in x = 0.5 whose slanted edge passes the box: only X x edge separates it, and a
    // split along x leaves that out.
    Triangle const slanted{Vector(0.5, 2.5, 0), Vector(0.5, 0, 2.5), Vector(0.5, 3, 3)};
    for (int turn = 0; turn < 3; ++turn) {
        Triangle const t = turned(slanted, turn);
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
    Triangle const t{Vector(0, 0.25, 0.25), Vector(0, 0.375, 0.25), Vector(3, 0.125, 0.25)};
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
    Triangle const through{Vector(-1, 0.5, 0.5), Vector(4, 0.5, 0.5), Vector(3, 0.5, 0.5)};
    EXPECT_TRUE(meets(through, unitBox));
    EXPECT_EQ(classify(through, unitBox), TriangleCuboidOverlap);
    Triangle const past{Vector(2.25, 0, 0.5), Vector(0, 2.25, 0.5), Vector(1.125, 1.125, 0.5)};
    EXPECT_FALSE(meets(past, unitBox));
    EXPECT_EQ(classify(past, unitBox), TriangleCuboidDisjoint);
}

TEST(TriangleCuboid, BoxWithoutExtentIsAPoint)
{
    Triangle const t{Vector(0, 0, 0), Vector(4, 0, 0), Vector(0, 4, 0)};
    Vector const on(1, 1, 0);
    Vector const off(1, 1, 0.5);
    EXPECT_TRUE(meets(t, {on, on}));
    EXPECT_EQ(classify(t, {on, on}), TriangleCuboidOverlap);
    EXPECT_FALSE(meets(t, {off, off}));
    EXPECT_EQ(classify(t, {off, off}), TriangleCuboidDisjoint);
}

TEST(TriangleCuboid, ReversedCornersGiveWrongAnswers)
{
    Triangle const t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
    EXPECT_FALSE(meets(t, {unitBox.hi, unitBox.lo}));
    EXPECT_EQ(classify(t, {unitBox.hi, unitBox.lo}), TriangleCuboidDisjoint);
}

TEST(TriangleCuboid, NaNInAVertexSeparates)
{
    std::array<Vector, 3> const good{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4),
                                     Vector(0.4, 0.7, 0.5)};
    for (std::size_t vertex = 0; vertex < 3; ++vertex) {
        for (int q = 0; q < 3; ++q) {
            std::array<Vector, 3> bad = good;
            bad[vertex][q] = notANumber;
            Triangle const t{bad[0], bad[1], bad[2]};
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
    Triangle const t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
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
    Triangle const t{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(infinity, 0.7, 0.5)};
    EXPECT_FALSE(meets(t, unitBox));
    EXPECT_EQ(classify(t, unitBox), TriangleCuboidDisjoint);
    Box const everything{Vector(-infinity, -infinity, -infinity),
                         Vector(infinity, infinity, infinity)};
    Triangle const finite{Vector(0, 0, 0), Vector(1, 0, 0), Vector(0, 1, 0)};
    EXPECT_FALSE(meets(finite, everything)); // its centre is NaN
    EXPECT_EQ(classify(finite, everything), TriangleCuboidContainsCentroid);
}

TEST(TriangleCuboid, RoundingMayHideAFaceFromBothCellsThatShareItsPlane)
{
    // The triangle lies in y = 3, the plane between the cells. Their centres and half extents are
    // rounded, so it seems to lie beyond both.
    Triangle const t{Vector(0, 3, 0), Vector(0, 3, 2), Vector(4, 3, 2)};
    EXPECT_EQ(classify(t, {Vector(1.85, 2.85, 0.85), Vector(2, 3, 1)}), TriangleCuboidDisjoint);
    EXPECT_EQ(classify(t, {Vector(1.85, 3, 0.85), Vector(2, 3.15, 1)}), TriangleCuboidDisjoint);
    // Where all halves are exact it touches both.
    EXPECT_EQ(classify(t, {Vector(1.75, 2.75, 1.5), Vector(2, 3, 1.75)}), TriangleCuboidOverlap);
    EXPECT_EQ(classify(t, {Vector(1.75, 3, 1.5), Vector(2, 3.25, 1.75)}), TriangleCuboidOverlap);
}

TEST(TriangleCuboidIntersector, CopiesAreIndependentValues)
{
    Triangle const in{Vector(0.2, 0.2, 0.3), Vector(0.6, 0.3, 0.4), Vector(0.4, 0.7, 0.5)};
    Triangle const out{Vector(5, 5, 5), Vector(6, 5, 5), Vector(5, 6, 5)};
    TriangleCuboidIntersector const first(in.a, in.b, in.c);
    TriangleCuboidIntersector second(out.a, out.b, out.c);
    TriangleCuboidIntersector const third(second);
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
        Triangle const t = next(random);
        TriangleCuboidIntersector const intersector(t.a, t.b, t.c);
        Box box = root;
        auto type = intersector.intersect(box.lo, box.hi, full, TriangleCuboidDisjoint);
        for (int depth = 0; depth < maxDepth && type != TriangleCuboidDisjoint; ++depth) {
            int const axis = depth % 3;
            int const firstSide = int(random() & 1U);
            TriangleCuboidIntersectionType taken = TriangleCuboidDisjoint;
            Box takenBox = box;
            for (int side : {firstSide, 1 - firstSide}) {
                Box const child = half(box, axis, side);
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
        double const size = std::exp2(exponent(random));
        Vector const p(place(random), place(random), place(random));
        auto const near = [&] {
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
        auto const vertex = [&] {
            return Vector(3 * place(random), 3 * place(random), 3 * place(random));
        };
        return Triangle{vertex(), vertex(), vertex()};
    };
    expectReducedEqualsFull(2, Box{Vector(0, 0, 0), Vector(48, 48, 48)}, 15, next);
}

namespace {

/// Coordinates that meet: a small grid, a few neighbours of it, anything, and what is not a number.
double anyCoordinate(std::mt19937_64 &random)
{
    static constexpr std::array<double, 6> strange = {notANumber, infinity, -infinity,
                                                      -0.0,       1e300,    1e-310};
    double const whole = static_cast<double>(random() % 9) - 4.0;
    switch (random() % 64) {
    case 0:
        return strange[random() % strange.size()];
    case 1:
    case 2:
        return std::nextafter(whole, infinity);
    case 3:
    case 4:
        return std::nextafter(whole, -infinity);
    default:
        break;
    }
    return random() % 2 == 0 ? whole : std::uniform_real_distribution<double>(-4, 4)(random);
}

Vector anyVector(std::mt19937_64 &random)
{
    double const x = anyCoordinate(random);
    double const y = anyCoordinate(random);
    return Vector(x, y, anyCoordinate(random));
}

} // namespace

TEST(TriangleCuboidShortcut, GivesTheDefinitionsAnswersOnEveryInput)
{
    char const *const isLong = std::getenv("ORVEL_LONG_TESTS");
    int const rounds = isLong != nullptr && std::strcmp(isLong, "1") == 0 ? 1000000 : 100000;
    std::mt19937_64 random(3);
    std::array<int, 3> outcomes{};
    int meetings = 0;
    for (int round = 0; round < rounds; ++round) {
        Vector const a = anyVector(random);
        Vector const b = anyVector(random);
        Vector const c = anyVector(random);
        Vector lo = anyVector(random);
        Vector hi = anyVector(random);
        for (int q = 0; q < 3; ++q) {
            if (random() % 16 != 0 && lo[q] > hi[q]) {
                std::swap(lo[q], hi[q]);
            }
        }
        bool const expected = definition::triangleIntersectsCuboid(a, b, c, lo, hi);
        ASSERT_EQ(expected, triangleIntersectsCuboid(a, b, c, lo, hi)) << "round " << round;
        meetings += expected ? 1 : 0;
        TriangleCuboidIntersector const intersector(a, b, c);
        int const axis = static_cast<int>(random() % 5) - 1;
        auto const parent = static_cast<TriangleCuboidIntersectionType>(random() % 3);
        auto const type = definition::intersect(intersector, lo, hi, axis, parent);
        ASSERT_EQ(type, intersector.intersect(lo, hi, axis, parent)) << "round " << round;
        ++outcomes[type];
    }
    EXPECT_LT(5000, meetings);
    EXPECT_LT(5000, rounds - meetings);
    for (int const count : outcomes) {
        EXPECT_LT(5000, count);
    }
}
