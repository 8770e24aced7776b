// The bodies that the interfaces bring. They lie in a source so that each table of virtual
// functions is in the library once.

#include <OrvelMath/numerics/AlgorithmIF.h>
#include <OrvelMath/numerics/MatrixIF.h>

AlgorithmIF::AlgorithmIF() = default;
AlgorithmIF::AlgorithmIF(AlgorithmIF const &) = default;
AlgorithmIF &AlgorithmIF::operator=(AlgorithmIF const &) = default;
AlgorithmIF::~AlgorithmIF() = default;

MatrixIF::MatrixIF() = default;
MatrixIF::MatrixIF(MatrixIF const &) = default;
MatrixIF &MatrixIF::operator=(MatrixIF const &) = default;
MatrixIF::~MatrixIF() = default;

void MatrixIF::makeIdentity()
{
    makeNull();
    unsigned int size;
    getSize(size);
    for (unsigned int i = 0; i < size; ++i) {
        setElement(i, i, 1.0);
    }
}

bool MatrixIF::checkBounds(unsigned int index)
{
    unsigned int size;
    getSize(size);
    return index < size;
}

SymmetricMatrixIF::SymmetricMatrixIF() = default;
SymmetricMatrixIF::SymmetricMatrixIF(SymmetricMatrixIF const &) = default;
SymmetricMatrixIF &SymmetricMatrixIF::operator=(SymmetricMatrixIF const &) = default;
SymmetricMatrixIF::~SymmetricMatrixIF() = default;
