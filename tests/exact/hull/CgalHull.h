#pragma once

/// @file
/// The hull by CGAL.

#include <OrvelExact/base/points.h>

#include <QtCore/QVector>

/// Points of the hull after CGAL's exact predicates, sorted; `dimension` 3 is needed.
QVector<orvelExact::Point3> cgalHullCorners(QVector<orvelExact::Point3> const &points);
