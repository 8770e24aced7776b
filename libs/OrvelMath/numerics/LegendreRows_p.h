#pragma once

/// @file
/// Products of table rows with one vector, eight rows side by side.

#include <OrvelMath/engine/Lanes_p.h>

#include <utility>

namespace Legendre {

constexpr int rowsTogether = 8;

/// The sums of W rows, a lane each.
template <int W>
class RowGroup
{
    using L = engine::Lanes<double, W>;
    using Vector = typename L::Vector;
    using Lane = std::make_integer_sequence<int, W>;

public:
    /// Adds the products of elements j to j + W - 1 of the rows and of x, in this order.
    ORVEL_INLINE void add(double const *const *rows, double const *x, int j)
    {
        add(rows, x, j, Lane());
    }

    ORVEL_INLINE void store(double *sums) const { L::store(sums, m_sums); }

private:
    template <int... I>
    ORVEL_INLINE void add(double const *const *rows, double const *x, int j,
                          std::integer_sequence<int, I...>)
    {
        Vector elements[W];
        (L::load(elements[I], rows[I] + j), ...);
        L::transpose(elements);
        (addProduct(elements[I], x[j + I]), ...);
    }

    ORVEL_INLINE void addProduct(Vector const &elements, double x)
    {
        Vector factor = {};
        L::broadcast(factor, x);
        m_sums += elements * factor;
    }

    Vector m_sums = {};
};

/// sums[r] becomes the sum over j of rows[r][j] * x[j], from 0.0 in the order of j. Each sum is one
/// lane's own, so the rows hide each other's latency while no sum is split.
template <int W, int... Group>
ORVEL_INLINE void multiplyRows(double const *const (&rows)[rowsTogether], double const *x, int size,
                               double (&sums)[rowsTogether], std::integer_sequence<int, Group...>)
{
    RowGroup<W> groups[sizeof...(Group)];
    int j = 0;
    for (; j + W <= size; j += W) {
        (groups[Group].add(rows + Group * W, x, j), ...);
    }
    (groups[Group].store(sums + Group * W), ...);
    for (; j < size; ++j) {
        for (int r = 0; r < rowsTogether; ++r) {
            sums[r] += rows[r][j] * x[j];
        }
    }
}

template <int W>
ORVEL_INLINE void multiplyRows(double const *const (&rows)[rowsTogether], double const *x, int size,
                               double (&sums)[rowsTogether])
{
    multiplyRows<W>(rows, x, size, sums, std::make_integer_sequence<int, rowsTogether / W>());
}

} // namespace Legendre
