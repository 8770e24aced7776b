#include "qtPeer.h"

#include <QMatrix4x4>
#include <QVector3D>

void qtPeer::multiply(QMatrix4x4 &result, QMatrix4x4 const &a, QMatrix4x4 const &b)
{
    result = a * b;
}

void qtPeer::invert(QMatrix4x4 &m)
{
    m = m.inverted();
}

void qtPeer::transform(QMatrix4x4 const &m, QVector3D const &point, QVector3D &image)
{
    image = m.map(point);
}
