#pragma once

#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelMath/OrvelMathExport.h>

#include <QtCore/QtGlobal>

#include <vector>

/// \file
/// Sequences of bits in which `BinTreeBuilder` stores its trees.
///
/// Bit i stands in byte i / 8 at position i % 8, counted from the least significant bit. A tree is
/// written in pre-order: an inner node is a 1 followed by its lower and its upper half; a leaf is a
/// 0 followed by its state, 1 for a cell of the volume and 0 for a cell outside. L leaves take
/// 3 L - 1 bits. There is no header: neither box nor resolution nor length is stored.

namespace VolumeComparison {

/// A growing sequence of bits that owns its bytes. A value: copies are independent.
struct SimpleBitVector
{
    std::vector<unsigned char, OrvelAllocatorT<unsigned char>>
        bytes;            ///< bits beyond the last are 0
    quint64 bitCount = 0; ///< number of bits written

    /// Adds one bit at the end. Amortised constant time.
    void append(bool bit)
    {
        if (bitCount / 8 >= bytes.size()) {
            bytes.push_back(0);
        }
        if (bit) {
            bytes.back() = static_cast<unsigned char>(bytes.back() | 1U << bitCount % 8);
        }
        ++bitCount;
    }
};

/// Bits that stand elsewhere, to be read without a copy. Valid as long as the bytes it points to,
/// which it does not own. Their number is not part of the view.
struct BitView
{
    unsigned char const *bytes; ///< the first byte; bit 0 is its least significant bit
};

/// Tells whether the first \p bitCount bits of \p bits hold exactly one whole tree: no bit missing,
/// none left over. Import does not check its input, so a stream that comes from outside is to be
/// asked this first.
///
/// \param leafCount  receives the number of leaves when the answer is true and the pointer is not
///                   null; left alone otherwise.
///
/// Reads no byte beyond the one that holds the last of the bits, and none at all when \p bitCount
/// is 0 (the answer is then false). Allocates nothing; linear in \p bitCount. Import counts bits in
/// 32 bits, so a tree of 2^31 bits or more is whole here but cannot be read back.
ORVELMATH_EXPORT bool isWholeTree(BitView const &bits, quint64 bitCount,
                                  quint64 *leafCount = nullptr);

} // namespace VolumeComparison
