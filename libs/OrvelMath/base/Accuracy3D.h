#pragma once

/// @file
/// The accuracy class of a thread, three-way comparisons, and roots of small equations.
///
/// Every function is reentrant. The class is a value per thread; a thread's first call may throw
/// std::bad_alloc, and may wait up to 50 milliseconds at a time while another thread makes the
/// first call of the process. The rest neither throws nor asks for memory.

#include <OrvelMath/OrvelMathExport.h>

/// Accuracy class of a thread: how finely curved elements are walked. Higher classes take smaller
/// steps. It feeds GetAccuracyAngle and nothing else; no predicate of the library reads it.
///
/// Any 32-bit value may be stored; values without a row of their own in the table of
/// GetAccuracyAngle behave as class 2 there.
enum Accuracy3D : int {
    Accuracy3DDefault = 2,
    Accuracy3DClass3 = 3,
    Accuracy3DClass4 = 4,
    Accuracy3DClass5 = 5,
    Accuracy3DFinest = 6
};

/// Stores the class for the calling thread only. Values out of the range of the names are stored
/// unchanged.
ORVELMATH_EXPORT void SetAccuracy(Accuracy3D accuracy);

/// The class of the calling thread; 2 when the thread never set one. A thread doesn't inherit the
/// class of the one that started it.
ORVELMATH_EXPORT Accuracy3D GetAccuracy();

/// Step angle in degrees for walking a curved element, by the calling thread's class.
///
/// With ratio = 2 * size / reference the angle is read from the table; both limits are strict.
///
/// | class         | ratio below 0.05 | ratio below 0.2 | all else, reference 0, NaN |
/// |---------------|------------------|-----------------|----------------------------|
/// | 2, any other  | 30               | 30              | 15                         |
/// | 3             | 30               | 15              | 7.5                        |
/// | 4             | 15               | 15              | 7.5                        |
/// | 5             | 10               | 5               | 3                          |
/// | 6             | 5                | 3               | 2                          |
///
/// A negative ratio counts as below 0.05.
///
/// @param size      size of the curved element, in the unit of `reference`
/// @param reference the size that it is measured against
ORVELMATH_EXPORT double GetAccuracyAngle(double size, double reference);

/// Moves `current` on to the next multiple of `step`, or to `end` when that is nearer than a step
/// and 0.01 degrees.
///
/// A walk that starts off the grid snaps to multiples of `step` at its first move: step 30, end 100
/// from 10 gives 30, 60, 90, 100. Returns true when the end is reached; `current` then equals `end`
/// exactly. A step of 0 short of the end turns `current` into NaN and returns false, as does a NaN
/// in `step` or `current`. An end of NaN or plus infinity is never reached.
///
/// A LOOP OVER THIS FUNCTION NEVER ENDS where the end isn't reached: in these cases, for a step
/// below 0, and for one too small to change `current`.
///
/// @param step    step angle, degrees
/// @param end     end of the walk, degrees
/// @param current read and written, degrees
ORVELMATH_EXPORT bool GetNextAccuracyAngle(double step, double end, double &current);

// Three-way comparisons. All give -1, 0 or 1; they differ in the band that counts as equal.
//
// | function                       | band                                 | NaN |
// |--------------------------------|--------------------------------------|-----|
// | sgn(value)                     | exactly 0                            | -1  |
// | sgn(value, tolerance)          | open: below the tolerance            | -1  |
// | Compare(a, b, tolerance)       | open: below the tolerance            | -1  |
// | CSCompareFloats(a, b, tol.)    | closed: the tolerance itself counts  | 1   |
// | CSCompareFloats(a, b)          | closed, 1e-5 of |a|, at most 0.001   | 1   |
//
// The last column is the result with a NaN operand. Two equal infinities count as different, as
// their difference is NaN. A tolerance of NaN is an empty band.

/// Sign without tolerance: 0 for plus and minus zero, -1 for NaN.
ORVELMATH_EXPORT int sgn(double value);

/// Sign with an open dead band: 0 when -tolerance < value < tolerance. So a value equal to the
/// tolerance gives 1, its negative -1, and sgn(0.0, 0.0) gives -1 since the band is empty.
ORVELMATH_EXPORT int sgn(double value, double tolerance);

/// 0 when |a - b| is below `tolerance`, otherwise 1 if a > b, else -1.
ORVELMATH_EXPORT int Compare(double a, double b, double tolerance);

/// 0 when |b - a| is at most 1e-5 of |a|, capped at 0.001, or 1e-8 where a is 0; otherwise -1 if
/// b > a, else 1. The band comes from `a` alone: the comparison is not symmetric.
ORVELMATH_EXPORT int CSCompareFloats(double a, double b);

/// 0 when |b - a| is at most `tolerance`, otherwise -1 if b > a, else 1.
ORVELMATH_EXPORT int CSCompareFloats(double a, double b, double tolerance);

/// Roots of a x + b = 0, with exact tests against 0; returns how many were written.
///
/// 1 with x = -b / a, or with x = 0 where a and b are both 0; 0 where only a is 0, be b NaN or
/// infinite, and x is then left alone. A NaN in a, or in b beside another a than 0, gives 1 and
/// NaN.
ORVELMATH_EXPORT int ResolveLinear(double a, double b, double &x);

/// Real roots of a x^2 + b x + c = 0, with exact tests against 0 and by the plain formula, open to
/// cancellation; returns how many were written.
///
/// 2 writes both, x1 with the root added: for a > 0 the larger one. 1 writes x1 alone: a double
/// root, the root of b x + c = 0 where a is 0, or 0 where all three are 0. 0 writes nothing.
///
/// With a NaN among the coefficients the result is 2 and both are NaN; where a is 0 it is 1 with
/// NaN, or 0 where b is 0 too. Where b^2 - 4 a c overflows the result is 0 or 2 by its sign, and
/// the roots are infinite or NaN.
ORVELMATH_EXPORT int ResolveQuadrat(double a, double b, double c, double &x1, double &x2);
