#include <OrvelCore/script/proxyDispatch_p.h>

#include <QtCore/QThread>

#include <cstring>

namespace proxyDispatch {
namespace {

/// A failed call, as an object of its own.
class ExceptionC final : public mzIException
{
public:
    ExceptionC(mzExceptionCodeE code, mzComStringC const &message)
        : m_code(code)
        , m_message(message)
    {
    }

    bool queryInterface(mzIIDS const &identifier, mzComPtrC &target) override
    {
        bool const known = identifier == mzIUnknown::IID() || identifier == mzIException::IID();
        target = known ? mzComPtrC(this) : mzComPtrC();
        return known;
    }
    int addRef() override { return ++m_references; }
    int release() override
    {
        int const left = --m_references;
        if (left == 0) {
            delete this;
        }
        return left;
    }
    mzExceptionCodeE code() const override { return m_code; }
    mzComStringC message() const override { return m_message; }

private:
    ~ExceptionC() = default;

    std::atomic<int> m_references{0};
    mzExceptionCodeE m_code;
    mzComStringC m_message;
};

/// The call as a reader would write it: "prxVector3dC.add(string)".
mzComStringC describe(proxyObjectC const &object, Call const &call)
{
    mzComStringC text = object.getProxyTypeInfo()->name;
    if (!call.name.isEmpty()) {
        text += "." + call.name;
    }
    text += "(";
    for (int i = 0; i < call.arguments.size(); ++i) {
        if (i > 0) {
            text += ", ";
        }
        text += call.arguments[i].typeName();
    }
    return text + ")";
}

char const *explain(mzExceptionCodeE code)
{
    switch (code) {
    case mzExceptionTypeCast:
        return ": the arguments cannot be converted to the member's parameters";
    case mzExceptionWrongThread:
        return ": the object belongs to another thread";
    case mzExceptionNoMember:
        break;
    }
    return ": there is no such member";
}

bool refuse(mzExceptionCodeE code, proxyObjectC const &object, Call const &call,
            mzComPtrT<mzIException> &exception)
{
    exception =
        mzComPtrT<mzIException>(new ExceptionC(code, describe(object, call) + explain(code)));
    return false;
}

bool fits(proxyMemberDescS const &member, Call const &call)
{
    return (unsigned(member.kind) & call.flags) != 0 &&
           member.parameterCount == call.arguments.size() &&
           member.name[0] == call.name.utf8()[0] // most entries differ here
           && std::strcmp(member.name, call.name.utf8()) == 0;
}

bool takesArguments(proxyMemberDescS const &member, Call const &call)
{
    if (call.arguments.isEmpty()) {
        return true;
    }
    bool const lenient = (call.flags & proxyInvokeLenient) != 0;
    proxySignatureTypeS const *parameterTypes = member.signature() + 1;
    for (int i = 0; i < call.arguments.size(); ++i) {
        proxyAutoTypeCastC const argument(call.arguments.at(i));
        if (!argument.isConvertibleTo(*parameterTypes[i].type, lenient)) {
            return false;
        }
    }
    return true;
}

/// The first member that can serve the call. `isKnown` becomes true if one has at least the name,
/// the kind and the parameter count.
proxyMemberDescS const *findMember(proxyMemberDescListS const &list, Call const &call,
                                   bool &isKnown)
{
    for (proxyMemberDescS const *member = list.members; member->name != nullptr; ++member) {
        if (fits(*member, call)) {
            isKnown = true;
            if (takesArguments(*member, call)) {
                return member;
            }
        }
    }
    for (proxyMemberDescListS **base = list.baseClasses; *base != nullptr; ++base) {
        if (proxyMemberDescS const *member = findMember(**base, call, isKnown)) {
            return member;
        }
    }
    return nullptr;
}

/// Whether the calling thread may use the object, which becomes its own if it was free.
bool mayCall(proxyObjectC &object)
{
    quintptr const owner = object.getStickyThreadId(true);
    return owner == 0 || owner == reinterpret_cast<quintptr>(QThread::currentThreadId());
}

} // namespace

proxyMemberDescListS const *findClass(proxyMemberDescListS const &list, char const *name)
{
    bool const isThis =
        std::strcmp(list.name, name) == 0 ||
        (list.objectIdentifier != nullptr && std::strcmp(list.objectIdentifier, name) == 0);
    if (isThis) {
        return &list;
    }
    for (proxyMemberDescListS **base = list.baseClasses; *base != nullptr; ++base) {
        if (proxyMemberDescListS const *found = findClass(**base, name)) {
            return found;
        }
    }
    return nullptr;
}

bool invoke(proxyObjectC &object, Call const &call, mzComVariantC &result,
            mzComPtrT<mzIException> &exception)
{
    result = mzComVariantC();
    exception = mzComPtrT<mzIException>();
    if (!mayCall(object)) {
        return refuse(mzExceptionWrongThread, object, call, exception);
    }
    bool isKnown = false;
    proxyMemberDescS const *member = findMember(*object.getProxyTypeInfo(), call, isKnown);
    if (member == nullptr) {
        return refuse(isKnown ? mzExceptionTypeCast : mzExceptionNoMember, object, call, exception);
    }

    proxyAutoParaListC parameters(call.arguments);
    proxyAutoTypeCastC resultCast(&result);
    try {
        member->handler(&object, parameters, resultCast, (call.flags & proxyInvokeLenient) != 0);
    } catch (proxyAutoTypeCastExceptionC const &) {
        return refuse(mzExceptionTypeCast, object, call, exception);
    }
    if (result.isUserValue()) {
        result = result.toScriptObject();
    }
    return true;
}

} // namespace proxyDispatch
