#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <OrvelMath/hull/ConvexHullBuilderC_p.h>
#include <OrvelMath/hull/HullPolygon_p.h>

#include <cstddef>

ConvexHullBuilderC::ConvexHullBuilderC()
    : d(new ConvexHullBuilderCPrivate(this))
{
}

ConvexHullBuilderC::ConvexHullBuilderC(QList<vectorC3d<double>> const &points)
    : ConvexHullBuilderC()
{
    d->points = points;
}

ConvexHullBuilderC::~ConvexHullBuilderC()
{
    delete d;
}

void ConvexHullBuilderC::setData(QList<vectorC3d<double>> const &points)
{
    d->reset();
    d->points = points;
}

void ConvexHullBuilderC::reset()
{
    d->reset();
}

bool ConvexHullBuilderC::buildHull()
{
    return d->buildHull();
}

int ConvexHullBuilderC::dimension() const
{
    return d->hullDimension;
}

QList<int> ConvexHullBuilderC::hullVertexIndices() const
{
    return d->hullIndices;
}

QVector<vectorC3d<double>> ConvexHullBuilderC::hullVertices() const
{
    QVector<vectorC3d<double>> vertices;
    vertices.reserve(d->hullIndices.size());
    for (int index : d->hullIndices) {
        vertices.append(d->points.at(index));
    }
    return vertices;
}

int ConvexHullBuilderC::triangleCount() const
{
    return static_cast<int>(d->surface.size());
}

bool ConvexHullBuilderC::triangle(int index, vectorC3d<double> &a, vectorC3d<double> &b,
                                  vectorC3d<double> &c, vectorC3d<double> &normal) const
{
    // A negative index becomes a huge one.
    std::size_t const number = static_cast<std::size_t>(index);
    if (number >= d->surface.size()) {
        return false;
    }
    HullFace const &face = d->surface[number];
    a = d->points.at(face.edges[0]->tail);
    b = d->points.at(face.edges[1]->tail);
    c = d->points.at(face.edges[2]->tail);
    normal = face.normal;
    return true;
}

QList<int> ConvexHullBuilderC::computeConvexHullIndices2D(QVector<vectorC2d<double>> const &points)
{
    return hullPolygon(points);
}

QVector<vectorC2d<double>>
ConvexHullBuilderC::computeConvexHull2D(QVector<vectorC2d<double>> const &points)
{
    QList<int> const indices = hullPolygon(points);
    QVector<vectorC2d<double>> hull;
    hull.reserve(indices.size());
    for (int index : indices) {
        hull.append(points.value(index)); // the empty input has no point 0
    }
    return hull;
}
