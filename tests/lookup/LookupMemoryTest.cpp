// What the lookups ask of the allocator and of threads. The global operator new of this program
// counts, and fails when told to.

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include "support/Bits.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <thread>
#include <vector>

#include <malloc.h>

namespace {

std::atomic<long> liveBytes(0);
std::atomic<long> allocations(0);
std::atomic<long> allocationsLeft(std::numeric_limits<long>::max());

} // namespace

static void *counted(void *memory)
{
    if (!memory) {
        throw std::bad_alloc();
    }
    allocations.fetch_add(1);
    liveBytes.fetch_add(static_cast<long>(malloc_usable_size(memory)));
    return memory;
}

static void failWhenTold()
{
    if (allocationsLeft.fetch_sub(1) <= 0) {
        throw std::bad_alloc();
    }
}

void *operator new(std::size_t size)
{
    failWhenTold();
    return counted(std::malloc(size));
}

void *operator new(std::size_t size, std::nothrow_t const &) noexcept
{
    void *const memory = std::malloc(size);
    return memory ? counted(memory) : nullptr;
}

void *operator new(std::size_t size, std::align_val_t alignment)
{
    failWhenTold();
    std::size_t const unit = static_cast<std::size_t>(alignment);
    return counted(std::aligned_alloc(unit, (size + unit - 1) / unit * unit));
}

void operator delete(void *memory) noexcept
{
    liveBytes.fetch_sub(static_cast<long>(malloc_usable_size(memory)));
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    operator delete(memory);
}

void operator delete(void *memory, std::align_val_t) noexcept
{
    operator delete(memory);
}

void operator delete(void *memory, std::size_t, std::align_val_t) noexcept
{
    operator delete(memory);
}

namespace {

using support::inf;

std::vector<Point3D> randomPoints(int count)
{
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    std::vector<Point3D> points;
    points.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        double const x = coordinate(random);
        double const y = coordinate(random);
        points.emplace_back(x, y, coordinate(random));
    }
    return points;
}

TEST(LookupMemory, AtMost40BytesPerPointInSpace)
{
    for (int count : {1000, 30000, 200000}) {
        std::vector<Point3D> const points = randomPoints(count);
        long const before = liveBytes;
        PRefPtr<Point3DLookupC> lookup(new Point3DLookupC);
        for (Point3D const &p : points) {
            lookup->insert(p);
        }
        EXPECT_LE(liveBytes - before, 40L * count) << count;
        lookup = nullptr;
        EXPECT_EQ(liveBytes, before);
    }
}

TEST(LookupMemory, AtMost48BytesPerPointOfAScannedGrid)
{
    int const side = 40;
    long const before = liveBytes;
    PRefPtr<Point3DLookupC> lookup(new Point3DLookupC);
    for (int i = 0; i < side * side * side; ++i) {
        lookup->insert({double(i / (side * side)), double(i / side % side), double(i % side)});
    }
    int const stored = lookup->findWithinRange({0, 0, 0}, inf).size();
    EXPECT_LE(liveBytes - before, 48L * stored);
}

TEST(LookupMemory, NearestAllocatesNothing)
{
    std::vector<Point3D> const points = randomPoints(20000);
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    for (Point3D const &p : points) {
        lookup->insert(p);
    }
    long const before = allocations;
    int found = 0;
    for (Point3D const &p : points) {
        found += lookup->findNearest(0.9 * p, inf).second;
    }
    EXPECT_EQ(found, 20000);
    EXPECT_EQ(allocations, before);
}

TEST(LookupMemory, FailedInsertionLeavesTheLookupAsItWas)
{
    std::vector<Point3D> const points = randomPoints(600);
    PRefPtr<Point2DLookupC> const lookup(new Point2DLookupC);
    int failures = 0;
    for (int i = 0; i < 600; ++i) {
        Point2D const point(points[static_cast<std::size_t>(i)].x(),
                            points[static_cast<std::size_t>(i)].y());
        auto const before = lookup->findWithinRangeUserData({0, 0}, inf);
        QVariant const data(i);
        for (long allowed = 0;; ++allowed) {
            allocationsLeft = allowed;
            bool failed = false;
            try {
                lookup->insert(point, data);
            } catch (std::bad_alloc const &) {
                failed = true;
            }
            allocationsLeft = std::numeric_limits<long>::max();
            if (!failed) {
                break;
            }
            ++failures;
            ASSERT_EQ(lookup->findWithinRangeUserData({0, 0}, inf), before);
        }
        ASSERT_EQ(lookup->findWithinRange({0, 0}, inf).size(), i + 1);
    }
    EXPECT_GT(failures, 50);
}

TEST(LookupMemory, DestructionNeedsNoDeepStack)
{
    PRefPtr<Point2DLookupC> lookup(new Point2DLookupC);
    for (int i = 0; i < 300000; ++i) {
        lookup->insert({double(i % 1000), -double(i / 1000)}, i);
    }
    lookup = nullptr;
}

TEST(LookupThreads, SearchesRunSideBySide)
{
    std::vector<Point3D> const points = randomPoints(4000);
    PRefPtr<Point3DLookupC> const space(new Point3DLookupC);
    PRefPtr<Point2DLookupC> const plane(new Point2DLookupC);
    for (Point3D const &p : points) {
        space->insert(p);
        plane->insert({p.x(), p.y()}, QStringLiteral("shared"));
    }
    std::atomic<int> wrong(0);
    auto const search = [&] {
        for (Point3D const &p : points) {
            Point2D const q(p.x(), p.y());
            bool const right =
                space->findNearest(p, 0.0).first == p &&
                space->findWithinRange(p, 0.05).contains(p) &&
                plane->findNearest(q, 0.0)->getPoint() == q &&
                plane->findKNearestNeighbors(q, 3, inf).at(0)->getDistance() == 0.0 &&
                plane->findNearestNotEqual(q, inf)->getUserData() == QStringLiteral("shared");
            wrong += right ? 0 : 1;
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(search);
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

} // namespace
