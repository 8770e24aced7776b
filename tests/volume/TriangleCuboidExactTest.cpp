// The test of a triangle against a cuboid beside CGAL's on exact rational numbers.

#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

#include <CGAL/Gmpq.h>
#include <CGAL/Intersections_3/Iso_cuboid_3_Triangle_3.h>
#include <CGAL/Simple_cartesian.h>
#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

using Vector = vectorC3d<double>;
using Exact = CGAL::Simple_cartesian<CGAL::Gmpq>;

Exact::Point_3 exact(Vector const &v)
{
    return Exact::Point_3(v.x(), v.y(), v.z());
}

bool meetsExactly(std::array<Vector, 3> const &t, Vector const &lo, Vector const &hi)
{
    return CGAL::do_intersect(Exact::Triangle_3(exact(t[0]), exact(t[1]), exact(t[2])),
                              Exact::Iso_cuboid_3(exact(lo), exact(hi)));
}

bool isDegenerate(std::array<Vector, 3> const &t)
{
    return (t[1] - t[0]).cross(t[2] - t[0]).squaredLength() == 0.0;
}

struct Counts
{
    int meeting = 0;
    int apart = 0;
};

// Both forms of the test against the exact answer.
void compare(std::array<Vector, 3> const &t, Vector const &lo, Vector const &hi, Counts &counts)
{
    bool const truth = meetsExactly(t, lo, hi);
    ++(truth ? counts.meeting : counts.apart);
    ASSERT_EQ(MatUtil::triangleIntersectsCuboid(t[0], t[1], t[2], lo, hi), truth);
    MatUtil::TriangleCuboidIntersector const intersector(t[0], t[1], t[2]);
    ASSERT_EQ(intersector.intersect(lo, hi, 3, MatUtil::TriangleCuboidDisjoint) !=
                  MatUtil::TriangleCuboidDisjoint,
              truth);
}

} // namespace

TEST(TriangleCuboidExact, AgreesOnIntegersWhereTouchingIsCommon)
{
    std::mt19937 random(21);
    std::uniform_int_distribution<int> place(-1, 5);
    std::uniform_int_distribution<int> extent(1, 3);
    Counts counts;
    for (int i = 0; i < 30000;) {
        std::array<Vector, 3> t;
        // Multiples of 3 keep the centroid exact.
        for (Vector &v : t) {
            v = Vector(3 * place(random), 3 * place(random), 3 * place(random));
        }
        if (isDegenerate(t)) {
            continue;
        }
        Vector const lo(3 * place(random), 3 * place(random), 3 * place(random));
        Vector const hi = lo + Vector(3 * extent(random), 3 * extent(random), 3 * extent(random));
        compare(t, lo, hi, counts);
        ++i;
    }
    EXPECT_GT(counts.meeting, 5000);
    EXPECT_GT(counts.apart, 5000);
}

TEST(TriangleCuboidExact, AgreesOnRandomNumbers)
{
    std::mt19937 random(22);
    std::uniform_real_distribution<double> place(-1.0, 2.0);
    Counts counts;
    for (int i = 0; i < 30000; ++i) {
        std::array<Vector, 3> t;
        for (Vector &v : t) {
            v = Vector(place(random), place(random), place(random));
        }
        compare(t, Vector(0, 0, 0), Vector(1, 0.75, 0.5), counts);
    }
    EXPECT_GT(counts.meeting, 5000);
    EXPECT_GT(counts.apart, 5000);
}
