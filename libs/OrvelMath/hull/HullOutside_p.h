#pragma once

/// @file
/// The hand-over of points to new faces.

#include <OrvelMath/hull/HullFace_p.h>

/// Offers the point to the face: one that lies more than 1e-8 above its plane joins its outside
/// points. Of points equally far the lexicographically smallest is the furthest.
/// @return whether the face has taken it.
inline bool addOutsidePoint(HullFace &face, int index, HullPoints const &points)
{
    double const height = face.height(pointAt(points, index), points);
    if (!(height > 1e-8)) { // a length; NaN is not outside
        return false;
    }
    face.outsidePoints.append(index);
    if (height > face.furthestDistance ||
        (height == face.furthestDistance &&
         lexicographicallyLess(pointAt(points, index), pointAt(points, face.furthestPoint)))) {
        face.furthestPoint = index;
        face.furthestDistance = height;
    }
    return true;
}

/// Hands points on to new faces: each goes to the first face that it lies outside of.
class HullOutside
{
public:
    explicit HullOutside(HullPoints const &points)
        : m_points(points)
    {
    }

    /// Lets the point wait for the next distribution.
    void append(int index) { m_waiting.push_back(index); }

    /// Offers each waiting point, in the order of their coming, to the faces in their order. It
    /// stays with the first that takes it; one that no face takes is forgotten.
    void distribute(HullVector<HullFace *> const &faces)
    {
        for (int index : m_waiting) {
            for (HullFace *face : faces) {
                if (addOutsidePoint(*face, index, m_points)) {
                    break;
                }
            }
        }
        m_waiting.clear();
    }

private:
    HullPoints const &m_points;
    HullVector<int> m_waiting;
};
