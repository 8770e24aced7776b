#include <OrvelMath/lookup/Point2DLookupC.h>

#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelMath/lookup/LookupNeighbours_p.h>
#include <OrvelMath/lookup/LookupTree_p.h>

namespace {

using Tree = LookupTree<2, QVariant>;

Tree::Point coordinates(Point2D const &point)
{
    return {point.x(), point.y()};
}

Point2D pointOf(Tree::Point const &p)
{
    return {p[0], p[1]};
}

PRefPtr<Point2DLookupResultC> makeResult(Tree::Nearest const &nearest)
{
    if (!nearest.payload) {
        return nullptr;
    }
    return new Point2DLookupResultC(pointOf(nearest.point), *nearest.payload, nearest.distance);
}

} // namespace

class Point2DLookupResultCPrivate : public PPrivateData<Point2DLookupResultC>
{
public:
    explicit Point2DLookupResultCPrivate(Point2DLookupResultC *result)
        : PPrivateData(result)
    {
    }
    Point2DLookupResultCPrivate(Point2DLookupResultC *result, Point2D const &p,
                                QVariant const &data, double distanceOfPoint)
        : PPrivateData(result)
        , distance(distanceOfPoint)
        , point(p)
        , userData(data)
    {
    }

    double distance = -1.0; ///< model units, not squared
    Point2D point;
    QVariant userData;
};

Point2DLookupResultC::Point2DLookupResultC()
    : d(new Point2DLookupResultCPrivate(this))
{
}

Point2DLookupResultC::Point2DLookupResultC(Point2D const &point, QVariant const &userData,
                                           double distance)
    : d(new Point2DLookupResultCPrivate(this, point, userData, distance))
{
}

Point2DLookupResultC::~Point2DLookupResultC()
{
    delete d;
}

Point2D Point2DLookupResultC::getPoint() const
{
    return d->point;
}

double Point2DLookupResultC::getDistance() const
{
    return d->distance;
}

QVariant Point2DLookupResultC::getUserData() const
{
    return d->userData;
}

class Point2DLookupCPrivate : public PPrivateData<Point2DLookupC>
{
public:
    explicit Point2DLookupCPrivate(Point2DLookupC *lookup)
        : PPrivateData(lookup)
        , tree(std::make_unique<Tree>())
    {
    }

    std::unique_ptr<Tree> tree;
};

Point2DLookupC::Point2DLookupC()
    : d(new Point2DLookupCPrivate(this))
{
}

Point2DLookupC::~Point2DLookupC()
{
    delete d;
}

void Point2DLookupC::insert(Point2D const &point, QVariant const &userData)
{
    d->tree->insert(coordinates(point), userData);
}

PRefPtr<Point2DLookupResultC> Point2DLookupC::findNearest(Point2D const &point,
                                                          double maxDistance) const
{
    return makeResult(d->tree->findNearest(coordinates(point), maxDistance, LookupAcceptAll()));
}

PRefPtr<Point2DLookupResultC> Point2DLookupC::findNearestNotEqual(Point2D const &point,
                                                                  double maxDistance) const
{
    LookupAcceptOthers<2> const acceptOthers = {coordinates(point)};
    return makeResult(d->tree->findNearest(coordinates(point), maxDistance, acceptOthers));
}

QList<PRefPtr<Point2DLookupResultC>>
Point2DLookupC::findKNearestNeighbors(Point2D const &point, int k, double maxDistance) const
{
    QList<PRefPtr<Point2DLookupResultC>> results;
    if (k == 1) {
        results.append(findNearest(point, maxDistance));
        return results;
    }
    if (k < 1) {
        return results;
    }
    auto const entries = findNearestValues(*d->tree, coordinates(point), k, maxDistance);
    results.reserve(static_cast<int>(entries.size()));
    for (Tree::Nearest const &entry : entries) {
        results.append(makeResult(entry));
    }
    return results;
}

QList<Point2D> Point2DLookupC::findWithinRange(Point2D const &point, double radius) const
{
    QList<Point2D> result;
    d->tree->collectInDisc(
        coordinates(point), radius,
        [&](Tree::Point const &p, QVariant const &, double) { result.append(pointOf(p)); });
    return result;
}

QList<QPair<Point2D, QVariant>> Point2DLookupC::findWithinRangeUserData(Point2D const &point,
                                                                        double radius) const
{
    QList<QPair<Point2D, QVariant>> result;
    d->tree->collectInDisc(coordinates(point), radius,
                           [&](Tree::Point const &p, QVariant const &userData, double) {
                               result.append(qMakePair(pointOf(p), userData));
                           });
    return result;
}
