#pragma once

/// @file
/// What the vectors of both dimensions can do.

#include <OrvelMath/proxymath/prxVariantUserTypeBaseC.h>

#include <cmath>

/// What the vectors of both dimensions can do. `V` is the value, `P` the proxy class. All results
/// are new objects and this one stays as it is; NaN and infinity pass through.
template <typename V, typename P>
class ORVELMATH_EXPORT prxVectorBaseC : public prxVariantUserTypeBaseC<V>
{
public:
    /// Component by component, as are sub, mulReal and divReal.
    P *add(V const &other) const { return new P(this->getValue() + other); }
    P *sub(V const &other) const { return new P(this->getValue() - other); }
    /// The root of the sum of the squares; infinity where that sum overflows.
    double len() const { return this->getValue().length(); }
    P *mulReal(double factor) const { return new P(this->getValue() * factor); }
    /// Without a guard: a zero divisor gives infinities and NaN.
    P *divReal(double divisor) const { return new P(this->getValue() / divisor); }
    /// The vector of this direction with the given length: each component times length / len(). NaN
    /// for the zero vector.
    P *norm(double length) const
    {
        V const vector = this->getValue();
        double const factor = length / std::sqrt(vector.squaredLength());
        return new P(vector * factor);
    }
};
