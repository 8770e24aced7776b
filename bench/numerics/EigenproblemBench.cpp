#include <OrvelMath/numerics/EigenVectorComputationC.h>
#include <OrvelMath/numerics/JacobiMethod.h>
#include <OrvelMath/numerics/LinearDiophantineEquationC.h>
#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/runPCA.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_EIGEN
#include <Eigen/Eigenvalues>
#endif

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

void jacobiOurs(benchmark::State &state)
{
    unsigned int const n = unsigned(state.range(0));
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

void eigen3x3OursBestOfThree(benchmark::State &state)
{
    auto const matrices = smallMatrices();
    std::size_t i = 0;
    for (auto _ : state) {
        EigenVectorComputationC const result(matrices[i++ % matrices.size()]);
        benchmark::DoNotOptimize(result.getEigenValues());
    }
}

void eigen3x3Ours(benchmark::State &state)
{
    auto const matrices = smallMatrices();
    auto const algorithm = MatUtil::EigenVectorAlgoE(state.range(0));
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

void pcaOurs(benchmark::State &state)
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
void jacobiEigen(benchmark::State &state)
{
    int const n = int(state.range(0));
    std::vector<double> const a = randomSymmetric(unsigned(n));
    Eigen::MatrixXd const matrix = Eigen::Map<Eigen::MatrixXd const>(a.data(), n, n);
    for (auto _ : state) {
        Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> const solver(matrix);
        benchmark::DoNotOptimize(solver.eigenvalues()[0]);
    }
}

/// Argument 0: iterative; 1: closed form.
void eigen3x3Eigen(benchmark::State &state)
{
    std::vector<Eigen::Matrix3d> matrices;
    for (auto const &m : smallMatrices()) {
        matrices.push_back(Eigen::Map<Eigen::Matrix3d const>(m.data()));
    }
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    std::size_t i = 0;
    for (auto _ : state) {
        Eigen::Matrix3d const &matrix = matrices[i++ % matrices.size()];
        state.range(0) == 0 ? solver.compute(matrix) : solver.computeDirect(matrix);
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

BENCHMARK(jacobiEigen)->Arg(3)->Arg(10)->Arg(30)->Arg(60);
BENCHMARK(eigen3x3Eigen)->Arg(0)->Arg(1);
BENCHMARK(pcaEigen);
#endif

BENCHMARK(jacobiOurs)->Arg(3)->Arg(10)->Arg(30)->Arg(60);
BENCHMARK(eigen3x3Ours)->Arg(0)->Arg(1)->Arg(2);
BENCHMARK(eigen3x3OursBestOfThree);
BENCHMARK(pcaOurs);
BENCHMARK(diophantineConstruct);
BENCHMARK(diophantineSolve);
BENCHMARK(diophantineRange);

} // namespace
