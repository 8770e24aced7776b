#include "windingNumber.h"

#include <cmath>

double windingNumber(Mesh const &mesh, Vector const &point)
{
    double halfAngles = 0.0;
    for (auto const &t : mesh.triangles) {
        Corners const corners = mesh.corners(t);
        Vector const a = corners[0] - point;
        Vector const b = corners[1] - point;
        Vector const c = corners[2] - point;
        double const la = a.length();
        double const lb = b.length();
        double const lc = c.length();
        halfAngles += std::atan2(a.dot(b.cross(c)),
                                 la * lb * lc + a.dot(b) * lc + b.dot(c) * la + c.dot(a) * lb);
    }
    return halfAngles / 6.283185307179586; // two pi
}
