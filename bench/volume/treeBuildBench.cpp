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

namespace {

using meshes::Mesh;
using meshes::Vector;
using VolumeComparison::BinTreeBuilder;

meshes::Box const unitBox(Vector(0, 0, 0), Vector(1, 1, 1));
// No half holds it, so that triangles descend from the root.
meshes::Box const content(Vector(0.25, 0.25, 0.25), Vector(0.75, 0.75, 0.75));

Mesh torusOf(benchmark::State const &state)
{
    return meshes::torus(Vector(0.5, 0.5, 0.5), 0.3, 0.12, std::size_t(state.range(0)));
}

// Depth d, a multiple of 3, cuts every axis into 2^(d/3) cells.
double cellSize(benchmark::State const &state)
{
    return 1.0 / double(1U << (state.range(1) / 3));
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

void surfaceOnly(benchmark::State &state)
{
    Mesh const mesh = torusOf(state);
    double const size = cellSize(state);
    for (auto _ : state) {
        BinTreeBuilder builder(unitBox, size, content);
        meshes::addTo(builder, mesh);
        benchmark::DoNotOptimize(builder.root);
    }
    finish(state, mesh, surfaceCells(mesh, size));
}

void wholeBuild(benchmark::State &state)
{
    Mesh const mesh = torusOf(state);
    double const size = cellSize(state);
    for (auto _ : state) {
        BinTreeBuilder builder(unitBox, size, content);
        meshes::addTo(builder, mesh);
        builder.findOuterArea();
        builder.condense();
        benchmark::DoNotOptimize(builder.root);
    }
    finish(state, mesh, surfaceCells(mesh, size));
    BinTreeBuilder builder(unitBox, size, content);
    meshes::addTo(builder, mesh);
    state.counters["bytes/node"] =
        double(builder.arena.bytesReserved()) / double(inspection::nodeCount(builder));
}

void exportAndImport(benchmark::State &state)
{
    Mesh const mesh = torusOf(state);
    BinTreeBuilder builder(unitBox, cellSize(state), content);
    meshes::addTo(builder, mesh);
    builder.findOuterArea();
    builder.condense();
    quint64 bits = 0;
    for (auto _ : state) {
        VolumeComparison::SimpleBitVector const stored = builder.exportBitVector();
        BinTreeBuilder reader(unitBox, cellSize(state), content);
        reader.importBitVector(stored);
        bits = stored.bitCount;
        benchmark::DoNotOptimize(reader.root);
    }
    finish(state, mesh, surfaceCells(builder));
    state.counters["leaves/s"] = benchmark::Counter(
        double(bits + 1) / 3.0 * double(state.iterations()), benchmark::Counter::kIsRate);
}

void sizes(benchmark::internal::Benchmark *b)
{
    // Segments of the torus (4 segments^2 triangles) and depth of the tree.
    b->ArgNames({"segments", "depth"});
    for (int segments : {16, 50, 158, 500}) {
        for (int depth : {12, 18, 24}) {
            b->Args({segments, depth});
        }
    }
    b->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}

BENCHMARK(surfaceOnly)->Apply(sizes);
BENCHMARK(wholeBuild)->Apply(sizes);
BENCHMARK(exportAndImport)->Apply(sizes);

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
void openvdbConversion(benchmark::State &state, int flags)
{
    tbb::global_control const oneThread(tbb::global_control::max_allowed_parallelism, 1);
    Mesh const mesh = torusOf(state);
    double const size = cellSize(state);
    MeshAdapter const adapter{mesh, 1.0 / size};
    auto const transform = openvdb::math::Transform::createLinearTransform(size);
    openvdb::Index64 voxels = 0;
    for (auto _ : state) {
        auto const grid = openvdb::tools::meshToVolume<openvdb::FloatGrid>(adapter, *transform,
                                                                           1.0F, 1.0F, flags);
        voxels = grid->activeVoxelCount();
        benchmark::DoNotOptimize(voxels);
    }
    finish(state, mesh, surfaceCells(mesh, size));
    state.counters["active voxels"] = double(voxels);
}

BENCHMARK_CAPTURE(openvdbConversion, signed, 0)->Apply(sizes);
BENCHMARK_CAPTURE(openvdbConversion, unsigned, openvdb::tools::UNSIGNED_DISTANCE_FIELD)
    ->Apply(sizes);

#endif

} // namespace
