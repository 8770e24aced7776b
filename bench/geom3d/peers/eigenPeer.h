#pragma once

/// Eigen's twins of the library's functions, behind a library boundary. Arrays are row-major.
#define PEER_EXPORT __attribute__((visibility("default")))

namespace eigenPeer {

PEER_EXPORT void multiply(double (*result)[4], const double (*a)[4], const double (*b)[4]);
PEER_EXPORT void invert(double (*m)[4]);
PEER_EXPORT void invertOrthogonal(double (*m)[4]);
PEER_EXPORT void transform(const double (*m)[4], const double *point, double *image);
PEER_EXPORT void transformRespectW(const double (*m)[4], const double *point, double *image);

/// Quaternions in the order x, y, z, w.
PEER_EXPORT void matrixOf(const double *quaternion, double (*m)[4]);
PEER_EXPORT void quaternionOf(const double (*m)[4], double *quaternion);
PEER_EXPORT void slerp(const double *from, const double *to, double t, double *between);

} // namespace eigenPeer
