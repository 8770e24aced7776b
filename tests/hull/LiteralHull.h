#pragma once

#include <OrvelMath/base/vectorC.h>

#include <QtCore/QList>
#include <QtCore/QVector>

#include <vector>

/// The hulls once more, step by step in the plainest way: a sorted map for the queue, sets searched
/// one by one, faces and edges that are never given back before the end. Slow, and the measure of
/// the library's hulls, which must give the same bits.

struct LiteralTriangle
{
    int corners[3];
    vectorC3d<double> normal;
};

struct LiteralHull
{
    int dimension = -1;
    QList<int> indices;
    std::vector<LiteralTriangle> triangles;
};

QList<int> literalHull2D(QVector<vectorC2d<double>> const &points);
LiteralHull literalHull3D(QList<vectorC3d<double>> const &points);
