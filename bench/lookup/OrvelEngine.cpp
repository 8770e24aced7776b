#include "Engine.h"

#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <OrvelCore/runtime/PRefPtr.h>

#include <limits>

namespace {

double const noLimit = std::numeric_limits<double>::infinity();

class SpaceEngine : public Engine<3>
{
public:
    void build(Points<3> const &points) override
    {
        for (Point<3> const &p : points) {
            insert(p);
        }
    }
    void insert(Point<3> const &p) override { m_lookup->insert({p[0], p[1], p[2]}); }
    double nearest(Point<3> const &q) const override
    {
        Point3D const query(q[0], q[1], q[2]);
        return (m_lookup->findNearest(query, noLimit).first - query).Length2();
    }
    bool hasNeighbours() const override { return false; }
    std::size_t neighbours(Point<3> const &, int) const override { return 0; }
    std::size_t range(Point<3> const &q, double radius) const override
    {
        return static_cast<std::size_t>(
            m_lookup->findWithinRange({q[0], q[1], q[2]}, radius).size());
    }

private:
    PRefPtr<Point3DLookupC> m_lookup{new Point3DLookupC};
};

class PlaneEngine : public Engine<2>
{
public:
    void build(Points<2> const &points) override
    {
        for (Point<2> const &p : points) {
            insert(p);
        }
    }
    void insert(Point<2> const &p) override { m_lookup->insert({p[0], p[1]}, ++m_next); }
    double nearest(Point<2> const &q) const override
    {
        double const distance = m_lookup->findNearest({q[0], q[1]}, noLimit)->getDistance();
        return distance * distance;
    }
    std::size_t neighbours(Point<2> const &q, int k) const override
    {
        return static_cast<std::size_t>(
            m_lookup->findKNearestNeighbors({q[0], q[1]}, k, noLimit).size());
    }
    std::size_t range(Point<2> const &q, double radius) const override
    {
        return static_cast<std::size_t>(m_lookup->findWithinRange({q[0], q[1]}, radius).size());
    }

private:
    PRefPtr<Point2DLookupC> m_lookup{new Point2DLookupC};
    int m_next = 0;
};

} // namespace

template <>
std::unique_ptr<Engine<2>> makeOrvel<2>()
{
    return std::make_unique<PlaneEngine>();
}

template <>
std::unique_ptr<Engine<3>> makeOrvel<3>()
{
    return std::make_unique<SpaceEngine>();
}
