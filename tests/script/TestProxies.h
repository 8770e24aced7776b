#pragma once

/// @file
/// Script classes and a value type of the tests.

#include <OrvelCore/script/ScriptLayer.h>

#include <QtCore/QByteArray>

/// A value type of the tests: two doubles.
struct Pair
{
    double first = 0.0;
    double second = 0.0;
};

/// Record of Pair. Tests share it; the id is given once.
mzComValueMarshalS *pairRecord();
int pairTypeId();

/// A class with a base, overloads, and members of all kinds. Each method answers with its own name.
class BaseProbe : public proxyObjectC
{
public:
    static proxyMemberDescListS *getStaticProxyTypeInfo();
    proxyMemberDescListS const *getProxyTypeInfo() const override;
};

class Probe : public BaseProbe
{
public:
    static proxyMemberDescListS *getStaticProxyTypeInfo();
    proxyMemberDescListS const *getProxyTypeInfo() const override;

    using proxyObjectC::setThreadSafe;
    double stored = 0.0;
};

/// A proxy that stands for a Pair, with an identifier for the factory.
class PairProxy : public prxQVariantBaseC
{
public:
    static proxyMemberDescListS *getStaticProxyTypeInfo();
    proxyMemberDescListS const *getProxyTypeInfo() const override;
};
