#include <OrvelMath/engine/LinearSystemT_p.h>

#include "support/Bits.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

/// Reduction by the definition: every step multiplies the record T by a full matrix P, with sums
/// from 0.0 in index order. The zeros of P spread NaN, and no sum is a negative zero.
template <int R, int C>
struct FullProducts
{
    double u[R * C];
    double t[R * R] = {};
    int rank = 0;

    FullProducts(double const *columns, double epsilon)
    {
        for (int cell = 0; cell < R * C; ++cell) {
            u[cell] = columns[cell];
        }
        for (int i = 0; i < R; ++i) {
            t[i + R * i] = 1.0;
        }
        for (int k = 0; k < C && rank < R; ++k) {
            multiply(step(k, epsilon));
        }
    }

    double &at(int row, int column) { return u[row + R * column]; }

    std::array<double, R * R> step(int k, double epsilon)
    {
        std::array<double, R * R> p{};
        auto const cell = [&p](int row, int column) -> double & {
            return p[static_cast<std::size_t>(row + R * column)];
        };
        for (int i = 0; i < R; ++i) {
            cell(i, i) = 1.0;
        }

        int const r = rank;
        int from = r;
        for (int i = r + 1; i < R; ++i) {
            if (std::fabs(at(i, k)) > std::fabs(at(from, k))) {
                from = i;
            }
        }
        if (!(std::fabs(at(from, k)) > epsilon)) {
            for (int i = r; i < R; ++i) {
                at(i, k) = 0.0;
            }
            return p;
        }
        ++rank;
        if (from != r) {
            for (int c = k; c < C; ++c) {
                std::swap(at(r, c), at(from, c));
            }
            cell(from, r) = 1.0;
            cell(r, r) = 0.0;
            cell(from, from) = 0.0;
        }
        double const pivot = at(r, k);
        for (int c = k + 1; c < C; ++c) {
            at(r, c) /= pivot;
        }
        at(r, k) = 1.0;
        cell(r, from) = 1.0 / pivot;
        for (int i = r + 1; i < R; ++i) {
            double const factor = at(i, k);
            for (int c = k + 1; c < C; ++c) {
                at(i, c) -= at(r, c) * factor;
            }
            at(i, k) = 0.0;
            cell(i, from) = -factor * (1.0 / pivot);
        }
        return p;
    }

    void multiply(std::array<double, R * R> const &p)
    {
        double product[R * R];
        for (int c = 0; c < R; ++c) {
            for (int r = 0; r < R; ++r) {
                double sum = 0.0;
                for (int k = 0; k < R; ++k) {
                    sum += p[static_cast<std::size_t>(r + R * k)] * t[k + R * c];
                }
                product[r + R * c] = sum;
            }
        }
        for (int cell = 0; cell < R * R; ++cell) {
            t[cell] = product[cell];
        }
    }
};

/// Ties, zeros of both signs, values beside the epsilon, overflow, underflow and what isn't finite.
rc::Gen<double> anyElement()
{
    return rc::gen::weightedOneOf<double>(
        {{6, rc::gen::map(rc::gen::inRange(-3, 4), [](int i) { return static_cast<double>(i); })},
         {3, rc::gen::map(rc::gen::inRange(-9999, 10000), [](int i) { return i / 1234.0; })},
         {2, rc::gen::element(0.0, -0.0, 1e-12, -1e-12, 2e-12, 1e300, -1e200, 1e-200, 5e-324)},
         {1, rc::gen::element(support::nan, support::inf, -support::inf)}});
}

template <int R, int C>
void checkRecord()
{
    auto const columns = *rc::gen::container<std::vector<double>>(R * C, anyElement());
    double const epsilon = *rc::gen::element(0.0, 1e-12, 1.0);
    LinearSystemT<R, C> const system(columns.data(), epsilon);
    FullProducts<R, C> const full(columns.data(), epsilon);
    RC_ASSERT(system.rank == full.rank);
    for (int cell = 0; cell < R * C; ++cell) {
        RC_ASSERT(support::sameBits(full.u[cell], system.reduced[cell]));
    }
    for (int cell = 0; cell < R * R; ++cell) {
        RC_ASSERT(support::sameBits(full.t[cell], system.transform[cell]));
    }
}

} // namespace

RC_GTEST_PROP(LinearSystemTransform, IsTheProductOfAllStepsTwoByTwo, ())
{
    checkRecord<2, 2>();
}

RC_GTEST_PROP(LinearSystemTransform, IsTheProductOfAllStepsTwoByThree, ())
{
    checkRecord<2, 3>();
}

RC_GTEST_PROP(LinearSystemTransform, IsTheProductOfAllStepsThreeByTwo, ())
{
    checkRecord<3, 2>();
}

RC_GTEST_PROP(LinearSystemTransform, IsTheProductOfAllStepsThreeByThree, ())
{
    checkRecord<3, 3>();
}
