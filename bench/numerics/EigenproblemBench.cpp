#include "../support/rows.h"

#include <OrvelMath/numerics/EigenVectorComputationC.h>
#include <OrvelMath/numerics/JacobiMethod.h>
#include <OrvelMath/numerics/LinearDiophantineEquationC.h>
#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/runPCA.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_EIGEN
#include <Eigen/Eigenvalues>
#endif

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace {

/// n*n random values, symmetric.
std::vector<double> randomSymmetric(unsigned int n)
{
    std::mt19937 random(n);
    std::uniform_real_distribution<double> values(-10.0, 10.0);
    std::vector<double> a(n * n);
    for (unsigned int i = 0; i < n; ++i) {
        for (unsigned int j = i; j < n; ++j) {
            a[i * n + j] = a[j * n + i] = values(random);
        }
    }
    return a;
}

void jacobiOrvel(benchmark::State &state, std::int64_t size)
{
    unsigned int const n = unsigned(size);
    std::vector<double> const a = randomSymmetric(n);
    SymmetricMatrixNXN matrix(n);
    for (auto _ : state) {
        for (unsigned int i = 0; i < n; ++i) {
            for (unsigned int j = i; j < n; ++j) {
                matrix.setElement(i, j, a[i * n + j]);
            }
        }
        JacobiMethod method(&matrix);
        while (!method.iterate()) {
        }
        benchmark::DoNotOptimize(method.getEigenvalue(0));
    }
}

/// The textbook's method: each element above the diagonal is rotated to zero in its turn, in dense
/// arrays and without thresholds, until the elements above the diagonal sum up to 1e-8 as ours.
class PlainJacobi
{
public:
    PlainJacobi(std::vector<double> const &matrix, std::size_t n)
        : m_n(n)
        , m_a(matrix)
        , m_v(n * n, 0.0)
    {
        for (std::size_t i = 0; i < n; ++i) {
            m_v[i * n + i] = 1.0;
        }
        while (sumAboveDiagonal() > 1e-8) {
            for (std::size_t p = 0; p < n; ++p) {
                for (std::size_t q = p + 1; q < n; ++q) {
                    rotate(p, q);
                }
            }
        }
    }

    double eigenvalue(std::size_t i) const { return m_a[i * m_n + i]; }

private:
    double sumAboveDiagonal() const
    {
        double sum = 0.0;
        for (std::size_t p = 0; p < m_n; ++p) {
            for (std::size_t q = p + 1; q < m_n; ++q) {
                sum += std::fabs(m_a[p * m_n + q]);
            }
        }
        return sum;
    }

    void rotate(std::size_t p, std::size_t q)
    {
        double const apq = m_a[p * m_n + q];
        if (apq == 0.0) {
            return;
        }
        double const theta = (m_a[q * m_n + q] - m_a[p * m_n + p]) / (2.0 * apq);
        double const t = std::copysign(1.0, theta) / (std::fabs(theta) + std::hypot(theta, 1.0));
        double const c = 1.0 / std::sqrt(t * t + 1.0), s = t * c;
        for (std::size_t i = 0; i < m_n; ++i) { // columns p and q
            turn(m_a[i * m_n + p], m_a[i * m_n + q], c, s);
            turn(m_v[i * m_n + p], m_v[i * m_n + q], c, s);
        }
        for (std::size_t i = 0; i < m_n; ++i) { // rows p and q
            turn(m_a[p * m_n + i], m_a[q * m_n + i], c, s);
        }
        m_a[p * m_n + q] = m_a[q * m_n + p] = 0.0;
    }

    static void turn(double &x, double &y, double c, double s)
    {
        double const oldX = x;
        x = c * oldX - s * y;
        y = s * oldX + c * y;
    }

    std::size_t m_n;
    std::vector<double> m_a; ///< the matrix, row by row
    std::vector<double> m_v; ///< the eigenvectors as columns
};

void jacobiPlain(benchmark::State &state, std::int64_t size)
{
    std::vector<double> const a = randomSymmetric(unsigned(size));
    for (auto _ : state) {
        PlainJacobi const method(a, std::size_t(size));
        benchmark::DoNotOptimize(method.eigenvalue(0));
    }
}

/// A thousand symmetric matrices of 3x3.
std::vector<matrixC3x3<double>> smallMatrices()
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> values(-10.0, 10.0);
    std::vector<matrixC3x3<double>> matrices(1000);
    for (auto &m : matrices) {
        for (int i = 0; i < 3; ++i) {
            for (int j = i; j < 3; ++j) {
                m(i, j) = m(j, i) = values(random);
            }
        }
    }
    return matrices;
}

void eigen3x3OrvelBestOfThree(benchmark::State &state)
{
    auto const matrices = smallMatrices();
    std::size_t i = 0;
    for (auto _ : state) {
        EigenVectorComputationC const result(matrices[i++ % matrices.size()]);
        benchmark::DoNotOptimize(result.getEigenValues());
    }
}

void eigen3x3Orvel(benchmark::State &state, MatUtil::EigenVectorAlgoE algorithm)
{
    auto const matrices = smallMatrices();
    std::size_t i = 0;
    double first[3], second[3], values[3];
    for (auto _ : state) {
        MatUtil::getEigenVector3d(matrices[i++ % matrices.size()], first, second, values,
                                  algorithm);
        benchmark::DoNotOptimize(values);
    }
}

constexpr int cloudSize = 1000000;

/// Contiguous coordinates of a stretched cloud, x y z by point.
std::vector<double> cloudCoordinates()
{
    std::mt19937 random(5);
    std::normal_distribution<double> normal;
    std::vector<double> coordinates;
    for (int i = 0; i < cloudSize; ++i) {
        double const u = 5 * normal(random), v = 2 * normal(random), w = normal(random);
        coordinates.insert(coordinates.end(), {u + v, u - v + w, w + 10.0});
    }
    return coordinates;
}

void pcaOrvel(benchmark::State &state)
{
    std::vector<double> const c = cloudCoordinates();
    PValOrderedVector<Point3D> points;
    points.reserve(cloudSize);
    for (std::size_t i = 0; i < cloudSize; ++i) {
        points.append(Point3D(c[3 * i], c[3 * i + 1], c[3 * i + 2]));
    }
    double values[3], center[3];
    Point3D axes[3];
    for (auto _ : state) {
        runPCA(values[0], center[0], axes[0], values[1], center[1], axes[1], values[2], center[2],
               axes[2], points);
        benchmark::DoNotOptimize(values);
    }
}

void diophantineConstruct(benchmark::State &state)
{
    int a = 1;
    for (auto _ : state) {
        a = a % 100000 + 7;
        benchmark::DoNotOptimize(LinearDiophantineEquationC(a, 46368));
    }
}

void diophantineSolve(benchmark::State &state)
{
    LinearDiophantineEquationC const equation(28657, 46368);
    int c = 0, x = 0, y = 0, xStep = 0, yStep = 0;
    for (auto _ : state) {
        equation.solve(++c & 0xffff, x, y, xStep, yStep);
        benchmark::DoNotOptimize(x);
    }
    state.SetItemsProcessed(state.iterations());
}

void diophantineRange(benchmark::State &state)
{
    LinearDiophantineEquationC const equation(3, 5);
    int c = 0, x = 0, y = 0;
    for (auto _ : state) {
        equation.findSolutionInRange(++c & 0xffff, 0, 10000, 0, 10000, x, y);
        benchmark::DoNotOptimize(x);
    }
    state.SetItemsProcessed(state.iterations());
}

#ifdef ORVEL_HAVE_EIGEN
void jacobiEigen(benchmark::State &state, std::int64_t size)
{
    int const n = int(size);
    std::vector<double> const a = randomSymmetric(unsigned(n));
    Eigen::MatrixXd const matrix = Eigen::Map<Eigen::MatrixXd const>(a.data(), n, n);
    for (auto _ : state) {
        Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> const solver(matrix);
        benchmark::DoNotOptimize(solver.eigenvalues()[0]);
    }
}

/// Iterative, or in closed form.
void eigen3x3Eigen(benchmark::State &state, bool direct)
{
    std::vector<Eigen::Matrix3d> matrices;
    for (auto const &m : smallMatrices()) {
        matrices.push_back(Eigen::Map<Eigen::Matrix3d const>(m.data()));
    }
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    std::size_t i = 0;
    for (auto _ : state) {
        Eigen::Matrix3d const &matrix = matrices[i++ % matrices.size()];
        direct ? solver.computeDirect(matrix) : solver.compute(matrix);
        benchmark::DoNotOptimize(solver.eigenvectors()(0, 0));
    }
}

void pcaEigen(benchmark::State &state)
{
    std::vector<double> const c = cloudCoordinates();
    Eigen::Map<Eigen::Matrix3Xd const> const points(c.data(), 3, cloudSize);
    for (auto _ : state) {
        Eigen::Vector3d const mean = points.rowwise().mean();
        Eigen::Matrix3Xd const centred = points.colwise() - mean;
        Eigen::Matrix3d const covariance = centred * centred.transpose() / double(cloudSize - 1);
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> const solver(covariance);
        benchmark::DoNotOptimize(solver.eigenvectors()(0, 0));
    }
}

#endif

BENCHMARK_CAPTURE(eigen3x3Orvel, power, MatUtil::EigenVectorPower)
    ->Name("eigen3x3/any/1000/orvel.power");
BENCHMARK_CAPTURE(eigen3x3Orvel, qr, MatUtil::EigenVectorQR)->Name("eigen3x3/any/1000/orvel.qr");
BENCHMARK_CAPTURE(eigen3x3Orvel, analytic, MatUtil::EigenVectorAnalytic)
    ->Name("eigen3x3/any/1000/orvel.analytic");
BENCHMARK(eigen3x3OrvelBestOfThree)->Name("eigen3x3/any/1000/orvel.bestOfThree");
BENCHMARK(pcaOrvel)->Name("pca/cloud/1000000/orvel");
BENCHMARK(diophantineConstruct)->Name("diophantine/construct/1/orvel");
BENCHMARK(diophantineSolve)->Name("diophantine/solve/1/orvel");
BENCHMARK(diophantineRange)->Name("diophantine/range/1/orvel");
#ifdef ORVEL_HAVE_EIGEN
BENCHMARK_CAPTURE(eigen3x3Eigen, compute, false)->Name("eigen3x3/any/1000/eigen.compute");
BENCHMARK_CAPTURE(eigen3x3Eigen, direct, true)->Name("eigen3x3/any/1000/eigen.computeDirect");
BENCHMARK(pcaEigen)->Name("pca/cloud/1000000/eigen");
#endif

[[maybe_unused]] bool const areRegistered = [] {
    std::vector<std::int64_t> const sizes{3, 10, 30, 60};
    rows::add("jacobi/any", sizes, "orvel", jacobiOrvel);
    rows::add("jacobi/any", sizes, "plainJacobi", jacobiPlain);
#ifdef ORVEL_HAVE_EIGEN
    rows::add("jacobi/any", sizes, "eigen", jacobiEigen);
#endif
    return true;
}();

} // namespace
