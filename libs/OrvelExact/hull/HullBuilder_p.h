#pragma once

/// @file
/// Quickhull with exact signs.

#include <OrvelExact/hull/HullMesh_p.h>
#include <OrvelExact/hull/WorkPoints_p.h>
#include <OrvelExact/predicates/orientation.h>

#include <vector>

namespace orvelExact {

/// A triangulated hull in space by Quickhull (Barber, Dobkin and Huhdanpaa, 1996), with exact
/// signs.
///
/// A point sees a facet when it lies strictly above it. Then the facets of one plane are seen all
/// or none, what is seen is a disc, and no new triangle is degenerate: a point on the line of a
/// horizon's edge would lie in the plane of the facet that it sees. Points in the plane of a facet
/// that see no other facet are left out; corners that end up inside a face or an edge of the hull
/// are found when the triangles of one plane are merged.
///
/// A point that sees a facet which goes, and is outside afterwards, sees a new facet: so it is
/// enough to hand the points of the old facets to the new ones. Points of equal coordinates stay in
/// the order of their indices, and the first is taken.
class HullBuilder
{
public:
    explicit HullBuilder(WorkPoints const &points)
        : m_points(points)
    {
    }
    ~HullBuilder();

    /// Builds the hull from four corners that are not in one plane.
    void build(int const (&simplex)[4]);

    HullMesh const &mesh() const { return m_mesh; }

private:
    /// An edge of the horizon, as the facet under it sees it.
    struct HorizonEdge
    {
        int facet; ///< the one that stays
        int tail;
        int head;
    };
    struct Visit
    {
        int facet;
        int edge;
        int left; ///< edges still to look at
    };

    void makeSimplex(int const (&simplex)[4]);
    void addExtremes();
    void handOutAll();
    void expand(int facet);
    bool sees(int facet, Point3 const &position, int index);
    bool isAbove(HullFacet const &facet, double height, int index) const;
    void findHorizon(int facet, Point3 const &position, int index);
    void makeCone(int apex);
    void handOver();
    void claim(OutsidePoint const *points, int count);
    int claimant(Point3 const &position, int index, double &height) const;
    void shareOut();
    void noteHeight(int slot, double height);
    void takeArrays();
    void queueNewFacets();

    WorkPoints const &m_points;
    HullMesh m_mesh;
    OutsidePool m_pool;
    std::vector<int> m_waiting; ///< facets with outside points, last first

    int m_apex = -1; ///< the point that is being added
    // Of one step; kept for their memory.
    quint32 m_step = 0;
    std::vector<Visit> m_visits;
    std::vector<int> m_visible;
    std::vector<HorizonEdge> m_horizon;
    std::vector<int> m_newFacets;
    std::vector<HullPlane> m_newPlanes;
    std::vector<int> m_claimants;  ///< for each point that is handed over, -1 for none
    std::vector<double> m_heights; ///< over its claimant
    std::vector<double> m_highest; ///< for each new facet, of the points that it got
};

} // namespace orvelExact
