#pragma once

/// @file
/// The answer of a predicate.

namespace orvelExact {

/// The sign of a determinant, exact.
enum class Sign {
    Negative = -1,
    Zero = 0,
    Positive = 1,
    NotFinite = 2 ///< an argument is NaN or infinite: there is no sign
};

/// The other way round; `Zero` and `NotFinite` stay.
constexpr Sign opposite(Sign sign)
{
    return sign == Sign::Positive ? Sign::Negative : sign == Sign::Negative ? Sign::Positive : sign;
}

} // namespace orvelExact
