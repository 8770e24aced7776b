#include <OrvelCore/script/prxQVariantBaseC.h>

namespace {

proxyMemberDescS noMembers[] = {{nullptr, 0, 0, nullptr, nullptr, nullptr, 0}};

void *castToValueProxy(const proxyObjectC *object)
{
    return const_cast<proxyObjectC *>(object);
}

mzComVariantC fromQVariant(const QVariant &value)
{
    if (!value.isValid())
        return mzComVariantC();
    if (value.userType() == qMetaTypeId<mzComVariantC>())
        return value.value<mzComVariantC>();
    const bool isText = value.userType() == QMetaType::QString ||
                        value.userType() == QMetaType::QByteArray ||
                        value.userType() == QMetaType::QChar;
    if (!isText && value.canConvert<double>())
        return value.toDouble();
    return mzComStringC(value.toString());
}

} // namespace

prxQVariantBaseC::prxQVariantBaseC() = default;

prxQVariantBaseC::prxQVariantBaseC(const mzComVariantC &value)
    : m_value(value)
{
}

prxQVariantBaseC::~prxQVariantBaseC() = default;

const mzIIDS &prxQVariantBaseC::IID()
{
    static const mzIIDS identifier("prxQVariantBaseC");
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

const proxyMemberDescListS *prxQVariantBaseC::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

bool prxQVariantBaseC::queryInterface(const mzIIDS &identifier, mzComPtrC &target)
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

bool prxQVariantBaseC::invokeByName(const mzComStringC &name, unsigned int flags,
                                    const mzComVariantArrayC &arguments, mzComVariantC &result,
                                    mzComPtrT<mzIException> &exception)
{
    return proxyObjectC::invokeByName(name, flags, arguments, result, exception);
}

QVariant prxQVariantBaseC::getVariant() const
{
    const mzComVariantC value = getComVariant();
    if (value.isEmpty())
        return QVariant();
    if (value.isDouble())
        return value.toDouble();
    if (value.isString())
        return value.toString().toQString();
    return QVariant::fromValue(value);
}

void prxQVariantBaseC::setVariant(const QVariant &value)
{
    setComVariant(fromQVariant(value));
}

mzComVariantC prxQVariantBaseC::getComVariant() const
{
    return m_value;
}

void prxQVariantBaseC::setComVariant(const mzComVariantC &value)
{
    m_value = value;
}
