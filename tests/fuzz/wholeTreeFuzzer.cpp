// Feeds arbitrary bytes to the check of bit streams and, when it lets them pass, to the import.
// The first byte tells how many bits of the last one are left out.

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

using namespace VolumeComparison;

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// Reads the same format by recursion over the bits; false when they do not suffice.
struct Reader
{
    std::uint8_t const *bytes;
    quint64 bitCount;
    quint64 index = 0;
    quint64 leaves = 0;

    bool bit(bool &value)
    {
        if (index >= bitCount) {
            return false;
        }
        value = (bytes[index / 8] >> (index % 8) & 1) != 0;
        ++index;
        return true;
    }
    bool tree()
    {
        bool value = false;
        if (!bit(value)) {
            return false;
        }
        if (value) {
            return tree() && tree();
        }
        ++leaves;
        return bit(value);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    if (size < 1 || size > 4096) {
        return 0;
    }
    // An exact copy on the heap lets the sanitizer see a read beyond the end.
    std::size_t const byteCount = size - 1;
    std::unique_ptr<unsigned char[]> const bytes(new unsigned char[byteCount]);
    for (std::size_t i = 0; i < byteCount; ++i) {
        bytes[i] = data[i + 1];
    }
    quint64 const leftOut = byteCount > 0 ? data[0] % 8 : 0;
    quint64 const bitCount = byteCount * 8 - leftOut;
    BitView const view{bytes.get()};

    quint64 leaves = 12345;
    bool const whole = isWholeTree(view, bitCount, &leaves);
    Reader reader{bytes.get(), bitCount};
    require(whole == (reader.tree() && reader.index == bitCount));
    require(isWholeTree(view, bitCount) == whole);
    if (!whole) {
        require(leaves == 12345);
        return 0;
    }
    require(leaves == reader.leaves && bitCount == 3 * leaves - 1);

    std::pair<vectorC3d<double>, vectorC3d<double>> const box(vectorC3d<double>(0, 0, 0),
                                                              vectorC3d<double>(1, 1, 1));
    BinTreeBuilder builder(box, 0.5, box);
    builder.importBitView(view);
    if (leaves == 1) {
        return 0; // the constructor's children stay, so the export differs
    }
    SimpleBitVector const again = builder.exportBitVector();
    require(again.bitCount == bitCount);
    for (quint64 i = 0; i < bitCount; ++i) {
        require(((again.bytes[i / 8] ^ bytes[i / 8]) >> (i % 8) & 1) == 0);
    }
    builder.condense();
    require(builder.exportBitVector().bitCount <= bitCount);
    return 0;
}
