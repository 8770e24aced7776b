#pragma once

/// @file
/// The peer: Qt's own calls of methods by name.

#include <OrvelMath/base/valueTypes.h>

#include <QtCore/QMetaType>
#include <QtCore/QObject>

Q_DECLARE_METATYPE(vectorC3d<double>)

/// A vector for scripts as Qt would make one: an object with invokable methods.
class QtVector : public QObject
{
    Q_OBJECT
public:
    QtVector() = default;
    explicit QtVector(vectorC3d<double> const &value)
        : m_value(value)
    {
    }

    Q_INVOKABLE double x() const { return m_value.x(); }
    /// A new object, owned by the caller, as the proxies' `cross` gives one.
    Q_INVOKABLE QObject *cross(QObject *other) const
    {
        return new QtVector(m_value.cross(static_cast<QtVector *>(other)->m_value));
    }
    /// The bare value: less than the proxies do.
    Q_INVOKABLE vectorC3d<double> crossValue(vectorC3d<double> const &other) const
    {
        return m_value.cross(other);
    }

private:
    vectorC3d<double> m_value;
};
