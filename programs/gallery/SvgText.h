#pragma once

/// @file
/// Numbers and text as SVG wants them.

#include <cstddef>
#include <string>

namespace gallery {

/// A number with at most two decimals, independent of the locale; throws std::runtime_error when it
/// is not finite.
std::string svgNumber(double value);
/// `text` with the characters that XML reserves replaced.
std::string xmlEscaped(std::string const &text);
/// Characters (not bytes) of a UTF-8 text.
std::size_t characterCount(std::string const &text);
/// `name="number"` with a leading blank.
std::string attribute(char const *name, double value);

} // namespace gallery
