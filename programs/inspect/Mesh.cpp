#include "Mesh.h"

#include "errors.h"

#include <algorithm>
#include <cmath>

void measureExtents(Mesh &mesh)
{
    mesh.lowest = mesh.vertices.front();
    mesh.highest = mesh.vertices.front();
    for (Vector const &v : mesh.vertices) {
        for (int axis = 0; axis < 3; ++axis) {
            if (!std::isfinite(v[axis])) {
                throw InputError("a coordinate is not a finite number");
            }
            mesh.lowest[axis] = std::min(mesh.lowest[axis], v[axis]);
            mesh.highest[axis] = std::max(mesh.highest[axis], v[axis]);
        }
    }
    if (!std::isfinite(mesh.extent().squaredLength())) {
        throw InputError("the coordinates are too large to be measured");
    }
}
