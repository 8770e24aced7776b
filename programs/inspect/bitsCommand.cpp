#include "commands.h"

#include "CommandLine.h"
#include "errors.h"

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <QtCore/QFile>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

struct Options
{
    CommonOptions common;
    std::string file;
};

// What a stored tree holds; shares are of its box.
struct Stored
{
    std::size_t leaves = 0;
    std::size_t insideLeaves = 0;
    double insideShare = 0.0;
    int depth = 0;
};

// Walks the bits in their order, which is that of the tree from above, lower halves first.
Stored readBits(QByteArray const &bytes)
{
    auto const bitAt = [&](quint64 i) {
        return ((static_cast<unsigned char>(bytes[int(i / 8)]) >> (i % 8)) & 1) != 0;
    };
    Stored found;
    std::vector<int> depths{0};
    for (quint64 i = 0; !depths.empty();) {
        int const depth = depths.back();
        depths.pop_back();
        if (bitAt(i++)) {
            depths.insert(depths.end(), {depth + 1, depth + 1});
            continue;
        }
        bool const isInside = bitAt(i++);
        ++found.leaves;
        found.insideLeaves += isInside ? 1 : 0;
        found.insideShare += isInside ? std::ldexp(1.0, -depth) : 0.0;
        found.depth = std::max(found.depth, depth);
    }
    return found;
}

// A file has whole bytes, so up to seven bits stand after the tree; they are 0.
quint64 treeBits(QByteArray const &bytes)
{
    VolumeComparison::BitView const view{
        reinterpret_cast<unsigned char const *>(bytes.constData())};
    quint64 const all = quint64(bytes.size()) * 8;
    for (quint64 spare = 0; spare < std::min<quint64>(8, all); ++spare) {
        if (VolumeComparison::isWholeTree(view, all - spare)) {
            return all - spare;
        }
    }
    return 0;
}

int run(Options const &options)
{
    QFile file(QString::fromStdString(options.file));
    if (!file.open(QIODevice::ReadOnly)) {
        throw InputError(options.file + ": " + file.errorString().toStdString());
    }
    QByteArray const bytes = file.readAll();
    quint64 const bits = treeBits(bytes);
    if (bits == 0) {
        throw InputError(options.file + ": does not hold one whole tree");
    }
    Stored const stored = readBits(bytes);
    Listing listing(options.common.form);
    listing.add(options.file,
                {{"file", "file", QString::fromStdString(options.file), ""},
                 countFact("bits", "bits", bits),
                 countFact("leaves", "leaves", stored.leaves),
                 countFact("insideLeaves", "leaves inside", stored.insideLeaves),
                 countFact("depth", "depth", std::size_t(stored.depth)),
                 numberFact("insideShare", "share of the box inside", stored.insideShare)});
    listing.end();
    return 0;
}

} // namespace

Work addBitsCommand(CLI::App &command)
{
    auto const options = std::make_shared<Options>();
    addListingOptions(command, options->common);
    command.add_option("FILE", options->file, "The bits that `volume --bits` wrote")->required();
    return [options] { return run(*options); };
}
