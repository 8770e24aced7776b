#include <OrvelCore/script/mzComVariantC.h>

#include <OrvelCore/script/proxyFactoryC.h>
#include <OrvelCore/script/prxQVariantBaseC.h>
#include <OrvelCore/script/registrationOwner_p.h>
#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <cxxabi.h>

#include <cstdlib>

mzComStringC mzComTypeInfoToName(std::type_info const &type)
{
    return type.name();
}

mzComStringC mzComReadableTypeName(mzComStringC const &name)
{
    int status = 0;
    char *readable = abi::__cxa_demangle(name.utf8(), nullptr, nullptr, &status);
    mzComStringC const result = status == 0 ? mzComStringC(readable) : name;
    std::free(readable);
    return result;
}

// Not in the header: make_shared has a static object that the linker unites over all modules, and a
// module that brings one is never unloaded.
mzComVariantC::mzComVariantC(mzComStringC const &value)
    : m_kind(Kind::String)
    , m_shared(std::make_shared<mzComStringC>(value))
{
}

mzComVariantC mzComVariantC::fromUserData(int id, void const *value)
{
    mzComVariantC variant;
    if (mzComValueMarshalS const *record = valueTypeRegistry::findRecord(id)) {
        variant.m_shared.reset(record->create(value), record->destroy);
        variant.m_record = record;
        variant.m_kind = Kind::User;
    }
    return variant;
}

mzComUserDataStatusE mzComVariantC::getUserData(int id, void *value) const
{
    if (!isUserValue()) {
        return mzUserDataNone;
    }
    if (m_record->id != id) {
        return mzUserDataOtherType;
    }
    m_record->copy(m_shared.get(), value);
    return mzUserDataOk;
}

int mzComVariantC::userType() const
{
    return isUserValue() ? m_record->id : 0;
}

mzComVariantC mzComVariantC::toSkalarValue() const &
{
    return mzComVariantC(*this).toSkalarValue();
}

mzComVariantC mzComVariantC::toSkalarValue() &&
{
    if (isObject()) {
        mzComPtrT<prxQVariantBaseC> holder;
        if (m_object->queryInterface(prxQVariantBaseC::IID(), holder)) {
            return holder->getComVariant();
        }
    }
    return std::move(*this);
}

mzComVariantC mzComVariantC::toScriptObject() const
{
    valueTypeRegistry::Entry const entry = valueTypeRegistry::find(userType());
    if (entry.record == nullptr || entry.proxyClass == mzIIDS()) {
        return *this;
    }
    mzComPtrT<proxyObjectC> const proxy = proxyFactoryC::instance().create(entry.proxyClass);
    mzComPtrT<prxQVariantBaseC> holder;
    if (!proxy || !proxy->queryInterface(prxQVariantBaseC::IID(), holder)) {
        return *this;
    }
    holder->setComVariant(*this);
    return mzComPtrT<mzIUnknown>(proxy.get());
}

mzComStringC mzComVariantC::typeName() const
{
    switch (m_kind) {
    case Kind::Double:
        return "number";
    case Kind::String:
        return "string";
    case Kind::Object: {
        mzComPtrT<proxyObjectC> proxy;
        bool const known = m_object->queryInterface(proxyObjectC::IID(), proxy);
        return known ? proxy->getProxyTypeInfo()->name : "object";
    }
    case Kind::User:
        return mzComReadableTypeName(m_record->name());
    case Kind::Empty:
        break;
    }
    return "nothing";
}

bool mzComVariantC::writeUserData(mzComDataStreamC &stream) const
{
    return isUserValue() && m_record->write(m_shared.get(), stream);
}

bool mzComVariantC::readUserData(int id, mzComDataStreamC &stream)
{
    mzComValueMarshalS const *record = valueTypeRegistry::findRecord(id);
    if (record == nullptr) {
        return false;
    }
    std::unique_ptr<void, void (*)(void *)> const value(record->create(nullptr), record->destroy);
    if (!record->read(value.get(), stream)) {
        return false;
    }
    *this = fromUserData(id, value.get());
    return true;
}

void mzComVariantC::registerValueType(mzComValueMarshalS *record)
{
    valueTypeRegistry::add(record);
}

void mzComVariantC::registerUserTypeProxy(int id, mzIIDS const &classIdentifier)
{
    valueTypeRegistry::setProxyClass(id, classIdentifier, serverEvents::notified());
}

int mzComVariantC::registeredValueTypeCount()
{
    return valueTypeRegistry::count();
}
