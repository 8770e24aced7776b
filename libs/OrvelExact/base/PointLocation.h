#pragma once

/// @file
/// Where a point lies as to a closed set.

namespace orvelExact {

enum class PointLocation {
    Outside,
    Boundary, ///< exactly on it
    Inside,
    NotFinite ///< the point is NaN or infinite, or there is no set
};

} // namespace orvelExact
