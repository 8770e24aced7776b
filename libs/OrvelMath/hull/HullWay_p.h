#pragma once

/// @file
/// The two ways in which a hull is found.

/// Both ways give the same hull to the last bit; the tests compare them.
enum class HullWay {
    Definition, ///< every step as it is defined, one point after the other
    Quick       ///< with the shortcuts of the folder `quick`
};
