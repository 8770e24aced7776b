#pragma once

/// @file
/// The convex polygon of points in the plane.

#include <OrvelMath/base/vectorC.h>
#include <OrvelMath/hull/HullWay_p.h>

#include <QtCore/QList>
#include <QtCore/QVector>

/// Indices of the polygon's corners, as ConvexHullBuilderC::computeConvexHullIndices2D gives them.
QList<int> hullPolygon(QVector<vectorC2d<double>> const &points, HullWay way = HullWay::Quick);
