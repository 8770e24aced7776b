// Streams of more bits than 31 or 32 of them can count. One piece of memory is mapped again and
// again, so that they take little of it.

#include <OrvelMath/volume/BitVector.h>

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>

using namespace VolumeComparison;

namespace {

/// A chain of `copies` * `period` * 8 / 3 cells, each with a leaf as its lower half, and its end.
class LongChain
{
public:
    static constexpr std::size_t period = 3 << 20; ///< bytes; whole pages, and a multiple of 3

    explicit LongChain(std::size_t copies)
        : m_size((copies + 1) * period)
    {
        int const file = memfd_create("chain", 0);
        if (file < 0 || ftruncate(file, off_t(period)) != 0) {
            return;
        }
        void *const space =
            mmap(nullptr, m_size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (space == MAP_FAILED) {
            close(file);
            return;
        }
        m_bytes = static_cast<unsigned char *>(space);
        bool mapped = true;
        for (std::size_t i = 0; i < copies; ++i) {
            mapped = mapped && map(m_bytes + i * period, file);
        }
        // The end is a leaf: 0 0. The piece behind the copies holds nothing but zeros.
        mapped = mapped && mprotect(m_bytes + copies * period, period, PROT_READ) == 0;
        close(file);
        m_cells = mapped ? copies * period / 3 * 8 : 0;
        if (mapped) {
            // 1 0 0 again and again, from the low end: 0b01001001, 0b10010010, 0b00100100.
            for (std::size_t i = 0; i < period; i += 3) {
                m_bytes[i] = 0x49;
                m_bytes[i + 1] = 0x92;
                m_bytes[i + 2] = 0x24;
            }
        }
    }
    ~LongChain()
    {
        if (m_bytes) {
            munmap(m_bytes, m_size);
        }
    }
    LongChain(LongChain const &) = delete;
    LongChain &operator=(LongChain const &) = delete;

    bool isThere() const { return m_cells != 0; }
    quint64 innerCells() const { return m_cells; }
    quint64 bitCount() const { return 3 * m_cells + 2; }
    BitView bits() const { return BitView{m_bytes}; }

private:
    static bool map(unsigned char *place, int file)
    {
        return mmap(place, period, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) ==
               place;
    }

    std::size_t m_size;
    unsigned char *m_bytes = nullptr;
    quint64 m_cells = 0;
};

void expectWhole(std::size_t copies)
{
    LongChain const chain(copies);
    if (!chain.isThere()) {
        GTEST_SKIP() << "memory cannot be mapped";
    }
    quint64 leaves = 0;
    EXPECT_TRUE(isWholeTree(chain.bits(), chain.bitCount(), &leaves));
    EXPECT_EQ(chain.innerCells() + 1, leaves);
    leaves = 77;
    EXPECT_FALSE(isWholeTree(chain.bits(), chain.bitCount() - 1, &leaves));
    EXPECT_EQ(77U, leaves);
}

bool longTests()
{
    char const *const asked = std::getenv("ORVEL_LONG_TESTS");
    return asked && asked[0] == '1';
}

} // namespace

TEST(LongStream, ChainOfSomeMillionBitsIsWhole)
{
    expectWhole(1);
}

TEST(LongStream, WholeBeyond31Bits)
{
    if (!longTests()) {
        GTEST_SKIP() << "takes ten seconds; set ORVEL_LONG_TESTS=1";
    }
    expectWhole(86); // 86 * 3 MiB * 8 is the first multiple above 2^31
}

TEST(LongStream, WholeBeyond32Bits)
{
    if (!longTests()) {
        GTEST_SKIP() << "takes twenty seconds; set ORVEL_LONG_TESTS=1";
    }
    expectWhole(171);
}

TEST(LongStream, AppendingCountsBeyond32Bits)
{
    if (!longTests()) {
        GTEST_SKIP() << "takes 1 GB; set ORVEL_LONG_TESTS=1";
    }
    quint64 const count = quint64(1) << 32;
    SimpleBitVector bits{SimpleBitVector::Bytes(count / 8), count};
    bits.append(true);
    bits.append(false);
    bits.append(true);
    EXPECT_EQ(count + 3, bits.bitCount);
    EXPECT_EQ(count / 8 + 1, bits.bytes.size());
    EXPECT_EQ(5, bits.bytes.back());
    EXPECT_EQ(0, bits.bytes[count / 8 - 1]);
}
