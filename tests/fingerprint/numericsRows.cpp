#include "fingerprint/Rows.h"

#include <OrvelMath/numerics/CircleFit.h>
#include <OrvelMath/numerics/EigenVectorComputationC.h>
#include <OrvelMath/numerics/JacobiMethod.h>
#include <OrvelMath/numerics/LinearDiophantineEquationC.h>
#include <OrvelMath/numerics/LinearSystemT_p.h>
#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/PowerMethod.h>
#include <OrvelMath/numerics/Transforms.h>
#include <OrvelMath/numerics/WielandtMethod.h>
#include <OrvelMath/numerics/runPCA.h>

#include <cstdlib>

namespace fingerprint {

namespace {

constexpr unsigned int maxSize = 9;

/// Draws a matrix; symmetric ones element by element through their own setter.
template <typename Matrix>
void fill(Matrix &matrix, unsigned int size, Stream &stream)
{
    bool const lattice = stream.below(4) == 0;
    for (unsigned int i = 0; i < size; ++i) {
        for (unsigned int k = i; k < size; ++k) {
            double const value = lattice ? double(stream.below(8)) - 3.0 : stream.unit() * 4.0;
            matrix.setElement(i, k, value);
            matrix.setElement(k, i, value);
        }
    }
}

template <typename Matrix>
void addElements(Hash &hash, Matrix &matrix, unsigned int size)
{
    for (unsigned int i = 0; i < size * size; ++i) {
        hash.add(matrix.getElement(i / size, i % size));
    }
}

void runJacobi(Stream &stream, Hash &hash)
{
    unsigned int const size = 1 + unsigned(stream.below(int(maxSize)));
    SymmetricMatrixNXN matrix(size);
    fill(matrix, size, stream);
    JacobiMethod method(&matrix);
    for (int i = 0; i < 40 && !method.iterate(); ++i) {
        hash.add(method.getQuality());
    }
    hash.add(method.getQuality());
    addElements(hash, matrix, size);
    for (unsigned int i = 0; i < size; ++i) {
        hash.add(method.getEigenvalue(i));
        PValOrderedVector<double> vector;
        method.getEigenvector(i, vector);
        for (int k = 0; k < vector.size(); ++k) {
            hash.add(vector[k]);
        }
    }
}

template <typename Method>
void runSteps(Hash &hash, Method &method, unsigned int size)
{
    for (int i = 0; i < 60 && !method.iterate(); ++i) {
        hash.add(method.getQuality());
    }
    hash.add(method.getQuality());
    hash.add(method.getEigenvalue());
    for (unsigned int i = 0; i < size; ++i) {
        hash.add(method.getEigenvector()[i]);
    }
}

template <typename Matrix>
void runPower(Stream &stream, Hash &hash)
{
    std::srand(unsigned(stream.below(1000)));
    unsigned int const size = 1 + unsigned(stream.below(int(maxSize)));
    Matrix matrix(size);
    fill(matrix, size, stream);
    PowerMethod method(&matrix, stream.tolerance());
    runSteps(hash, method, size);
}

template <typename Matrix>
void runWielandt(Stream &stream, Hash &hash)
{
    std::srand(unsigned(stream.below(1000)));
    unsigned int const size = 2 + unsigned(stream.below(int(maxSize) - 1));
    Matrix matrix(size);
    fill(matrix, size, stream);
    std::vector<double> vector(size);
    for (double &value : vector) {
        value = stream.unit();
    }
    vector[std::size_t(stream.below(int(size) - 1))] = 2.0; // the largest must not be the last
    double const eigenvalue = stream.unit() * 5.0;
    WielandtMethod method(&matrix, eigenvalue, vector.data(), stream.tolerance());
    runSteps(hash, method, size);
    addElements(hash, *method.getDeflatedMatrix(), size);
}

/// Eigenvectors are asked of symmetric matrices; others are allowed and fixed as well.
Row eigenVectorRow(std::string name, MatUtil::EigenVectorAlgoE algorithm)
{
    return withLibrary(std::move(name),
                       [=](matrixC3x3<double> const &m, Hash &hash) {
                           double first[3] = {7.0, 8.0, 9.0};
                           double second[3] = {7.0, 8.0, 9.0};
                           double values[3] = {7.0, 8.0, 9.0};
                           hash.add(MatUtil::getEigenVector3d(m, first, second, values, algorithm));
                           for (int i = 0; i < 3; ++i) {
                               hash.add(first[i]);
                               hash.add(second[i]);
                               hash.add(values[i]);
                           }
                       },
                       {30000, false, true});
}

std::vector<Row> eigenRows()
{
    return {
        withLibrary("JacobiMethod", runJacobi, {6000, false, true}),
        own("PowerMethod MatrixNXN", runPower<MatrixNXN>, {6000, false, true}),
        own("PowerMethod SymmetricMatrixNXN", runPower<SymmetricMatrixNXN>, {6000, false, true}),
        own("WielandtMethod MatrixNXN", runWielandt<MatrixNXN>, {6000, false, true}),
        own("WielandtMethod SymmetricMatrixNXN", runWielandt<SymmetricMatrixNXN>,
            {6000, false, true}),
        eigenVectorRow("MatUtil::getEigenVector3d power", MatUtil::EigenVectorPower),
        eigenVectorRow("MatUtil::getEigenVector3d QR", MatUtil::EigenVectorQR),
        eigenVectorRow("MatUtil::getEigenVector3d analytic", MatUtil::EigenVectorAnalytic),
        withLibrary("EigenVectorComputationC",
                    [](matrixC3x3<double> const &m, Hash &hash) {
                        EigenVectorComputationC const computation(m);
                        hash.add(computation.isValid());
                        hash.add(computation.getEigenVectors());
                        return computation.getEigenValues();
                    },
                    {30000, false, true}),
        own("EigenVectorComputationC::check",
            [](matrixC3x3<double> const &m, vectorC3d<double> const &v, double value) {
                return EigenVectorComputationC::check(m, v, value);
            }),
        own("EigenVectorComputationC::standardize",
            [](matrixC3x3<double> &m, vectorC3d<double> &v) {
                EigenVectorComputationC::standardize(m, v);
            },
            {100000, false, true}),
    };
}

/// A system with drawn columns: its rank and determinant, a solution and what it leaves free.
template <int Rows, int Columns>
void runSystem(Stream &stream, Hash &hash)
{
    double columns[Rows * Columns];
    double rhs[Rows];
    for (double &value : columns) {
        value = stream.number();
    }
    for (double &value : rhs) {
        value = stream.number();
    }
    LinearSystemT<Rows, Columns> const system(columns, 1e-12);
    double solution[Columns] = {};
    double nullSpace[Columns * Columns] = {};
    hash.add(int(system.rank));
    hash.add(system.determinant);
    hash.add(system.solve(rhs, solution, nullSpace));
    for (double value : solution) {
        hash.add(value);
    }
    for (double value : nullSpace) {
        hash.add(value);
    }
}

std::vector<Row> systemRows()
{
    return {
        own("LinearSystemT 2x3", runSystem<2, 3>),
        own("LinearSystemT 3x2", runSystem<3, 2>),
        own("LinearSystemT 3x3", runSystem<3, 3>),
        own("LinearSystemT 4x4", runSystem<4, 4>),
    };
}

std::vector<Row> fitRows()
{
    using Points = std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>>;
    auto const drawn = [](Stream &stream) {
        Points points(std::size_t(stream.below(30)));
        for (auto &p : points) {
            stream.draw(p);
        }
        return points;
    };
    return {
        withLibrary("runPCA",
                    [](Stream &stream, Hash &hash) {
                        PValOrderedVector<Point3D> points;
                        int const count = stream.below(40);
                        for (int i = 0; i < count; ++i) {
                            points.append(stream.point3());
                        }
                        double value[3] = {7.0, 8.0, 9.0};
                        double centre[3] = {7.0, 8.0, 9.0};
                        Point3D axis[3];
                        runPCA(value[0], centre[0], axis[0], value[1], centre[1], axis[1], value[2],
                               centre[2], axis[2], points);
                        for (int i = 0; i < 3; ++i) {
                            hash.add(value[i]);
                            hash.add(centre[i]);
                            hash.add(axis[i]);
                        }
                    },
                    {10000, false, true}),
        own("MatUtil::kasaFit",
            [=](Stream &stream, Hash &hash) {
                auto const [centre, radius] = MatUtil::kasaFit(drawn(stream));
                hash.add(centre);
                hash.add(radius);
            },
            {20000, true, true}),
        own("MatUtil::taubinFit",
            [=](Stream &stream, Hash &hash, double minDeterminant) {
                auto const [centre, radius] = MatUtil::taubinFit(drawn(stream), minDeterminant);
                hash.add(centre);
                hash.add(radius);
            },
            {20000, true, true}),
        own("LinearDiophantineEquationC",
            [](Stream &stream, Hash &hash) {
                auto const integer = [&] { return stream.below(601) - 300; };
                int const a = integer();
                LinearDiophantineEquationC const equation(a, integer());
                int const c = integer();
                int x = 77;
                int y = 78;
                int xStep = 79;
                int yStep = 80;
                hash.add(equation.solve(c, x, y, xStep, yStep));
                hash.add(equation.testSolution(c, x, y));
                int const xMin = integer();
                int const yMin = integer();
                int const width = stream.below(50);
                hash.add(equation.findSolutionInRange(c, xMin, xMin + width, yMin,
                                                      yMin + stream.below(50), x, y));
                for (int value : {x, y, xStep, yStep}) {
                    hash.add(value);
                }
            }),
    };
}

/// Transforms of one size with drawn data and roots; the arrays may be the same.
void runFourier(Stream &stream, Hash &hash, int n)
{
    std::size_t const size = std::size_t(n);
    std::vector<double> rootsRe(size);
    std::vector<double> rootsIm(size);
    std::vector<double> re(size);
    std::vector<double> im(size);
    std::vector<double> outRe(size);
    std::vector<double> outIm(size);
    std::vector<double> scratch(2 * size);
    for (auto *values : {&rootsRe, &rootsIm, &re, &im}) {
        for (double &value : *values) {
            value = stream.unit();
        }
    }
    computeFFT(re.data(), im.data(), outRe.data(), outIm.data(), n, rootsRe.data(), rootsIm.data(),
               scratch.data());
    hash.add(outRe);
    hash.add(outIm);
    computeInverseFFT(outIm.data(), outRe.data(), outIm.data(), outRe.data(), n, rootsRe.data(),
                      rootsIm.data(), scratch.data());
    hash.add(outRe);
    hash.add(outIm);
    computeFFT(re.data(), im.data(), rootsRe.data(), rootsIm.data(), n, rootsRe.data(),
               rootsIm.data(), scratch.data());
    hash.add(rootsRe);
    hash.add(rootsIm);
}

void runLegendre(Stream &stream, Hash &hash)
{
    int const size = stream.below(70);
    int const order = stream.below(8);
    std::size_t const samples = std::size_t(size);
    std::vector<double> data(samples);
    std::vector<double> weights(samples);
    std::vector<double> scratch(samples);
    std::vector<double> table(samples * (samples / 2) + 1);
    std::vector<double> result(samples / 2 + 1, support::preset);
    for (auto *values : {&data, &weights, &table}) {
        for (double &value : *values) {
            value = stream.unit();
        }
    }
    legendreTrafo(data.data(), result.data(), size, order, weights.data(), table.data(),
                  scratch.data());
    hash.add(result);
    hash.add(scratch);
}

void runSpherical(Stream &stream, Hash &hash, bool realData)
{
    int const bandwidth = 1 << stream.below(5);
    std::size_t const rows = std::size_t(2 * bandwidth);
    std::vector<double> re(rows * rows);
    std::vector<double> im(rows * rows);
    std::vector<double> weights(rows);
    std::vector<double> table(rows * rows * rows);
    std::vector<double> workspace(2 * rows * rows + 5 * rows);
    std::vector<double> outRe(rows * rows / 4 + 1, support::preset);
    std::vector<double> outIm(rows * rows / 4 + 1, support::preset);
    std::vector<int> offsets;
    for (int m = 0; m < bandwidth; ++m) {
        offsets.push_back(m * int(rows) * bandwidth);
    }
    for (auto *values : {&re, &im, &weights, &table}) {
        for (double &value : *values) {
            value = stream.unit();
        }
    }
    computeFSTSlow(re.data(), im.data(), outRe.data(), outIm.data(), workspace.data(), realData,
                   table.data(), weights.data(), offsets.data(), bandwidth);
    hash.add(outRe);
    hash.add(outIm);
}

std::vector<Row> transformRows()
{
    return {
        withLibrary("generateRoots",
                    [](Stream &stream, Hash &hash) {
                        int const n = stream.below(300) - 2;
                        std::vector<double> re(300, support::preset);
                        std::vector<double> im(300, support::preset);
                        generateRoots(re.data(), im.data(), n);
                        hash.add(re);
                        hash.add(im);
                    },
                    {200, false, true}),
        own("computeFFT",
            [](Stream &stream, Hash &hash) {
                for (int n = 1; n <= 16384; n *= 2) {
                    runFourier(stream, hash, n);
                }
            },
            {2, false, true}),
        own("legendreTrafo", runLegendre, {500, false, true}),
        withLibrary("computeFSTSlow real",
                    [](Stream &stream, Hash &hash) { runSpherical(stream, hash, true); },
                    {40, false, true}),
        withLibrary("computeFSTSlow complex",
                    [](Stream &stream, Hash &hash) { runSpherical(stream, hash, false); },
                    {40, false, true}),
    };
}

} // namespace

std::vector<Row> numericsRows()
{
    std::vector<Row> rows;
    for (auto const &part : {eigenRows(), systemRows(), fitRows(), transformRows()}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

} // namespace fingerprint
