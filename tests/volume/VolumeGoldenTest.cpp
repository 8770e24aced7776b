#include "support/Golden.h"

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <gtest/gtest.h>

#include <cstddef>

using namespace VolumeComparison;

TEST(VolumeGolden, WholeTreesAreToldFromOthersAndReadBack)
{
    using Vector = vectorC3d<double>;
    for (support::GoldenCase const &item :
         support::goldenCases("general/volume.txt", "isWholeTree")) {
        quint64 const count = static_cast<quint64>(item.arguments.at(0));
        SimpleBitVector bits;
        for (std::size_t i = 2; i < item.arguments.size(); ++i) {
            bits.bytes.push_back(static_cast<unsigned char>(item.arguments[i]));
        }
        bits.bitCount = count;
        quint64 leaves = 77;
        bool const isWhole = isWholeTree(BitView{bits.bytes.data()}, count, &leaves);
        EXPECT_EQ(item.results.at(0) != 0.0, isWhole) << item.where;
        EXPECT_EQ(isWhole ? static_cast<quint64>(item.results.at(1)) : 77U, leaves) << item.where;
        if (isWhole && leaves > 1) {
            BinTreeBuilder builder({Vector(0, 0, 0), Vector(8, 8, 8)}, 1.0,
                                   {Vector(1, 1, 1), Vector(7, 7, 7)});
            builder.importBitVector(bits);
            SimpleBitVector const again = builder.exportBitVector();
            EXPECT_EQ(count, again.bitCount) << item.where;
            EXPECT_EQ(bits.bytes, again.bytes) << item.where;
        }
    }
}
