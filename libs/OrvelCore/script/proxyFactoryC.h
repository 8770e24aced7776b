#pragma once

/// @file
/// The script classes of the process.

#include <OrvelCore/script/proxyObjectC.h>

#include <QtCore/QVector>

/// The script classes of the process. It owns none of the descriptions, and the objects that it
/// makes belong to those who ask for them. May be used from any thread.
class ORVELCORE_EXPORT proxyFactoryC
{
public:
    static proxyFactoryC &instance();

    /// Makes a class known. A class with the same object identifier takes the place of the old one.
    /// Registered while a library is told of the server's start, it is forgotten again when that
    /// library goes.
    void registerClass(proxyMemberDescListS const *list);
    /// A new object of the class with this object identifier; null if there is none or memory ran
    /// out.
    mzComPtrT<proxyObjectC> create(mzIIDS const &objectIdentifier) const;
    /// The class with this object identifier, or null.
    proxyMemberDescListS const *findClass(mzIIDS const &objectIdentifier) const;
    /// All classes, in the order in which they came.
    QVector<proxyMemberDescListS const *> classes() const;

private:
    proxyFactoryC() = default;
};
