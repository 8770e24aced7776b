#pragma once

/// @file
/// The convex polygon of many points without the sort of all their angles.

#include <OrvelMath/base/vectorC.h>

#include <QtCore/QList>
#include <QtCore/QVector>

/// Answers for at least one point what hullPolygon answers.
///
/// Directions are sorted as whole numbers, see DirectionSort. Where two of them differ by enough,
/// the angles differ by more than 1e-8 radians, in the same sense: such points are in the order of
/// the definition and are not merged. Points that come closer to each other get their angles and
/// are sorted and merged by them as the definition does. So the scan sees the same points in the
/// same order. Which one of equal records is reported depends on the course of the sort; for
/// corners it is found by SortReplay.
///
/// @param start index of the lexicographically smallest point
/// @param hull  written only if the answer is true
/// @return false if the answer can't be proven: a point is no number or very far away, or different
///         points have equal records
bool quickPolygon(QVector<vectorC2d<double>> const &points, int start, QList<int> &hull);
