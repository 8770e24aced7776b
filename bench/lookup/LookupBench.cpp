// Building, nearest, 8 nearest, range, and insertion with a search after every point: the lookups
// and their peers on the same points. Names read question/dimension_points/count/engine; a range
// names the points that it holds in the median.

#include "Engine.h"
#include "PointSets.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include <malloc.h>

namespace {

/// One set of points with its questions. Made on first use and dropped when another is asked for,
/// since the large ones fill the memory.
template <std::size_t K>
struct Workload
{
    std::string name;
    Points<K> points;
    Points<K> queries;

    static Workload const &of(std::string const &name, std::size_t count)
    {
        static Workload current;
        std::string const full = name + std::to_string(count);
        if (current.name != full) {
            current.name = full;
            current.points = pointsOf(name, count);
            current.queries = queriesFor<K>(current.points, 100000);
        }
        return current;
    }

    static Points<K> pointsOf(std::string const &name, std::size_t count)
    {
        return name == "uniform"     ? uniformPoints<K>(count)
               : name == "clustered" ? clusteredPoints<K>(count)
               : name == "ascending" ? ascendingPoints<K>(count)
               : name == "mesh"      ? meshPoints<K>()
                                     : loadedMesh<K>(name);
    }
};

/// The engine built last, kept for the questions that follow its building.
template <std::size_t K>
Engine<K> const &built(EngineKind<K> const &kind, Workload<K> const &work)
{
    static std::string name;
    static std::unique_ptr<Engine<K>> engine;
    if (name != kind.name + work.name) {
        engine.reset();
        engine = kind.make();
        engine->build(work.points);
        name = kind.name + work.name;
    }
    return *engine;
}

double usedBytes()
{
    struct mallinfo2 const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

template <std::size_t K>
void build(benchmark::State &state, EngineKind<K> const &kind, Workload<K> const &work)
{
    double bytes = 0.0;
    for (auto _ : state) {
        double const before = usedBytes();
        auto engine = kind.make();
        engine->build(work.points);
        bytes = usedBytes() - before;
        state.PauseTiming();
        engine.reset();
        state.ResumeTiming();
    }
    double const count = static_cast<double>(work.points.size());
    state.counters["ns/point"] = benchmark::Counter(
        count * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["bytes/point"] = bytes / count;
}

/// Insertion with a nearest search after every point.
template <std::size_t K>
void interleaved(benchmark::State &state, EngineKind<K> const &kind, Workload<K> const &work)
{
    std::size_t const count = work.points.size();
    double sum = 0.0;
    for (auto _ : state) {
        auto const engine = kind.make();
        for (std::size_t i = 0; i < count; ++i) {
            engine->insert(work.points[i]);
            sum += engine->nearest(work.queries[i % work.queries.size()]);
        }
    }
    benchmark::DoNotOptimize(sum);
    state.counters["ns/point"] = benchmark::Counter(static_cast<double>(count) * 1e-9,
                                                    benchmark::Counter::kIsIterationInvariantRate |
                                                        benchmark::Counter::kInvert);
}

/// The sum of the nearest distances is the same whoever is asked.
template <std::size_t K>
bool agreesWithOthers(Engine<K> const &engine, Workload<K> const &work)
{
    static std::map<std::string, double> sums;
    double sum = 0.0;
    for (std::size_t i = 0; i < 1000; ++i) {
        sum += std::sqrt(engine.nearest(work.queries[i]));
    }
    double const first = sums.emplace(work.name, sum).first->second;
    return std::fabs(sum - first) <= 1e-9 * first;
}

template <std::size_t K>
void nearest(benchmark::State &state, EngineKind<K> const &kind, Workload<K> const &work)
{
    Engine<K> const &engine = built<K>(kind, work);
    if (!agreesWithOthers<K>(engine, work)) {
        state.SkipWithError("another answer than the engines before");
        return;
    }
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine.nearest(work.queries[i]));
        i = i + 1 == work.queries.size() ? 0 : i + 1;
    }
}

template <std::size_t K>
void eightNearest(benchmark::State &state, EngineKind<K> const &kind, Workload<K> const &work)
{
    Engine<K> const &engine = built<K>(kind, work);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine.neighbours(work.queries[i], 8));
        i = i + 1 == work.queries.size() ? 0 : i + 1;
    }
}

template <std::size_t K, std::size_t Wanted>
void range(benchmark::State &state, EngineKind<K> const &kind, Workload<K> const &work)
{
    Engine<K> const &engine = built<K>(kind, work);
    double const radius = radiusFor<K>(work.points, work.queries, Wanted);
    std::size_t i = 0;
    std::size_t found = 0;
    for (auto _ : state) {
        found += engine.range(work.queries[i], radius);
        i = i + 1 == work.queries.size() ? 0 : i + 1;
    }
    state.counters["found"] =
        benchmark::Counter(static_cast<double>(found), benchmark::Counter::kAvgIterations);
}

template <std::size_t K>
class Registration
{
public:
    Registration()
    {
        for (std::size_t count : {1000u, 10000u, 100000u, 1000000u, 10000000u}) {
            add("uniform", count);
        }
        for (std::size_t count : {100000u, 1000000u}) {
            add("clustered", count);
            add("ascending", count);
        }
        for (char const *const mesh : {"house", "wuson", "earth", "spider", "mesh"}) {
            add(mesh, Workload<K>::pointsOf(mesh, 0).size());
        }
    }

private:
    using Function = void (*)(benchmark::State &, EngineKind<K> const &, Workload<K> const &);

    void add(std::string const &points, std::size_t count)
    {
        if (count == 0) {
            return;
        }
        for (EngineKind<K> const &kind : engineKinds<K>()) {
            auto const name = [&](char const *question) {
                return std::string(question) + "/" + std::to_string(K) + "d_" + points + "/" +
                       std::to_string(count) + "/" + kind.name;
            };
            auto const bind = [&](Function function) {
                return [=](benchmark::State &state) {
                    function(state, kind, Workload<K>::of(points, count));
                };
            };
            using benchmark::RegisterBenchmark;
            RegisterBenchmark(name("build").c_str(), bind(build<K>))->Unit(benchmark::kMillisecond);
            RegisterBenchmark(name("nearest").c_str(), bind(nearest<K>));
            if (kind.make()->hasNeighbours()) {
                RegisterBenchmark(name("8nearest").c_str(), bind(eightNearest<K>));
            }
            RegisterBenchmark(name("range32").c_str(), bind(range<K, 32>));
            RegisterBenchmark(name("range200").c_str(), bind(range<K, 200>));
            RegisterBenchmark(name("range800").c_str(), bind(range<K, 800>));
            // Building anew for every point is quadratic.
            if (count <= (kind.growth == Growth::Insert ? 1000000u : 1000u)) {
                RegisterBenchmark(name("interleaved").c_str(), bind(interleaved<K>))
                    ->Unit(benchmark::kMillisecond);
            }
        }
    }
};

Registration<2> const plane;
Registration<3> const space;

} // namespace
