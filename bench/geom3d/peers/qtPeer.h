#pragma once

#define PEER_EXPORT __attribute__((visibility("default")))

/// Qt's single-precision twins, behind a library boundary. The class keeps a note of what kind of
/// matrix it holds, so the twins take the objects themselves.
class QMatrix4x4;
class QVector3D;

namespace qtPeer {

PEER_EXPORT void multiply(QMatrix4x4 &result, const QMatrix4x4 &a, const QMatrix4x4 &b);
PEER_EXPORT void invert(QMatrix4x4 &m);
PEER_EXPORT void transform(const QMatrix4x4 &m, const QVector3D &point, QVector3D &image);

} // namespace qtPeer
