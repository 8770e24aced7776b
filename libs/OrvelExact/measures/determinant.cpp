#include <OrvelExact/measures/matrices.h>

#include <OrvelExact/measures/vectors_p.h>
#include <OrvelExact/predicates/Expansion_p.h>

#include <limits>

namespace orvelExact {

namespace {

/// The columns of a matrix, each by a power of two that brings its largest element to 0.5 to 1.
template <int n>
struct Columns
{
    double at[n][n];  ///< column, row
    int exponent = 0; ///< of the product of the powers
    bool isFinite = true;
    bool hasZero = false;

    template <typename Matrix>
    explicit Columns(Matrix const &m)
    {
        for (int column = 0; column < n; ++column) {
            double largest = 0.0;
            for (int row = 0; row < n; ++row) {
                isFinite = isFinite && std::isfinite(m(row, column));
                largest = std::max(largest, std::fabs(m(row, column)));
            }
            hasZero = hasZero || largest == 0.0;
            int const own = isFinite ? exponentOf(largest) : 0;
            exponent += own;
            for (int row = 0; row < n; ++row) {
                at[column][row] = timesPowerOfTwo(m(row, column), -own);
            }
        }
    }
};

/// The product of an element and a minor, both of 106 bits or both without rounding.
struct Wide
{
    static DoubleDouble product(double a, double b) { return wideProduct(a, b); }
};
struct Exact
{
    static Expansion<2> product(double a, double b) { return expand(twoProduct(a, b)); }
};

/// The minor of two rows in the columns a and b.
template <typename Arithmetic>
auto minorOf(double const *a, double const *b, int i, int k)
{
    return Arithmetic::product(a[i], b[k]) - Arithmetic::product(a[k], b[i]);
}

template <typename Arithmetic>
auto determinantOf(Columns<3> const &m)
{
    double const *const a = m.at[0], *const b = m.at[1], *const c = m.at[2];
    return minorOf<Arithmetic>(b, c, 1, 2) * a[0] + minorOf<Arithmetic>(b, c, 2, 0) * a[1] +
           minorOf<Arithmetic>(b, c, 0, 1) * a[2];
}

/// By the minors of the first two columns and those of the last two (Laplace 1772).
template <typename Arithmetic>
auto determinantOf(Columns<4> const &m)
{
    double const *const a = m.at[0], *const b = m.at[1], *const c = m.at[2], *const d = m.at[3];
    auto const left = [a, b](int i, int k) { return minorOf<Arithmetic>(a, b, i, k); };
    auto const right = [c, d](int i, int k) { return minorOf<Arithmetic>(c, d, i, k); };
    return left(0, 1) * right(2, 3) + left(0, 2) * right(3, 1) + left(0, 3) * right(1, 2) +
           left(1, 2) * right(0, 3) + left(3, 1) * right(0, 2) + left(2, 3) * right(0, 1);
}

template <int n>
double valueOf(Columns<n> const &m)
{
    DoubleDouble const wide = determinantOf<Wide>(m);
    if (std::fabs(wide.high) > 0x1p-38) { // by its error, below 2^-95, at least 2^57
        return rounded(wide);
    }
    auto const exact = determinantOf<Exact>(m);
    double value = 0.0;
    for (int i = 0; i < exact.size; ++i) {
        value += exact.parts[i];
    }
    return value;
}

template <int n>
Determinant resultOf(Columns<n> const &m)
{
    if (!m.isFinite) {
        return {Status::NotFinite, 0.0};
    }
    double const value = m.hasZero ? 0.0 : valueOf(m);
    double const result = timesPowerOfTwo(value, m.exponent);
    bool const isLost = std::fabs(result) < std::numeric_limits<double>::min() && value != 0.0;
    if (!std::isfinite(result) || isLost) {
        return {Status::OutOfRange, 0.0};
    }
    return {Status::Ok, result};
}

} // namespace

Determinant determinantOf(matrixC3x3<double> const &m)
{
    return resultOf(Columns<3>(m));
}

Determinant determinantOf(matrixC4x4<double> const &m)
{
    return resultOf(Columns<4>(m));
}

} // namespace orvelExact
