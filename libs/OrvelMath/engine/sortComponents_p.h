#pragma once

/// @file
/// The components of a vector in ascending order.

#include <utility>

namespace engine {

/// Sorts three components by insertion: stable, and free of undefined behaviour when one is NaN.
template <typename Vector>
void sortComponents(Vector &v)
{
    for (int end = 1; end < 3; ++end) {
        for (int i = end; i > 0 && v[i] < v[i - 1]; --i) {
            std::swap(v[i], v[i - 1]);
        }
    }
}

/// Sorts by three exchanges, (0, 1), (0, 2) and (1, 2); the columns of `m`,
/// whose cells lie column by column, go with the components.
template <typename Vector, typename Matrix>
void sortComponents(Vector &v, Matrix &m)
{
    auto const sortTwo = [&](int first, int second) {
        if (!(v[first] > v[second])) {
            return;
        }
        std::swap(v[first], v[second]);
        for (int row = 0; row < 3; ++row) {
            std::swap(m[3 * first + row], m[3 * second + row]);
        }
    };
    sortTwo(0, 1);
    sortTwo(0, 2);
    sortTwo(1, 2);
}

} // namespace engine
