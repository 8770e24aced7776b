#include <OrvelMath/lookup/Point2DLookupC.h>

#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelMath/lookup/LookupTree_p.h>

#include <algorithm>
#include <cmath>

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

    double distance = -1.0;
    Point2D point;
    QVariant userData;
};

Point2DLookupResultC::Point2DLookupResultC()
    : d(new Point2DLookupResultCPrivate(this))
{
}

Point2DLookupResultC::Point2DLookupResultC(Point2D const &point, QVariant const &userData,
                                           double distance)
    : Point2DLookupResultC()
{
    d->distance = distance;
    d->point = point;
    d->userData = userData;
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

    /// Calls `visit(point, userData, squared distance)` with each entry inside the open disc, in
    /// the order of the tree.
    template <typename Visit>
    void visitDisc(Point2D const &centre, double radius, Visit visit) const
    {
        auto const region = LookupRegion<2>::around(coordinates(centre), radius);
        tree->collectInRegion(region, [&](Tree::Point const &p, QVariant const &userData) {
            double const dx = centre.x() - p[0];
            double const dy = centre.y() - p[1];
            double const squaredDistance = dx * dx + dy * dy;
            if (radius * radius > squaredDistance) {
                visit(p, userData, squaredDistance);
            }
        });
    }

    std::vector<Tree::Nearest> entriesInDisc(Point2D const &centre, double radius) const
    {
        std::vector<Tree::Nearest> entries;
        visitDisc(centre, radius,
                  [&](Tree::Point const &p, QVariant const &userData, double squaredDistance) {
                      entries.push_back({p, &userData, std::sqrt(squaredDistance)});
                  });
        return entries;
    }

    std::vector<Tree::Nearest> growDisc(Point2D const &centre, int k, double nearest,
                                        double maxDistance) const;

    std::unique_ptr<Tree> tree;
};

/// The entries of the first disc that holds k of them, or of the largest one: the first radius is
/// twice the distance of the nearest other point, each further one twice the one before.
std::vector<Tree::Nearest> Point2DLookupCPrivate::growDisc(Point2D const &centre, int k,
                                                           double nearest, double maxDistance) const
{
    std::vector<Tree::Nearest> entries;
    double radius = std::min(2.0 * nearest, maxDistance);
    while (entries.size() < tree->size() && entries.size() < static_cast<std::size_t>(k)) {
        entries = entriesInDisc(centre, radius);
        if (radius >= maxDistance) {
            break;
        }
        // A distance whose square underflows is 0 and stays 0 when doubled.
        radius = radius == 0.0 ? maxDistance : std::min(2.0 * radius, maxDistance);
    }
    return entries;
}

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
    auto const acceptOthers = [&point](Tree::Point const &p) {
        return !(p[0] == point.x() && p[1] == point.y());
    };
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
    PRefPtr<Point2DLookupResultC> const nearest = findNearestNotEqual(point, maxDistance);
    if (!nearest) {
        return results;
    }
    auto entries = d->growDisc(point, k, nearest->getDistance(), maxDistance);
    std::stable_sort(
        entries.begin(), entries.end(),
        [](Tree::Nearest const &a, Tree::Nearest const &b) { return a.distance < b.distance; });
    entries.resize(std::min(entries.size(), static_cast<std::size_t>(k)));
    for (Tree::Nearest const &entry : entries) {
        results.append(makeResult(entry));
    }
    return results;
}

QList<Point2D> Point2DLookupC::findWithinRange(Point2D const &point, double radius) const
{
    QList<Point2D> result;
    d->visitDisc(point, radius, [&](Tree::Point const &p, QVariant const &, double) {
        result.append(pointOf(p));
    });
    return result;
}

QList<QPair<Point2D, QVariant>> Point2DLookupC::findWithinRangeUserData(Point2D const &point,
                                                                        double radius) const
{
    QList<QPair<Point2D, QVariant>> result;
    d->visitDisc(point, radius, [&](Tree::Point const &p, QVariant const &userData, double) {
        result.append(qMakePair(pointOf(p), userData));
    });
    return result;
}
