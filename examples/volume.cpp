// The volume that a closed mesh occupies, as cells of a tree.

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <cstdio>
#include <vector>

using Vector = vectorC3d<double>;
using Node = VolumeComparison::BinTreeNode<int>;

int main()
{
    Vector const corners[] = {{0, 0, 0}, {3, 0, 0}, {0, 4, 0}, {0, 0, 5}};
    int const triangles[][3] = {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}};

    // A box about the mesh that shares no plane with it, and cells from 1/16 up.
    VolumeComparison::BinTreeBuilder builder({{-1.1, -1.2, -1.3}, {6.9, 6.8, 6.7}}, 1.0 / 16.0,
                                             {{0, 0, 0}, {3, 4, 5}});
    for (auto const &t : triangles) {
        builder.addTriangle(corners[t[0]], corners[t[1]], corners[t[2]]);
    }
    builder.findOuterArea();

    double enclosed = 0.0;
    double surface = 0.0;
    std::vector<Node const *> open{builder.root};
    while (!open.empty()) {
        Node const *const node = open.back();
        open.pop_back();
        if (!node->isLeaf()) {
            open.push_back(node->children[0]);
            open.push_back(node->children[1]);
        } else if (!node->outer()) {
            Vector const extent = node->bounds.second - node->bounds.first;
            double const cell = extent.x() * extent.y() * extent.z();
            (node->boundary() ? surface : enclosed) += cell;
        }
    }
    std::printf("the volume, 10, is at least %.2f and at most %.2f\n", enclosed,
                enclosed + surface);
    builder.condense();
    std::printf("stored in %d bits\n", int(builder.exportBitVector().bitCount));
}

// Output:
// the volume, 10, is at least 8.54 and at most 12.12
// stored in 35159 bits
