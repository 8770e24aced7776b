#include "fingerprint/Rows.h"

#include <OrvelMath/geom3d/CutPlane.h>
#include <OrvelMath/geom3d/MatUtil.h>
#include <OrvelMath/geom3d/intersect3d.h>

namespace fingerprint {

namespace {

using P = Point3D const &;
using V = vectorC3d<double> const &;

std::vector<Row> pointRows()
{
    return {
        own("IntersectLinePlane coefficients",
            [](P p0, P p1, double a, double b, double c, double d, Point3D &out) {
                return IntersectLinePlane(p0, p1, a, b, c, d, out);
            }),
        own("IntersectLinePlane point",
            [](P p0, P p1, P n, P p, Point3D &out) {
                return IntersectLinePlane(p0, p1, n, p, out);
            }),
        own("CalcXLinePlane", [](P p0, P p1, P p, P n, Point3D &out,
                                 double &t) { return CalcXLinePlane(p0, p1, p, n, out, &t); }),
        own("ProjectOntoPlane", ProjectOntoPlane),
        own("ProjectOntoLine", [](P d, P p, P q) { return ProjectOntoLine(d, p, q); }),
        own("ProjectOntoLine parameter",
            [](P d, P p, P q, double &s) { return ProjectOntoLine(d, p, q, s); }),
        own("CalcDistancePointPlane", CalcDistancePointPlane),
        own("getPlanarVectors", getPlanarVectors),
        own("IntersectLineLine", IntersectLineLine),
        own("IntersectPlanePlane", IntersectPlanePlane),
        own("IntersectThreePlanes", IntersectThreePlanes),
        own("IntersectLineSphereDst", IntersectLineSphereDst),
        own("IntersectLineSphere", IntersectLineSphere),
        own("IntersectLineCylinder", IntersectLineCylinder),
        own("GetDropCoord", GetDropCoord),
        own("DropCoord", DropCoord),
        withLibrary("LineInsideTriangle", LineInsideTriangle),
    };
}

std::vector<Row> vectorRows()
{
    using namespace MatUtil;
    return {
        own("MatUtil::getPerpendicularVector", getPerpendicularVector),
        own("MatUtil::getCircleCenter", getCircleCenter),
        own("MatUtil::projectPointOntoLine", projectPointOntoLine),
        own("MatUtil::projectPointOntoPlane", projectPointOntoPlane),
        own("MatUtil::reflectThroughLine", reflectThroughLine),
        own("MatUtil::reflectThroughPlane", reflectThroughPlane),
        own("MatUtil::intersectPlanes", MatUtil::intersectPlanes),
        own("MatUtil::intersectLines", MatUtil::intersectLines),
        own("MatUtil::intersectLinePlane", MatUtil::intersectLinePlane),
        own("MatUtil::bisectingPlane", bisectingPlane),
        own("MatUtil::getSphereCenter", getSphereCenter),
        own("MatUtil::rayIntersectsTriangle", rayIntersectsTriangle),
        own("MatUtil::sortVectorComponents", [](vectorC3d<double> &v) { sortVectorComponents(v); },
            {100000, false, true}),
        own("MatUtil::sortVectorComponents matrix",
            [](vectorC3d<double> &v, matrixC3x3<double> &m) { sortVectorComponents(v, m); },
            {100000, false, true}),
    };
}

std::vector<Row> cellRows()
{
    using namespace MatUtil;
    return {
        own("MatUtil::triangleIntersectsCuboid", triangleIntersectsCuboid),
        own("MatUtil::TriangleCuboidIntersector::intersect",
            [](Stream &stream, Hash &hash, V a, V b, V c) {
                TriangleCuboidIntersector const intersector(a, b, c);
                for (int i = 0; i < 6; ++i) {
                    vectorC3d<double> low;
                    vectorC3d<double> size;
                    stream.draw(low);
                    stream.draw(size);
                    for (int k = 0; k < 3; ++k) {
                        size[k] = size[k] < 0.0 ? -size[k] : size[k];
                    }
                    int const axis = stream.below(4) - 1;
                    auto const parent = TriangleCuboidIntersectionType(stream.below(3));
                    hash.add(int(intersector.intersect(low, low + size, axis, parent)));
                }
            },
            {50000, true, true}),
        own("CutPlane",
            [](Matrix4X4C const &m, int type, int direction, double distance, Hash &hash) {
                CutPlane plane(CutPlane::CutPlaneType((type + 2) % 5), direction, distance);
                plane.setFrame(m.GetConstMatrixRef());
                hash.add(plane.getNormal());
                hash.add(plane == CutPlane());
                return plane.getPosition();
            }),
    };
}

} // namespace

std::vector<Row> spaceRows()
{
    std::vector<Row> rows;
    for (auto const &part : {pointRows(), vectorRows(), cellRows()}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

} // namespace fingerprint
