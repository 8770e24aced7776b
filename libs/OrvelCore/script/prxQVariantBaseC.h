#pragma once

/// @file
/// The base of the objects that are the value of something.

#include <OrvelCore/script/proxyObjectC.h>

#include <QtCore/QVariant>

/// Base of the proxies that are a value for scripts: it keeps the value in a variant, which it
/// owns. Several threads may read the value at the same time, as long as none sets it.
class ORVELCORE_EXPORT prxQVariantBaseC : public proxyObjectC
{
public:
    /// The identifier "prxQVariantBaseC".
    static mzIIDS const &IID();

    prxQVariantBaseC();
    explicit prxQVariantBaseC(mzComVariantC const &value);
    ~prxQVariantBaseC() override;

    bool queryInterface(mzIIDS const &identifier, mzComPtrC &target) override;
    int addRef() override;
    int release() override;
    bool invokeByName(mzComStringC const &name, unsigned int flags,
                      mzComVariantArrayC const &arguments, mzComVariantC &result,
                      mzComPtrT<mzIException> &exception) override;
    proxyMemberDescListS const *getProxyTypeInfo() const override;

    /// The value for Qt: invalid, a double, a QString, or an mzComVariantC for all else.
    virtual QVariant getVariant() const;
    /// Takes what getVariant gives; of other Qt values a number becomes a number, and what has a
    /// text becomes that text.
    virtual void setVariant(QVariant const &value);
    virtual mzComVariantC getComVariant() const;
    virtual void setComVariant(mzComVariantC const &value);

    static proxyMemberDescListS *getStaticProxyTypeInfo();

private:
    mzComVariantC m_value;
};
