#include <OrvelMath/volume/BitVector.h>

namespace VolumeComparison {

bool isWholeTree(BitView const &bits, quint64 bitCount, quint64 *leafCount)
{
    quint64 index = 0;
    quint64 leaves = 0;
    quint64 openNodes = 1; // announced by the bits so far, but not read yet
    while (openNodes > 0) {
        // Every open node takes at least two bits.
        if (openNodes > (bitCount - index) / 2) {
            return false;
        }
        bool const inner = (bits.bytes[index / 8] >> index % 8 & 1) != 0;
        if (inner) {
            index += 1;
            openNodes += 1;
        } else {
            index += 2;
            openNodes -= 1;
            leaves += 1;
        }
    }
    if (index != bitCount) {
        return false;
    }
    if (leafCount) {
        *leafCount = leaves;
    }
    return true;
}

} // namespace VolumeComparison
