#include <OrvelCore/script/mzComVariantC.h>

#include <OrvelCore/script/proxyFactoryC.h>
#include <OrvelCore/script/prxQVariantBaseC.h>
#include <OrvelCore/script/serverEvents_p.h>
#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <cxxabi.h>

#include <cstdlib>

mzComStringC mzComTypeInfoToName(const std::type_info &type)
{
    return type.name();
}

mzComStringC mzComReadableTypeName(const mzComStringC &name)
{
    int status = 0;
    char *readable = abi::__cxa_demangle(name.utf8(), nullptr, nullptr, &status);
    const mzComStringC result = status == 0 ? mzComStringC(readable) : name;
    std::free(readable);
    return result;
}

mzComVariantC::mzComVariantC(const mzComPtrT<mzIUnknown> &object)
{
    if (object)
        m_value = object;
}

double mzComVariantC::toDouble() const
{
    const double *value = std::get_if<double>(&m_value);
    return value != nullptr ? *value : 0.0;
}

mzComStringC mzComVariantC::toString() const
{
    const mzComStringC *value = std::get_if<mzComStringC>(&m_value);
    return value != nullptr ? *value : mzComStringC();
}

mzComPtrT<mzIUnknown> mzComVariantC::toObject() const
{
    const auto *value = std::get_if<mzComPtrT<mzIUnknown>>(&m_value);
    return value != nullptr ? *value : mzComPtrT<mzIUnknown>();
}

mzComVariantC mzComVariantC::fromUserData(int id, const void *value)
{
    mzComVariantC variant;
    if (const valueTypeRegistry::Entry *entry = valueTypeRegistry::find(id)) {
        const mzComValueMarshalS *record = entry->record;
        variant.m_value = UserValue{
            record, std::shared_ptr<const void>(record->create(value), [record](const void *copy) {
                record->destroy(const_cast<void *>(copy));
            })};
    }
    return variant;
}

mzComUserDataStatusE mzComVariantC::getUserData(int id, void *value) const
{
    const UserValue *user = std::get_if<UserValue>(&m_value);
    if (user == nullptr)
        return mzUserDataNone;
    if (user->record->id != id)
        return mzUserDataOtherType;
    user->record->copy(user->value.get(), value);
    return mzUserDataOk;
}

int mzComVariantC::userType() const
{
    const UserValue *user = std::get_if<UserValue>(&m_value);
    return user != nullptr ? user->record->id : 0;
}

mzComVariantC mzComVariantC::toSkalarValue() const &
{
    return mzComVariantC(*this).toSkalarValue();
}

mzComVariantC mzComVariantC::toSkalarValue() &&
{
    if (const auto *object = std::get_if<mzComPtrT<mzIUnknown>>(&m_value)) {
        mzComPtrT<prxQVariantBaseC> holder;
        if ((*object)->queryInterface(prxQVariantBaseC::IID(), holder))
            return holder->getComVariant();
    }
    return std::move(*this);
}

mzComVariantC mzComVariantC::toScriptObject() const
{
    const valueTypeRegistry::Entry *entry = valueTypeRegistry::find(userType());
    if (entry == nullptr || entry->proxyClass == mzIIDS())
        return *this;
    const mzComPtrT<proxyObjectC> proxy = proxyFactoryC::instance().create(entry->proxyClass);
    mzComPtrT<prxQVariantBaseC> holder;
    if (!proxy || !proxy->queryInterface(prxQVariantBaseC::IID(), holder))
        return *this;
    holder->setComVariant(*this);
    return mzComPtrT<mzIUnknown>(proxy.get());
}

mzComStringC mzComVariantC::typeName() const
{
    if (isDouble())
        return "number";
    if (isString())
        return "string";
    if (const auto *object = std::get_if<mzComPtrT<mzIUnknown>>(&m_value)) {
        mzComPtrT<proxyObjectC> proxy;
        const bool known = (*object)->queryInterface(proxyObjectC::IID(), proxy);
        return known ? proxy->getProxyTypeInfo()->name : "object";
    }
    if (const UserValue *user = std::get_if<UserValue>(&m_value))
        return mzComReadableTypeName(user->record->name());
    return "nothing";
}

bool mzComVariantC::writeUserData(mzComDataStreamC &stream) const
{
    const UserValue *user = std::get_if<UserValue>(&m_value);
    return user != nullptr && user->record->write(user->value.get(), stream);
}

bool mzComVariantC::readUserData(int id, mzComDataStreamC &stream)
{
    const valueTypeRegistry::Entry *entry = valueTypeRegistry::find(id);
    if (entry == nullptr)
        return false;
    const mzComValueMarshalS *record = entry->record;
    const std::unique_ptr<void, void (*)(void *)> value(record->create(nullptr), record->destroy);
    if (!record->read(value.get(), stream))
        return false;
    *this = fromUserData(id, value.get());
    return true;
}

void mzComVariantC::registerValueType(mzComValueMarshalS *record)
{
    valueTypeRegistry::add(record);
}

void mzComVariantC::registerUserTypeProxy(int id, const mzIIDS &classIdentifier)
{
    valueTypeRegistry::setProxyClass(id, classIdentifier, serverEvents::notified());
}

int mzComVariantC::registeredValueTypeCount()
{
    return valueTypeRegistry::count();
}
