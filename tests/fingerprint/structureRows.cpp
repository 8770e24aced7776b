#include "fingerprint/Rows.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>
#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>
#include <OrvelMath/volume/BinTreeBuilder.h>

#include <QtCore/QVariant>

#include <cmath>

namespace fingerprint {

namespace {

/// A cloud of one kind: anything, a ball, a lattice, points of one plane, copies, sorted.
std::vector<Point3D> cloud(Stream &stream, int most)
{
    int const kind = stream.below(8);
    int const count = stream.below(2) == 0 ? stream.below(20) : stream.below(most);
    double const scale = stream.below(8) == 0 ? 1e-4 : 5.0;
    Point3D const normal = stream.point3();
    std::vector<Point3D> points;
    for (int i = 0; i < count; ++i) {
        Point3D p{stream.unit() * scale, stream.unit() * scale, stream.unit() * scale};
        if (kind == 0) {
            p = stream.point3();
        } else if (kind == 1) {
            p = {double(stream.below(5)), double(stream.below(5)), double(stream.below(5))};
        } else if (kind == 2) {
            p.z() = p.x() * normal.x() + p.y() * normal.y();
        } else if (kind == 3 && i > 0 && stream.below(3) == 0) {
            p = points[std::size_t(stream.below(i))];
        } else if (kind == 4) {
            p = p * (scale / std::sqrt(p.Length2()));
        } else if (kind == 5) {
            p = {0.01 * i, std::fabs(p.y()), 0.0};
        }
        points.push_back(p);
    }
    return points;
}

void addHull(Hash &hash, ConvexHullBuilderC const &hull)
{
    hash.add(hull.dimension());
    hash.add(hull.hullVertexIndices());
    hash.add(hull.hullVertices());
    hash.add(hull.triangleCount());
    for (int i = -1; i <= hull.triangleCount(); ++i) {
        vectorC3d<double> corners[3];
        vectorC3d<double> normal;
        hash.add(hull.triangle(i, corners[0], corners[1], corners[2], normal));
        for (auto const &corner : corners) {
            hash.add(corner);
        }
        hash.add(normal);
    }
}

void runHull(Stream &stream, Hash &hash, int most)
{
    QList<vectorC3d<double>> points;
    for (Point3D const &p : cloud(stream, most)) {
        points.append(vectorC3d<double>(p));
    }
    ConvexHullBuilderC hull(points);
    addHull(hash, hull);
    hash.add(hull.buildHull());
    addHull(hash, hull);
    hull.setData(points.mid(0, points.size() / 2));
    hash.add(hull.buildHull());
    addHull(hash, hull);
    hull.reset();
    addHull(hash, hull);
}

void runPlaneHull(Stream &stream, Hash &hash, int most)
{
    QVector<vectorC2d<double>> points;
    for (Point3D const &p : cloud(stream, most)) {
        points.append({p.x(), p.y()});
    }
    hash.add(ConvexHullBuilderC::computeConvexHullIndices2D(points));
    hash.add(ConvexHullBuilderC::computeConvexHull2D(points));
}

void addFound(Hash &hash, PRefPtr<Point2DLookupResultC> const &found)
{
    if (!found) {
        hash.add(-1);
        return;
    }
    hash.add(found->getPoint());
    hash.add(found->getDistance());
    hash.add(found->getUserData().toInt());
}

double reach(Stream &stream)
{
    double const values[] = {-1.0, 0.0, 1e-3, 0.1, 0.5, 1.0, 3.0, 10.0};
    return values[stream.below(8)];
}

void runPlaneLookup(Stream &stream, Hash &hash, int most)
{
    PRefPtr<Point2DLookupC> const lookup(new Point2DLookupC);
    std::vector<Point3D> const points = cloud(stream, most);
    for (std::size_t i = 0; i < points.size(); ++i) {
        lookup->insert({points[i].x(), points[i].y()}, QVariant(int(i)));
        if (i % 5 == 0) {
            Point2D const query = stream.point2();
            addFound(hash, lookup->findNearest(query, reach(stream)));
        }
    }
    for (int i = 0; i < 20; ++i) {
        bool const stored = !points.empty() && stream.below(3) == 0;
        Point2D query = stream.point2();
        if (stored) {
            Point3D const &p = points[std::size_t(stream.below(int(points.size())))];
            query = Point2D(p.x(), p.y());
        }
        double const limit = reach(stream);
        addFound(hash, lookup->findNearest(query, limit));
        addFound(hash, lookup->findNearestNotEqual(query, limit));
        for (auto const &found :
             lookup->findKNearestNeighbors(query, stream.below(12) - 1, limit)) {
            addFound(hash, found);
        }
        hash.add(lookup->findWithinRange(query, limit));
        for (auto const &[p, data] : lookup->findWithinRangeUserData(query, limit)) {
            hash.add(p);
            hash.add(data.toInt());
        }
    }
}

void runSpaceLookup(Stream &stream, Hash &hash, int most)
{
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    std::vector<Point3D> const points = cloud(stream, most);
    for (Point3D const &p : points) {
        lookup->insert(p);
    }
    for (int i = 0; i < 30; ++i) {
        bool const stored = !points.empty() && stream.below(3) == 0;
        Point3D const query =
            stored ? points[std::size_t(stream.below(int(points.size())))] : stream.point3();
        double const limit = reach(stream);
        auto const [nearest, found] = lookup->findNearest(query, limit);
        hash.add(nearest);
        hash.add(found);
        hash.add(lookup->findWithinRange(query, limit));
    }
}

void addTree(Hash &hash, VolumeComparison::BinTreeBuilder const &tree)
{
    VolumeComparison::SimpleBitVector const bits = tree.exportBitVector();
    hash.add(bits.bitCount);
    for (unsigned char byte : bits.bytes) {
        hash.add(int(byte));
    }
    quint64 leaves = 77;
    hash.add(VolumeComparison::isWholeTree({bits.bytes.data()}, bits.bitCount, &leaves));
    hash.add(leaves);
}

void runVolume(Stream &stream, Hash &hash)
{
    std::pair<vectorC3d<double>, vectorC3d<double>> const box({-4, -4, -4}, {4, 4, 4});
    std::pair<vectorC3d<double>, vectorC3d<double>> const content({-3, -3.5, -2}, {3, 2, 4});
    double const resolution = stream.below(2) == 0 ? 0.3 : 0.9;
    VolumeComparison::BinTreeBuilder tree(box, resolution, stream.below(2) == 0 ? box : content);
    int const count = stream.below(25);
    for (int i = 0; i < count; ++i) {
        vectorC3d<double> const a(stream.point3());
        vectorC3d<double> const b(stream.point3());
        tree.addTriangle(a, b, vectorC3d<double>(stream.point3()));
    }
    addTree(hash, tree);
    tree.findOuterArea();
    addTree(hash, tree);
    tree.condense();
    addTree(hash, tree);
    VolumeComparison::BinTreeBuilder again(box, resolution, box);
    again.importBitVector(tree.exportBitVector());
    addTree(hash, again);
}

} // namespace

std::vector<Row> structureRows()
{
    return {
        own("ConvexHullBuilderC", [](Stream &s, Hash &h) { runHull(s, h, 250); },
            {1500, false, true}),
        own("ConvexHullBuilderC special", [](Stream &s, Hash &h) { runHull(s, h, 40); },
            {1000, true, true}),
        own("ConvexHullBuilderC large", [](Stream &s, Hash &h) { runHull(s, h, 20000); },
            {12, false, true}),
        withLibrary("ConvexHullBuilderC::computeConvexHull2D",
                    [](Stream &s, Hash &h) { runPlaneHull(s, h, 300); }, {4000, false, true}),
        withLibrary("ConvexHullBuilderC::computeConvexHull2D special",
                    [](Stream &s, Hash &h) { runPlaneHull(s, h, 40); }, {3000, true, true}),
        withLibrary("ConvexHullBuilderC::computeConvexHull2D large",
                    [](Stream &s, Hash &h) { runPlaneHull(s, h, 100000); }, {12, false, true}),
        own("Point2DLookupC", [](Stream &s, Hash &h) { runPlaneLookup(s, h, 400); },
            {600, false, true}),
        own("Point2DLookupC large", [](Stream &s, Hash &h) { runPlaneLookup(s, h, 30000); },
            {10, false, true}),
        own("Point3DLookupC", [](Stream &s, Hash &h) { runSpaceLookup(s, h, 400); },
            {1000, false, true}),
        own("Point3DLookupC special", [](Stream &s, Hash &h) { runSpaceLookup(s, h, 60); },
            {500, true, true}),
        own("Point3DLookupC large", [](Stream &s, Hash &h) { runSpaceLookup(s, h, 30000); },
            {10, false, true}),
        own("VolumeComparison::BinTreeBuilder", runVolume, {60, false, true}),
    };
}

} // namespace fingerprint
