#pragma once

/// @file
/// The version of OrvelMath. It is the one of the project() line, which a test compares.

/// Version of the library that these headers belong to, as numbers and as text.
#define ORVELMATH_VERSION_MAJOR 1
#define ORVELMATH_VERSION_MINOR 0
#define ORVELMATH_VERSION_PATCH 0
#define ORVELMATH_VERSION_STRING "1.0.0"
