// Lines and polygons of the plane: a crossing, an area, and on which side of a line a point lies.

#include <OrvelMath/geom2d/concav2d.h>

#include <cstdio>

int main()
{
    Point2D const a(0.0, 0.0);
    Point2D const b(4.0, 4.0);
    Point2D crossing;
    // 0 says that the lines cross; parallel ones give 1 and leave the point alone.
    if (concav2d::intersectLineLine(a, b, Point2D(0.0, 2.0), Point2D(2.0, 0.0), crossing) == 0) {
        std::printf("the lines cross in (%g, %g)\n", crossing.x(), crossing.y());
    }
    double const tolerance = 1e-9;
    char const *const places[] = {"off the segment", "at its start", "at its end", "on it"};
    for (Point2D const &p : {Point2D(4.0, 4.0), Point2D(3.0, 3.0), Point2D(3.0, 2.0)}) {
        int const place = concav2d::pointOnLine(a, b, p, tolerance);
        std::printf("(%g, %g) is %s\n", p.x(), p.y(), places[place]);
    }
}

// Output:
// the lines cross in (1, 1)
// (4, 4) is at its end
// (3, 3) is on it
// (3, 2) is off the segment
