#include <OrvelMath/numerics/MatrixIF.h>

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
