#include <OrvelMath/numerics/quick/JacobiSweep_p.h>

#include <OrvelMath/engine/Lanes_p.h>
#include <OrvelMath/engine/vectorWidth_p.h>
#include <OrvelMath/numerics/JacobiRotation_p.h>
#include <OrvelMath/numerics/quick/MatrixCells_p.h>

#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <new>

namespace {

constexpr std::size_t widest = 4; // vectors of eight would end in longer tails, to no gain

/// Both matrices as rows, each filled up with zeros to whole vectors.
struct Rows
{
    std::size_t n;
    std::size_t stride;
    double *matrix;
    double *vectors;

    double *matrixRow(std::size_t i) const { return matrix + i * stride; }
    double *vectorRow(std::size_t i) const { return vectors + i * stride; }

    void unpack(double const *packed, double const *dense) const
    {
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = i; j < n; ++j) {
                matrixRow(i)[j] = matrixRow(j)[i] = *packed++;
            }
            for (std::size_t j = 0; j < n; ++j) {
                vectorRow(j)[i] = *dense++;
            }
        }
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = n; j < stride; ++j) {
                matrixRow(i)[j] = vectorRow(i)[j] = 0.0;
            }
        }
    }

    void pack(double *packed, double *dense) const
    {
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = i; j < n; ++j) {
                *packed++ = matrixRow(i)[j];
            }
            for (std::size_t j = 0; j < n; ++j) {
                *dense++ = vectorRow(j)[i];
            }
        }
    }
};

template <int W>
ORVEL_INLINE void turn(double *rowP, double *rowQ, std::size_t stride, JacobiRotation const &r)
{
    using L = engine::Lanes<double, W>;
    typename L::Vector s, tau, g, h;
    L::broadcast(s, r.s);
    L::broadcast(tau, r.tau);
    for (std::size_t i = 0; i < stride; i += W) {
        L::load(g, rowP + i);
        L::load(h, rowQ + i);
        L::store(rowP + i, g - s * (g * tau + h));
        L::store(rowQ + i, h + s * (g - h * tau));
    }
}

template <int W>
ORVEL_INLINE void rotate(Rows const &rows, std::size_t p, std::size_t q)
{
    Q_ASSERT(p < q && q < rows.n);
    double *const rowP = rows.matrixRow(p);
    double *const rowQ = rows.matrixRow(q);
    double const app = rowP[p];
    double const aqq = rowQ[q];
    double const apq = rowP[q];
    JacobiRotation const r(app, aqq, apq);
    turn<W>(rowP, rowQ, rows.stride, r);
    rowP[p] = app - r.t * apq;
    rowQ[q] = aqq + r.t * apq;
    rowP[q] = rowQ[p] = 0.0;
    for (std::size_t i = 0; i < rows.n; ++i) {
        rows.matrixRow(i)[p] = rowP[i];
        rows.matrixRow(i)[q] = rowQ[i];
    }
    turn<W>(rows.vectorRow(p), rows.vectorRow(q), rows.stride, r);
}

template <int W>
ORVEL_INLINE void sweep(Rows const &rows, double threshold)
{
    Q_ASSERT(rows.stride >= rows.n && rows.stride % W == 0);
    for (std::size_t p = 0; p < rows.n; ++p) {
        for (std::size_t q = p + 1; q < rows.n; ++q) {
            double &apq = rows.matrixRow(p)[q];
            double const app = rows.matrixRow(p)[p];
            double const aqq = rows.matrixRow(q)[q];
            if (threshold > std::fabs(apq)) {
                continue;
            }
            if (JacobiRotation::isNegligible(apq, app, aqq)) {
                apq = rows.matrixRow(q)[p] = 0.0;
            } else {
                rotate<W>(rows, p, q);
            }
        }
    }
}

#if defined(__x86_64__)
ORVEL_TARGET("avx2")
void sweepByFours(Rows const &rows, double threshold)
{
    sweep<4>(rows, threshold);
}
#endif

void sweepByTwos(Rows const &rows, double threshold)
{
    sweep<2>(rows, threshold);
}

} // namespace

bool JacobiSweep::run(MatrixIF &matrix, MatrixIF &eigenvectors, unsigned int n, double threshold)
{
    double *const packed = MatrixCells::packed(matrix, n);
    double *const dense = MatrixCells::dense(eigenvectors, n);
    if (packed == nullptr || dense == nullptr) {
        return false;
    }
    std::size_t const stride = (n + widest - 1) / widest * widest;
    double few[2 * 8 * 8]; // up to 8 rows need no heap
    std::unique_ptr<double[]> many;
    if (n > 8) {
        many.reset(new (std::nothrow) double[2 * n * stride]);
        if (!many) {
            return false;
        }
    }
    double *const memory = n > 8 ? many.get() : few;
    Rows const rows{n, stride, memory, memory + n * stride};
    rows.unpack(packed, dense);
#if defined(__x86_64__)
    auto *const sweepRows = engine::vectorWidth() >= 4 ? sweepByFours : sweepByTwos;
#else
    auto *const sweepRows = sweepByTwos;
#endif
    sweepRows(rows, threshold);
    rows.pack(packed, dense);
    return true;
}
