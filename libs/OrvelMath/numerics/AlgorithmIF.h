#pragma once

/// @file
/// The steps that iterative methods share.

#include <OrvelMath/OrvelMathExport.h>

/// An iterative method that is driven from outside.
///
/// The object never loops to the end by itself: one call of iterate() performs one step, and the
/// caller decides how many steps to allow. The accessors of the methods may be called at any time
/// and tell the state after the latest step.
class ORVELMATH_EXPORT AlgorithmIF
{
public:
    AlgorithmIF();
    AlgorithmIF(AlgorithmIF const &);
    AlgorithmIF &operator=(AlgorithmIF const &);
    virtual ~AlgorithmIF();

    /// Performs one step. A call after true is allowed and performs another step.
    ///
    /// @return true when the method has finished, false when another step is wanted
    virtual bool iterate() = 0;
};
