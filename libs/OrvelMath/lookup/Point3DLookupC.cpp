#include <OrvelMath/lookup/Point3DLookupC.h>

#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelMath/lookup/LookupTree_p.h>

namespace {

struct Point3DAccess
{
    static double coordinate(Point3D const &point, int i)
    {
        return i == 0 ? point.x() : i == 1 ? point.y() : point.z();
    }
};

using Tree = LookupTree<3, Point3D, Point3DAccess>;

Tree::Point coordinates(Point3D const &point)
{
    return {point.x(), point.y(), point.z()};
}

} // namespace

class Point3DLookupCPrivate : public PPrivateData<Point3DLookupC>
{
public:
    explicit Point3DLookupCPrivate(Point3DLookupC *lookup)
        : PPrivateData(lookup)
        , tree(std::make_unique<Tree>())
    {
    }

    std::unique_ptr<Tree> tree;
};

Point3DLookupC::Point3DLookupC()
    : d(new Point3DLookupCPrivate(this))
{
}

Point3DLookupC::~Point3DLookupC()
{
    delete d;
}

void Point3DLookupC::insert(Point3D const &point)
{
    d->tree->insert(point);
}

std::pair<Point3D, bool> Point3DLookupC::findNearest(Point3D const &point, double maxDistance) const
{
    auto const acceptAll = [](Point3D const &) { return true; };
    Point3D const *const nearest =
        d->tree->findNearest(coordinates(point), maxDistance, acceptAll).value;
    return nearest ? std::make_pair(*nearest, true) : std::make_pair(Point3D(), false);
}

QList<Point3D> Point3DLookupC::findWithinRange(Point3D const &point, double radius) const
{
    QList<Point3D> result;
    auto const region = LookupRegion<3>::around(coordinates(point), radius);
    d->tree->collectInRegion(region, [&](Point3D const &p) {
        double const dx = point.x() - p.x();
        double const dy = point.y() - p.y();
        double const dz = point.z() - p.z();
        if (radius * radius > dx * dx + dy * dy + dz * dz) {
            result.append(p);
        }
    });
    return result;
}
