#pragma once

/// @file
/// Values in and out of proxies.

#include <OrvelMath/proxymath/proxymath.h>

#include "support/ScriptCall.h"

#include <gtest/gtest.h>

#include <initializer_list>

/// Values in and out of proxies, for the tests of the script classes.
namespace proxyValues {

using scriptCall::Object;
using Vector2 = vectorC2d<double>;
using Vector3 = vectorC3d<double>;
using Matrix3 = matrixC3x3<double>;
using Matrix4 = matrixC4x4<double>;

template <typename P, typename T>
Object make(T const &value)
{
    return Object(new P(value));
}

inline Object vector2(double x, double y)
{
    return make<prxVector2dC>(Vector2(x, y));
}

inline Object vector3(double x, double y, double z)
{
    return make<prxVector3dC>(Vector3(x, y, z));
}

template <typename M>
M cells(std::initializer_list<double> values)
{
    M matrix;
    int i = 0;
    for (double const value : values) {
        matrix[i++] = value;
    }
    return matrix;
}

/// Counts how often a proxy's value is written back, and how often somebody asked for the handle to
/// edit it.
template <typename P>
class Counting : public P
{
public:
    using Wrapper = typename P::prxValWrapperC;

    Counting() = default;
    explicit Counting(typename P::ValueType const &value)
        : P(value)
    {
    }
    void setComVariant(mzComVariantC const &variant) override
    {
        ++writes;
        P::setComVariant(variant);
    }
    Wrapper value() const override
    {
        ++handles;
        return P::value();
    }

    int writes = 0;
    mutable int handles = 0;
};

/// Lets a new object go.
template <typename P>
void drop(P *object)
{
    mzComPtrT<P> const pointer(object);
}

/// The value that an object stands for; fails the test if it stands for none of this type.
template <typename T>
T valueOf(Object const &object)
{
    T value{};
    mzComVariantC const variant = mzComVariantC(object).toSkalarValue();
    EXPECT_EQ(variant.getUserData(proxyValueTypeId<T>(), &value), mzUserDataOk);
    return value;
}

template <typename T>
T valueOf(scriptCall::Answer const &answer)
{
    EXPECT_TRUE(answer.ok) << answer.message.constData();
    return valueOf<T>(answer.object());
}

} // namespace proxyValues
