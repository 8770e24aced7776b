#pragma once

/// @file
/// Sequences of bits in which `BinTreeBuilder` stores its trees.
///
/// Bit i is in byte i / 8 at position i % 8, counted from the least significant bit. A tree is
/// written in pre-order: an inner node is a 1 followed by its lower and its upper half; a leaf is a
/// 0 followed by its state, 1 for a cell of the volume and 0 for a cell outside. L leaves take
/// 3 L - 1 bits. There is no header: neither box nor resolution nor length is stored.

#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelMath/OrvelMathExport.h>

#include <QtCore/QtGlobal>

#include <utility>
#include <vector>

namespace VolumeComparison {

/// A growing sequence of bits that owns its bytes. A value: copies are independent, and what was
/// moved from is empty.
struct SimpleBitVector
{
    using Bytes = std::vector<unsigned char, OrvelAllocatorT<unsigned char>>;

    Bytes bytes;          ///< bits beyond the last are 0
    quint64 bitCount = 0; ///< number of bits written

    SimpleBitVector() = default;
    /// The first @p count bits of @p content, which must hold them in (count + 7) / 8 bytes, the
    /// rest of the last one 0.
    SimpleBitVector(Bytes content, quint64 count)
        : bytes(std::move(content))
        , bitCount(count)
    {
    }
    SimpleBitVector(SimpleBitVector const &) = default;
    SimpleBitVector &operator=(SimpleBitVector const &) = default;
    SimpleBitVector(SimpleBitVector &&other) noexcept
        : bytes(std::move(other.bytes))
        , bitCount(std::exchange(other.bitCount, 0))
    {
    }
    SimpleBitVector &operator=(SimpleBitVector &&other) noexcept
    {
        SimpleBitVector(std::move(other)).swap(*this);
        return *this;
    }
    ~SimpleBitVector() = default;

    void swap(SimpleBitVector &other) noexcept
    {
        bytes.swap(other.bytes);
        std::swap(bitCount, other.bitCount);
    }

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

/// Bits that someone else owns, to be read without a copy. Valid as long as the bytes it points to.
/// Their number is not part of the view.
struct BitView
{
    unsigned char const *bytes; ///< the first byte; bit 0 is its least significant bit
};

/// Tells whether the first @p bitCount bits of @p bits hold exactly one whole tree: no bit missing,
/// none left over. Import does not check its input, so ask this first of a stream that comes from
/// outside.
///
/// @param bits       the bytes; none beyond the one with the last of the bits is read, and none at
///                   all when @p bitCount is 0 (the answer is then false)
/// @param bitCount   number of bits; may be 2^31 and more, although import cannot read so many
/// @param leafCount  receives the number of leaves when the answer is true and the pointer is not
///                   null; left alone otherwise
///
/// A whole tree may still be as deep as it has leaves, which costs time and memory but no stack.
/// Allocates nothing; linear in @p bitCount.
ORVELMATH_EXPORT bool isWholeTree(BitView const &bits, quint64 bitCount,
                                  quint64 *leafCount = nullptr);

} // namespace VolumeComparison
