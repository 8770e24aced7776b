#include <OrvelMath/volume/BinTreeWalk_p.h>

#include <QtCore/QFile>
#include <QtCore/QTextStream>

namespace VolumeComparison {

void BinTreeBuilder::condense()
{
    condenseRec(root);
}

// Visits children before their parent, by parent pointers.
void BinTreeBuilder::condenseRec(BinTreeNode<int> *top)
{
    BinTreeNode<int> *node = top;
    for (;;) {
        while (!node->isLeaf()) {
            node = node->children[0];
        }
        // The subtree of `node` is done; so is that of every parent reached from an upper half.
        while (node != top && node == node->parent->children[1]) {
            node = node->parent;
            BinTreeNode<int> const *const lower = node->children[0];
            BinTreeNode<int> const *const upper = node->children[1];
            // The whole word counts: a boundary cell and an enclosed one are not merged.
            if (lower->data == upper->data && lower->isLeaf() && upper->isLeaf()) {
                node->data = node->axis() | (lower->data & ~BinTreeNode<int>::axisBits);
                node->children[0] = nullptr;
                node->children[1] = nullptr;
            }
        }
        if (node == top) {
            return;
        }
        node = node->parent->children[1];
    }
}

void BinTreeBuilder::dumpXYZ(QString const &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return;
    }
    QTextStream stream(&file);
    dumpXYZRec(stream, root);
}

void BinTreeBuilder::dumpXYZRec(QTextStream &stream, BinTreeNode<int> *top)
{
    for (BinTreeNode<int> *node = top; node;) {
        if (!node->isLeaf()) {
            node = node->children[0];
            continue;
        }
        if (!node->outer()) {
            vectorC3d<double> const &corner = node->bounds.first;
            stream << corner.x() << "," << corner.y() << "," << corner.z() << ",0,0,0\n";
        }
        node = nextAfterSubtree(node, top);
    }
}

SimpleBitVector BinTreeBuilder::exportBitVector() const
{
    SimpleBitVector bits;
    for (BinTreeNode<int> *node = root; node;) {
        bool const inner = !node->isLeaf();
        bits.append(inner);
        if (inner) {
            node = node->children[0];
        } else {
            bits.append(!node->outer());
            node = nextAfterSubtree(node, root);
        }
    }
    return bits;
}

void BinTreeBuilder::importBitVector(SimpleBitVector const &bits)
{
    importBitView(BitView{bits.bytes.data()});
}

void BinTreeBuilder::importBitView(BitView const &bits)
{
    qint32 index = 0;
    auto const readBit = [bytes = bits.bytes, &index] {
        bool const bit = (bytes[index / 8] >> index % 8 & 1) != 0;
        ++index;
        return bit;
    };
    BinTreeNode<int> *node = root;
    for (;;) {
        while (readBit()) {
            createNode(node, 0);
            node = node->children[0];
        }
        if (!readBit()) {
            node->data |= BinTreeNode<int>::outerBit;
        }
        // On to the nearest upper half that is still to be read.
        while (node != root && node != node->parent->children[0]) {
            node = node->parent;
        }
        if (node == root) {
            return;
        }
        node = node->parent;
        createNode(node, 1);
        node = node->children[1];
    }
}

} // namespace VolumeComparison
