#include <OrvelMath/numerics/MatrixNXN.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

// The comparisons with m_size below are checkBounds() without its virtual call: element access is
// the inner loop of the iterative methods.

namespace {

/// Memory that any object can hold at most, in doubles.
constexpr std::size_t maxCells = PTRDIFF_MAX / sizeof(double);

/// `cells` itself; throws where the bytes of so many doubles have no number.
std::size_t holdable(std::size_t cells)
{
    if (cells > maxCells) {
        throw std::bad_alloc();
    }
    return cells;
}

} // namespace

// n * n and n * (n + 1) / 2 fit into 64 bits for every n of 32; their bytes don't.

MatrixNXN::MatrixNXN(unsigned int n)
    : m_size(n)
    , m_elements(
          static_cast<double *>(::operator new(holdable(std::size_t(n) * n) * sizeof(double))))
{
}

MatrixNXN::MatrixNXN(MatrixNXN const &) = default;
MatrixNXN &MatrixNXN::operator=(MatrixNXN const &) = default;

MatrixNXN::~MatrixNXN()
{
    ::operator delete(m_elements);
}

double MatrixNXN::getElement(unsigned int row, unsigned int column)
{
    if (row < m_size && column < m_size) {
        return m_elements[std::size_t(row) * m_size + column];
    }
    return 0.0;
}

void MatrixNXN::setElement(unsigned int row, unsigned int column, double value)
{
    if (row < m_size && column < m_size) {
        m_elements[std::size_t(row) * m_size + column] = value;
    }
}

void MatrixNXN::getSize(unsigned int &size)
{
    size = m_size;
}

void MatrixNXN::makeIdentity()
{
    MatrixIF::makeIdentity();
}

void MatrixNXN::makeNull()
{
    std::fill_n(m_elements, std::size_t(m_size) * m_size, 0.0);
}

SymmetricMatrixNXN::SymmetricMatrixNXN(unsigned int n)
    : m_size(n)
    , m_elements(holdable(std::size_t(n) * (std::size_t(n) + 1) / 2), 0.0)
{
}

SymmetricMatrixNXN::SymmetricMatrixNXN(SymmetricMatrixNXN const &) = default;
SymmetricMatrixNXN &SymmetricMatrixNXN::operator=(SymmetricMatrixNXN const &) = default;
SymmetricMatrixNXN::~SymmetricMatrixNXN() = default;

// What was moved from is a matrix of no rows, not one of n rows without cells.
SymmetricMatrixNXN::SymmetricMatrixNXN(SymmetricMatrixNXN &&other) noexcept
    : SymmetricMatrixIF(other)
    , m_size(std::exchange(other.m_size, 0))
    , m_elements(std::move(other.m_elements))
{
}

SymmetricMatrixNXN &SymmetricMatrixNXN::operator=(SymmetricMatrixNXN &&other) noexcept
{
    SymmetricMatrixNXN taken(std::move(other)); // so that a move onto itself changes nothing
    std::swap(m_size, taken.m_size);
    m_elements.swap(taken.m_elements);
    return *this;
}

double SymmetricMatrixNXN::getElement(unsigned int row, unsigned int column)
{
    if (row < m_size && column < m_size) {
        return m_elements[calcIndex(row, column)];
    }
    return 0.0;
}

void SymmetricMatrixNXN::setElement(unsigned int row, unsigned int column, double value)
{
    if (row < m_size && column < m_size) {
        m_elements[calcIndex(row, column)] = value;
    }
}

void SymmetricMatrixNXN::getSize(unsigned int &size)
{
    size = m_size;
}

void SymmetricMatrixNXN::makeIdentity()
{
    MatrixIF::makeIdentity();
}

void SymmetricMatrixNXN::makeNull()
{
    unsigned int const cells = m_size * m_size - (((m_size - 1) * m_size) >> 1);
    std::fill_n(m_elements.begin(), cells, 0.0);
}

unsigned int SymmetricMatrixNXN::calcIndex(unsigned int i, unsigned int j)
{
    if (i > j) {
        std::swap(i, j);
    }
    // (i - 1) wraps for i = 0, and so does its product with 0 back to 0.
    unsigned int const rowBase = m_size * i - (((i - 1) * i) >> 1);
    return i == j ? rowBase : rowBase - i + j;
}
