// Points that are found again: the nearest one, and all within a distance.

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/base/Point3D.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <cstdio>

int main()
{
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    for (int x = 0; x < 10; ++x) {
        for (int y = 0; y < 10; ++y) {
            lookup->insert(Point3D(x, y, 0.0));
        }
    }
    Point3D const place(3.2, 6.9, 0.5);
    std::pair<Point3D, bool> const nearest = lookup->findNearest(place, 2.0);
    if (nearest.second) {
        std::printf("nearest: (%g, %g)\n", nearest.first.x(), nearest.first.y());
    }
    std::printf("within 1.2: %d points\n", lookup->findWithinRange(place, 1.2).size());
    std::printf("none within 0.1: %s\n", lookup->findNearest(place, 0.1).second ? "no" : "yes");
}

// Output:
// nearest: (3, 7)
// within 1.2: 3 points
// none within 0.1: yes
