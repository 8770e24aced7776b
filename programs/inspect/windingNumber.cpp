#include "windingNumber.h"

#include <cmath>

double windingNumber(Mesh const &mesh, vectorC3d<double> const &point)
{
    double halfAngles = 0.0;
    for (auto const &t : mesh.triangles) {
        vectorC3d<double> const a = mesh.vertices.at(t[0]) - point;
        vectorC3d<double> const b = mesh.vertices.at(t[1]) - point;
        vectorC3d<double> const c = mesh.vertices.at(t[2]) - point;
        double const la = a.length();
        double const lb = b.length();
        double const lc = c.length();
        halfAngles += std::atan2(a.dot(b.cross(c)),
                                 la * lb * lc + a.dot(b) * lc + b.dot(c) * la + c.dot(a) * lb);
    }
    return halfAngles / 6.283185307179586; // two pi
}
