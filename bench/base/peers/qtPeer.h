#pragma once

#define PEER_EXPORT __attribute__((visibility("default")))

/// Qt's single-precision twins, behind a library boundary. The class keeps a note of what kind of
/// matrix it holds, so the twins take the objects themselves.
class QMatrix4x4;
class QVector3D;

namespace qtPeer {

PEER_EXPORT void multiply(QMatrix4x4 &result, QMatrix4x4 const &a, QMatrix4x4 const &b);
PEER_EXPORT void invert(QMatrix4x4 &m);
PEER_EXPORT void transform(QMatrix4x4 const &m, QVector3D const &point, QVector3D &image);

} // namespace qtPeer
