#include <OrvelMath/lookup/Point3DLookupC.h>

#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelMath/lookup/LookupTree_p.h>

namespace {

/// The points are all that is stored.
struct NoPayload
{
};

using Tree = LookupTree<3, NoPayload>;

Tree::Point coordinates(Point3D const &point)
{
    return {point.x(), point.y(), point.z()};
}

Point3D pointOf(Tree::Point const &p)
{
    return {p[0], p[1], p[2]};
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
    d->tree->insert(coordinates(point), {});
}

std::pair<Point3D, bool> Point3DLookupC::findNearest(Point3D const &point, double maxDistance) const
{
    auto const nearest = d->tree->findNearest(coordinates(point), maxDistance, LookupAcceptAll());
    return {pointOf(nearest.point), nearest.payload != nullptr};
}

QList<Point3D> Point3DLookupC::findWithinRange(Point3D const &point, double radius) const
{
    QList<Point3D> result;
    d->tree->collectInDisc(
        coordinates(point), radius,
        [&](Tree::Point const &p, NoPayload, double) { result.append(pointOf(p)); });
    return result;
}
