#pragma once

/// @file
/// What a function of OrvelExact says of its input beside the answer.

/// The second library: answers that are exact, or whose error bound stands at the function.
///
/// Points and vectors are `Point2` and `Point3` (base/points.h), lists are `QVector`. Results come
/// back by value. Nothing has a state: every function is a pure function of its arguments, gives
/// the same bits on every compiler and processor, and may be called from any number of threads.
namespace orvelExact {

/// Whether a question has an answer. A result whose status is not `Ok` holds nothing else.
enum class Status {
    Ok,         ///< the answer is there
    NotFinite,  ///< an argument is NaN or infinite
    Empty,      ///< the input has no points
    Degenerate, ///< the input doesn't determine what is asked, as three points of a line no circle
    OutOfRange  ///< a result or a step to it would overflow or lose its last digits in underflow
};

} // namespace orvelExact
