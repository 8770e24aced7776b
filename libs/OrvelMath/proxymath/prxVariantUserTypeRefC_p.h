#pragma once

/// @file
/// A proxy for a part of another one's value.

#include <OrvelMath/proxymath/prxVariantUserTypeBaseC.h>

/// A proxy of class `P` whose value, a `V`, lives in an owner of class `O`: it is read and written
/// through two member functions of the owner, and the variant of the proxy itself is never used.
/// The owner gets a reference for each reference to this object, but none for the object as such.
template <typename V, typename P, typename O>
class prxVariantUserTypeRefC final : public P
{
public:
    using Reader = V (O::*)();
    using Writer = void (O::*)(V const &);

    prxVariantUserTypeRefC(O *owner, Reader reader, Writer writer)
        : m_owner(owner)
        , m_reader(reader)
        , m_writer(writer)
    {
        Q_ASSERT(owner != nullptr);
    }

    int addRef() override
    {
        m_owner->addRef();
        return proxyObjectC::addRef();
    }
    int release() override
    {
        m_owner->release();
        return proxyObjectC::release();
    }
    mzComVariantC getComVariant() const override
    {
        V const value = getValue();
        return mzComVariantC::fromUserData(proxyValueTypeId<V>(), &value);
    }
    void setComVariant(mzComVariantC const &variant) override
    {
        V value{};
        variant.toSkalarValue().getUserData(proxyValueTypeId<V>(), &value);
        setValue(value);
    }
    V getValue() const override { return (m_owner->*m_reader)(); }
    void setValue(V const &value) override { (m_owner->*m_writer)(value); }

private:
    ~prxVariantUserTypeRefC() override = default;

    O *m_owner;
    Reader m_reader;
    Writer m_writer;
};
