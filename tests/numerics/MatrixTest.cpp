#include <OrvelMath/numerics/MatrixNXN.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

unsigned int sizeOf(MatrixIF &matrix)
{
    unsigned int size = 99;
    matrix.getSize(size);
    return size;
}

void fillWithPlaces(MatrixIF &matrix)
{
    unsigned int const n = sizeOf(matrix);
    for (unsigned int i = 0; i < n; ++i) {
        for (unsigned int j = 0; j < n; ++j) {
            matrix.setElement(i, j, 10.0 * i + j);
        }
    }
}

/// Opens the protected operations and logs the order of the virtual calls.
struct LoggingMatrix : MatrixNXN
{
    using MatrixNXN::checkBounds;
    using MatrixNXN::MatrixNXN;

    void makeNull() override
    {
        log += "null ";
        MatrixNXN::makeNull();
    }
    void setElement(unsigned int row, unsigned int column, double value) override
    {
        log += std::to_string(row) + "," + std::to_string(column) + " ";
        MatrixNXN::setElement(row, column, value);
    }

    std::string log;
};

struct OpenSymmetricMatrix : SymmetricMatrixNXN
{
    using SymmetricMatrixNXN::calcIndex;
    using SymmetricMatrixNXN::checkBounds;
    using SymmetricMatrixNXN::SymmetricMatrixNXN;
};

TEST(MatrixNXN, KeepsEachElementApart)
{
    MatrixNXN m(3);
    fillWithPlaces(m);
    EXPECT_EQ(3u, sizeOf(m));
    for (unsigned int i = 0; i < 3; ++i) {
        for (unsigned int j = 0; j < 3; ++j) {
            EXPECT_EQ(m.getElement(i, j), 10.0 * i + j);
        }
    }
}

TEST(MatrixNXN, ReadsZeroAndWritesNothingOutOfRange)
{
    MatrixNXN m(2);
    fillWithPlaces(m);
    m.setElement(2, 0, 7.0);
    m.setElement(0, 2, 7.0);
    m.setElement(0xffffffffu, 0xffffffffu, 7.0);
    EXPECT_EQ(0.0, m.getElement(2, 0));
    EXPECT_EQ(0.0, m.getElement(0, 2));
    EXPECT_EQ(0.0, m.getElement(0xffffffffu, 1));
    EXPECT_EQ(0.0, m.getElement(0, 0));
    EXPECT_EQ(1.0, m.getElement(0, 1));
    EXPECT_EQ(10.0, m.getElement(1, 0));
    EXPECT_EQ(11.0, m.getElement(1, 1));
}

TEST(MatrixNXN, IsRowMajorBehindItsSize)
{
    MatrixNXN m(2);
    fillWithPlaces(m);
    struct Image
    {
        void *table;
        unsigned int size;
        double *elements;
    };
    static_assert(sizeof(Image) == sizeof(MatrixNXN), "fields of a MatrixNXN");
    Image const *const image = reinterpret_cast<Image const *>(&m);
    EXPECT_EQ(2u, image->size);
    EXPECT_EQ(1.0, image->elements[1]);
    EXPECT_EQ(10.0, image->elements[2]);
}

TEST(MatrixNXN, CopyAndAssignmentShareTheElements)
{
    auto *const source = new MatrixNXN(2);
    source->makeNull();
    std::aligned_storage_t<sizeof(MatrixNXN), alignof(MatrixNXN)> place[2];
    MatrixNXN *const copy = new (&place[0]) MatrixNXN(*source);
    MatrixNXN *const assigned = new (&place[1]) MatrixNXN(0);
    assigned->~MatrixNXN();
    new (&place[1]) MatrixNXN(*copy);
    *assigned = *source;
    source->setElement(1, 0, 5.0);
    EXPECT_EQ(5.0, copy->getElement(1, 0));
    EXPECT_EQ(5.0, assigned->getElement(1, 0));
    EXPECT_EQ(2u, sizeOf(*copy));
    delete source; // the copies are never destroyed
}

TEST(MatrixNXN, MakeIdentityGoesThroughTheVirtualOperations)
{
    LoggingMatrix m(3);
    m.makeIdentity();
    EXPECT_EQ("null 0,0 1,1 2,2 ", m.log);
    for (unsigned int i = 0; i < 3; ++i) {
        for (unsigned int j = 0; j < 3; ++j) {
            EXPECT_EQ(m.getElement(i, j), i == j ? 1.0 : 0.0);
        }
    }
}

TEST(MatrixNXN, ChecksAnIndexAgainstItsSize)
{
    LoggingMatrix m(3);
    EXPECT_TRUE(m.checkBounds(0));
    EXPECT_TRUE(m.checkBounds(2));
    EXPECT_FALSE(m.checkBounds(3));
    EXPECT_FALSE(m.checkBounds(0xffffffffu));
    EXPECT_FALSE(LoggingMatrix(0).checkBounds(0));
}

TEST(MatrixNXN, OfSizeZeroHasNoElements)
{
    MatrixNXN m(0);
    m.makeIdentity();
    m.setElement(0, 0, 1.0);
    EXPECT_EQ(0u, sizeOf(m));
    EXPECT_EQ(0.0, m.getElement(0, 0));
}

TEST(SymmetricMatrixNXN, StartsWithZeros)
{
    SymmetricMatrixNXN m(4);
    EXPECT_EQ(4u, sizeOf(m));
    for (unsigned int i = 0; i < 4; ++i) {
        for (unsigned int j = 0; j < 4; ++j) {
            EXPECT_EQ(0.0, m.getElement(i, j));
        }
    }
}

TEST(SymmetricMatrixNXN, BothTrianglesAreOneCell)
{
    SymmetricMatrixNXN m(3);
    m.setElement(2, 0, 4.5);
    EXPECT_EQ(4.5, m.getElement(0, 2));
    m.setElement(0, 2, -1.0);
    EXPECT_EQ(-1.0, m.getElement(2, 0));
    EXPECT_EQ(0.0, m.getElement(3, 0));
    EXPECT_EQ(0.0, m.getElement(0, 3));
    m.setElement(3, 0, 9.0);
    m.setElement(1, 3, 9.0);
    EXPECT_EQ(0.0, m.getElement(1, 2));
}

TEST(SymmetricMatrixNXN, SixCellsForSizeThree)
{
    OpenSymmetricMatrix m(3);
    unsigned int const expected[3][3] = {{0, 1, 2}, {1, 3, 4}, {2, 4, 5}};
    for (unsigned int i = 0; i < 3; ++i) {
        for (unsigned int j = 0; j < 3; ++j) {
            EXPECT_EQ(m.calcIndex(i, j), expected[i][j]);
        }
    }
    EXPECT_TRUE(m.checkBounds(2));
    EXPECT_FALSE(m.checkBounds(3));
}

TEST(SymmetricMatrixNXN, NumbersTheUpperTriangleRowByRow)
{
    for (unsigned int n : {1u, 2u, 5u, 17u, 60u}) {
        OpenSymmetricMatrix m(n);
        unsigned int next = 0;
        for (unsigned int i = 0; i < n; ++i) {
            for (unsigned int j = i; j < n; ++j, ++next) {
                ASSERT_EQ(m.calcIndex(i, j), next);
                ASSERT_EQ(m.calcIndex(j, i), next);
            }
        }
        EXPECT_EQ(next, n * (n + 1) / 2);
    }
}

TEST(SymmetricMatrixNXN, IndexWrapsInThirtyTwoBits)
{
    OpenSymmetricMatrix m(3);
    // 3*i - ((i - 1)*i >> 1) with i = j = 2^31: the products wrap to 2^31 and to 2^31
    EXPECT_EQ(m.calcIndex(0x80000000u, 0x80000000u), 0x80000000u - 0x40000000u);
    EXPECT_EQ(0xffffffffu, m.calcIndex(0, 0xffffffffu));
}

TEST(SymmetricMatrixNXN, MakeNullAndMakeIdentity)
{
    for (unsigned int n : {0u, 1u, 2u, 7u}) {
        SymmetricMatrixNXN m(n);
        fillWithPlaces(m);
        m.makeIdentity();
        for (unsigned int i = 0; i < n; ++i) {
            for (unsigned int j = 0; j < n; ++j) {
                EXPECT_EQ(m.getElement(i, j), i == j ? 1.0 : 0.0);
            }
        }
        m.makeNull();
        for (unsigned int i = 0; i < n; ++i) {
            EXPECT_EQ(0.0, m.getElement(i, i));
        }
    }
}

TEST(SymmetricMatrixNXN, CopiesAreDeep)
{
    SymmetricMatrixNXN source(2);
    source.setElement(0, 1, 3.0);
    SymmetricMatrixNXN copy(source);
    SymmetricMatrixNXN assigned(5);
    assigned = source;
    source.setElement(0, 1, 4.0);
    EXPECT_EQ(3.0, copy.getElement(1, 0));
    EXPECT_EQ(3.0, assigned.getElement(1, 0));
    EXPECT_EQ(2u, sizeOf(assigned));
}

TEST(SymmetricMatrixNXN, MovesItsCells)
{
    SymmetricMatrixNXN source(2);
    source.setElement(0, 1, 3.0);
    SymmetricMatrixNXN moved(std::move(source));
    EXPECT_EQ(3.0, moved.getElement(0, 1));
    EXPECT_EQ(0.0, source.getElement(0, 1)); // no rows are left
    SymmetricMatrixNXN assigned(1);
    assigned = std::move(moved);
    EXPECT_EQ(3.0, assigned.getElement(0, 1));
    EXPECT_EQ(2u, sizeOf(assigned));
}

TEST(SymmetricMatrixNXN, HasNoRowsAfterAMove)
{
    SymmetricMatrixNXN source(3);
    SymmetricMatrixNXN target(2);
    target.setElement(0, 1, 7.0);
    target = std::move(source);
    EXPECT_EQ(0u, sizeOf(source));
    EXPECT_EQ(3u, sizeOf(target));
    EXPECT_EQ(0.0, target.getElement(0, 1));
    SymmetricMatrixNXN const constructed(std::move(target));
    EXPECT_EQ(0u, sizeOf(target));
    target.makeNull();
    target.setElement(0, 0, 1.0);
    EXPECT_EQ(0.0, target.getElement(0, 0));
}

TEST(SymmetricMatrixNXN, KeepsItsCellsWhenMovedOntoItself)
{
    SymmetricMatrixNXN matrix(2);
    matrix.setElement(0, 1, 3.0);
    SymmetricMatrixNXN &same = matrix;
    matrix = std::move(same);
    EXPECT_EQ(2u, sizeOf(matrix));
    EXPECT_EQ(3.0, matrix.getElement(1, 0));
}

TEST(MatrixNXN, AnIntegerConvertsToAMatrix)
{
    EXPECT_TRUE((std::is_convertible_v<unsigned int, MatrixNXN>));
    EXPECT_TRUE((std::is_convertible_v<unsigned int, SymmetricMatrixNXN>));
}

TEST(MatrixIF, ObjectsLiveOnTheHeapOfTheContainers)
{
    MatrixIF *const matrix = new SymmetricMatrixNXN(2);
    matrix->setElement(1, 1, 2.0);
    EXPECT_EQ(2.0, matrix->getElement(1, 1));
    delete matrix;

    void *const memory = MatrixIF::operator new(sizeof(MatrixNXN));
    EXPECT_EQ(MatrixIF::operator new(sizeof(MatrixNXN), memory), memory);
    MatrixIF::operator delete(memory, memory);
    MatrixIF::operator delete(memory);
    MatrixIF::operator delete[](MatrixIF::operator new[](64));
}

} // namespace
