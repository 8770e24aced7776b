#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

template <std::size_t K>
using Point = std::array<double, K>;
template <std::size_t K>
using Points = std::vector<Point<K>>;

/// How an engine takes in a point after others have been asked for.
enum class Growth {
    Insert, ///< has an insertion of its own
    Rebuild ///< builds its index anew
};

/// A spatial index under test. The virtual call costs every engine the same.
template <std::size_t K>
class Engine
{
public:
    virtual ~Engine() = default;
    virtual void build(Points<K> const &points) = 0;
    virtual void insert(Point<K> const &point) = 0;
    /// Squared distance of the nearest point.
    virtual double nearest(Point<K> const &query) const = 0;
    /// Number of points found; false when the engine has no such question.
    virtual bool hasNeighbours() const { return true; }
    virtual std::size_t neighbours(Point<K> const &query, int k) const = 0;
    virtual std::size_t range(Point<K> const &query, double radius) const = 0;
};

template <std::size_t K>
struct EngineKind
{
    std::string name;
    Growth growth;
    std::unique_ptr<Engine<K>> (*make)();
};

template <std::size_t K>
std::unique_ptr<Engine<K>> makeOrvel();
template <std::size_t K>
std::unique_ptr<Engine<K>> makeNanoflannStatic();
template <std::size_t K>
std::unique_ptr<Engine<K>> makeNanoflannDynamic();
template <std::size_t K>
std::unique_ptr<Engine<K>> makeBoostRtree();
template <std::size_t K>
std::unique_ptr<Engine<K>> makeCgal();
template <std::size_t K>
std::unique_ptr<Engine<K>> makeFlann();

/// The library first, then the peers that are there.
template <std::size_t K>
std::vector<EngineKind<K>> engineKinds()
{
    return {
        {"orvel", Growth::Insert, makeOrvel<K>},
#ifdef ORVEL_HAVE_NANOFLANN
        {"nanoflann_static", Growth::Rebuild, makeNanoflannStatic<K>},
        {"nanoflann_dynamic", Growth::Insert, makeNanoflannDynamic<K>},
#endif
#ifdef ORVEL_HAVE_BOOST
        {"boost_rtree", Growth::Insert, makeBoostRtree<K>},
#endif
#ifdef ORVEL_HAVE_CGAL
        {"cgal", Growth::Rebuild, makeCgal<K>},
#endif
#ifdef ORVEL_HAVE_FLANN
        {"flann", Growth::Rebuild, makeFlann<K>},
#endif
    };
}
