#include <OrvelCore/script/prxQVariantBaseC.h>

namespace {

proxyMemberDescS noMembers[] = {{nullptr, 0, 0, nullptr, nullptr, nullptr, 0}};

void *castToValueProxy(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

mzComVariantC fromQVariant(QVariant const &value)
{
    if (!value.isValid()) {
        return mzComVariantC();
    }
    if (value.userType() == qMetaTypeId<mzComVariantC>()) {
        return value.value<mzComVariantC>();
    }
    bool const isText = value.userType() == QMetaType::QString ||
                        value.userType() == QMetaType::QByteArray ||
                        value.userType() == QMetaType::QChar;
    if (!isText && value.canConvert<double>()) {
        return value.toDouble();
    }
    return mzComStringC(value.toString());
}

} // namespace

prxQVariantBaseC::prxQVariantBaseC() = default;

prxQVariantBaseC::prxQVariantBaseC(mzComVariantC const &value)
    : m_value(value)
{
}

prxQVariantBaseC::~prxQVariantBaseC() = default;

mzIIDS const &prxQVariantBaseC::IID()
{
    static mzIIDS const identifier("prxQVariantBaseC");
    return identifier;
}

proxyMemberDescListS *prxQVariantBaseC::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS *bases[] = {proxyObjectC::getStaticProxyTypeInfo(), nullptr};
    static proxyMemberDescListS list = {
        "prxQVariantBaseC", castToValueProxy, bases, noMembers, nullptr, 0, nullptr,
        "prxQVariantBaseC", __LINE__};
    return &list;
}

proxyMemberDescListS const *prxQVariantBaseC::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

bool prxQVariantBaseC::queryInterface(mzIIDS const &identifier, mzComPtrC &target)
{
    // Asked for at every argument that is an object, so it is answered first.
    if (identifier == IID()) {
        target = mzComPtrC(this);
        return true;
    }
    return proxyObjectC::queryInterface(identifier, target);
}

int prxQVariantBaseC::addRef()
{
    return proxyObjectC::addRef();
}

int prxQVariantBaseC::release()
{
    return proxyObjectC::release();
}

bool prxQVariantBaseC::invokeByName(mzComStringC const &name, unsigned int flags,
                                    mzComVariantArrayC const &arguments, mzComVariantC &result,
                                    mzComPtrT<mzIException> &exception)
{
    return proxyObjectC::invokeByName(name, flags, arguments, result, exception);
}

QVariant prxQVariantBaseC::getVariant() const
{
    mzComVariantC const value = getComVariant();
    if (value.isEmpty()) {
        return QVariant();
    }
    if (value.isDouble()) {
        return value.toDouble();
    }
    if (value.isString()) {
        return value.toString().toQString();
    }
    return QVariant::fromValue(value);
}

void prxQVariantBaseC::setVariant(QVariant const &value)
{
    setComVariant(fromQVariant(value));
}

mzComVariantC prxQVariantBaseC::getComVariant() const
{
    return m_value;
}

void prxQVariantBaseC::setComVariant(mzComVariantC const &value)
{
    m_value = value;
}
