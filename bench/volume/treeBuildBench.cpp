// Building the tree of a mesh's volume, beside OpenVDB's conversion of the mesh to a narrow-band
// level set at the same cell size, on one thread.

#include "ClosedMeshes.h"
#include "TreeInspection.h"

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_OPENVDB
#include <openvdb/openvdb.h>
#include <openvdb/tools/MeshToVolume.h>
#include <tbb/global_control.h>
#endif

#include <cstdint>
#include <string>

namespace {

using meshes::Mesh;
using meshes::Vector;
using VolumeComparison::BinTreeBuilder;

meshes::Box const unitBox(Vector(0, 0, 0), Vector(1, 1, 1));
// No half holds it, so that triangles descend from the root.
meshes::Box const content(Vector(0.25, 0.25, 0.25), Vector(0.75, 0.75, 0.75));

// The torus has 4 segments^2 triangles.
struct Size
{
    std::size_t segments;
    int depth;
};

Mesh torusOf(Size size)
{
    return meshes::torus(Vector(0.5, 0.5, 0.5), 0.3, 0.12, size.segments);
}

// Depth d, a multiple of 3, cuts every axis into 2^(d/3) cells.
double cellSize(Size size)
{
    return 1.0 / double(1U << (size.depth / 3));
}

std::size_t surfaceCells(BinTreeBuilder const &builder)
{
    std::size_t count = 0;
    inspection::forEachNode(builder.root, [&](inspection::Node const &node) {
        count += node.isLeaf() && node.boundary();
    });
    return count;
}

std::size_t surfaceCells(Mesh const &mesh, double size)
{
    BinTreeBuilder builder(unitBox, size, content);
    meshes::addTo(builder, mesh);
    return surfaceCells(builder);
}

void finish(benchmark::State &state, Mesh const &mesh, std::size_t cells)
{
    double const runs = double(state.iterations());
    state.counters["triangles"] = double(mesh.triangles.size());
    state.counters["triangles/s"] =
        benchmark::Counter(double(mesh.triangles.size()) * runs, benchmark::Counter::kIsRate);
    state.counters["cells"] = double(cells);
    state.counters["cells/s"] =
        benchmark::Counter(double(cells) * runs, benchmark::Counter::kIsRate);
}

void surfaceOnly(benchmark::State &state, Size size)
{
    Mesh const mesh = torusOf(size);
    double const cell = cellSize(size);
    for (auto _ : state) {
        BinTreeBuilder builder(unitBox, cell, content);
        meshes::addTo(builder, mesh);
        benchmark::DoNotOptimize(builder.root);
    }
    finish(state, mesh, surfaceCells(mesh, cell));
}

void wholeBuild(benchmark::State &state, Size size)
{
    Mesh const mesh = torusOf(size);
    double const cell = cellSize(size);
    for (auto _ : state) {
        BinTreeBuilder builder(unitBox, cell, content);
        meshes::addTo(builder, mesh);
        builder.findOuterArea();
        builder.condense();
        benchmark::DoNotOptimize(builder.root);
    }
    finish(state, mesh, surfaceCells(mesh, cell));
    BinTreeBuilder builder(unitBox, cell, content);
    meshes::addTo(builder, mesh);
    state.counters["bytes/node"] =
        double(builder.arena.bytesReserved()) / double(inspection::nodeCount(builder));
}

void exportAndImport(benchmark::State &state, Size size)
{
    Mesh const mesh = torusOf(size);
    BinTreeBuilder builder(unitBox, cellSize(size), content);
    meshes::addTo(builder, mesh);
    builder.findOuterArea();
    builder.condense();
    quint64 bits = 0;
    for (auto _ : state) {
        VolumeComparison::SimpleBitVector const stored = builder.exportBitVector();
        BinTreeBuilder reader(unitBox, cellSize(size), content);
        reader.importBitVector(stored);
        bits = stored.bitCount;
        benchmark::DoNotOptimize(reader.root);
    }
    finish(state, mesh, surfaceCells(builder));
    state.counters["leaves/s"] = benchmark::Counter(
        double(bits + 1) / 3.0 * double(state.iterations()), benchmark::Counter::kIsRate);
}

#ifdef ORVEL_HAVE_OPENVDB

// Reads the mesh in units of cells, as OpenVDB wants it.
struct MeshAdapter
{
    Mesh const &mesh;
    double scale;

    std::size_t polygonCount() const { return mesh.triangles.size(); }
    std::size_t pointCount() const { return mesh.vertices.size(); }
    std::size_t vertexCount(std::size_t) const { return 3; }
    void getIndexSpacePoint(std::size_t triangle, std::size_t i, openvdb::Vec3d &p) const
    {
        Vector const &v = mesh.corner(triangle, i);
        p = openvdb::Vec3d(v.x() * scale, v.y() * scale, v.z() * scale);
    }
};

// The narrowest band that the conversion offers. Signed: with the search for the outside.
void openvdbConversion(benchmark::State &state, Size size, int flags)
{
    tbb::global_control const oneThread(tbb::global_control::max_allowed_parallelism, 1);
    Mesh const mesh = torusOf(size);
    double const cell = cellSize(size);
    MeshAdapter const adapter{mesh, 1.0 / cell};
    auto const transform = openvdb::math::Transform::createLinearTransform(cell);
    openvdb::Index64 voxels = 0;
    for (auto _ : state) {
        auto const grid = openvdb::tools::meshToVolume<openvdb::FloatGrid>(adapter, *transform,
                                                                           1.0F, 1.0F, flags);
        voxels = grid->activeVoxelCount();
        benchmark::DoNotOptimize(voxels);
    }
    finish(state, mesh, surfaceCells(mesh, cell));
    state.counters["active voxels"] = double(voxels);
}

#endif

// Rows named treeBuild/case of some depth/triangles/who.
template <typename Run>
void add(std::string const &name, std::string const &who, Run run)
{
    for (std::size_t segments : {16, 50, 158, 500}) {
        for (int depth : {12, 18, 24}) {
            std::string const title = "treeBuild/" + name + ".depth" + std::to_string(depth) + '/' +
                                      std::to_string(4 * segments * segments) + '/' + who;
            benchmark::RegisterBenchmark(title.c_str(), [=](benchmark::State &state) {
                run(state, Size{segments, depth});
            })->Unit(benchmark::kMillisecond);
        }
    }
}

[[maybe_unused]] bool const areRegistered = [] {
    add("surface", "orvel", surfaceOnly);
    add("whole", "orvel", wholeBuild);
    add("exportImport", "orvel", exportAndImport);
#ifdef ORVEL_HAVE_OPENVDB
    add("whole", "openvdb.signed",
        [](benchmark::State &state, Size size) { openvdbConversion(state, size, 0); });
    add("surface", "openvdb.unsigned", [](benchmark::State &state, Size size) {
        openvdbConversion(state, size, openvdb::tools::UNSIGNED_DISTANCE_FIELD);
    });
#endif
    return true;
}();

} // namespace
