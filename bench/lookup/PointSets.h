#pragma once

#include "Engine.h"

#include <string>

/// Points in the unit cube, a fixed seed.
template <std::size_t K>
Points<K> uniformPoints(std::size_t count);

/// Points around a hundred centres, normally distributed with a deviation of a hundredth.
template <std::size_t K>
Points<K> clusteredPoints(std::size_t count);

/// Points in the unit cube in ascending order: of x, of y where x is equal, and so on.
template <std::size_t K>
Points<K> ascendingPoints(std::size_t count);

/// The vertices of a mesh in the order of its file, copies included, scaled into the unit cube: an
/// IFC house, Wuson, earth or spider of the models that come with assimp. Empty when the file is
/// missing.
template <std::size_t K>
Points<K> loadedMesh(std::string const &name);

/// The distinct vertices of a scanned or drawn mesh in random order, scaled into the unit cube; in
/// the plane their x and y. Empty when the file is missing.
template <std::size_t K>
Points<K> meshPoints();

/// Places to ask for: points moved by up to the mean spacing of as many points in the unit cube.
template <std::size_t K>
Points<K> queriesFor(Points<K> const &points, std::size_t count);

/// The radius whose ball holds so many points in the median of a few queries.
template <std::size_t K>
double radiusFor(Points<K> const &points, Points<K> const &queries, std::size_t wanted);
