#pragma once

/// Eigen's twins of the library's functions, behind a library boundary. Arrays are row-major.
#define PEER_EXPORT __attribute__((visibility("default")))

namespace eigenPeer {

PEER_EXPORT void multiply(double (*result)[4], double const (*a)[4], double const (*b)[4]);
PEER_EXPORT void invert(double (*m)[4]);
PEER_EXPORT void invertOrthogonal(double (*m)[4]);
PEER_EXPORT void transform(double const (*m)[4], double const *point, double *image);
PEER_EXPORT void transformRespectW(double const (*m)[4], double const *point, double *image);

/// Quaternions in the order x, y, z, w.
PEER_EXPORT void matrixOf(double const *quaternion, double (*m)[4]);
PEER_EXPORT void quaternionOf(double const (*m)[4], double *quaternion);
PEER_EXPORT void slerp(double const *from, double const *to, double t, double *between);

} // namespace eigenPeer
