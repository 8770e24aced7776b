#include "qtPeer.h"

#include <QMatrix4x4>
#include <QVector3D>

void qtPeer::multiply(QMatrix4x4 &result, const QMatrix4x4 &a, const QMatrix4x4 &b)
{
    result = a * b;
}

void qtPeer::invert(QMatrix4x4 &m)
{
    m = m.inverted();
}

void qtPeer::transform(const QMatrix4x4 &m, const QVector3D &point, QVector3D &image)
{
    image = m.map(point);
}
