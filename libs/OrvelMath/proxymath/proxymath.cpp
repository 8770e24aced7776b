#include <OrvelMath/proxymath/proxymath.h>

#include <OrvelCore/runtime/ProcessServices.h>
#include <OrvelMath/proxymath/proxyAutoRegisterT_p.h>
#include <OrvelMath/proxymath/proxyMember_p.h>

#include <cstdlib>

// What the script classes say of themselves: the table of the members, the name and the base of
// each. The order of the rows decides which of several members with one name serves a call.

using proxyMember::end;
using proxyMember::method;
using proxyMember::read;
using proxyMember::write;

namespace {

/// The description of the script class `X` with the base `Base`. Each part is built at the first
/// question, from any thread, and stays until the library goes.
template <typename X, typename Base>
class Description
{
public:
    static proxyMemberDescListS *list(char const *name, char const *objectIdentifier, int line)
    {
        static proxyMemberDescListS list = {name,
                                            X::_castTo,
                                            X::getStaticBaseClasses(),
                                            X::getStaticMemberDescription(),
                                            objectIdentifier,
                                            0,
                                            makeDefault,
                                            proxyMember::sourceName,
                                            line};
        return &list;
    }

    static proxyMemberDescListS **bases()
    {
        static proxyMemberDescListS *bases[] = {Base::getStaticProxyTypeInfo(), nullptr};
        return bases;
    }

    static mzIIDS const &identifier()
    {
        static mzIIDS const identifier = identifierOf(*X::getStaticProxyTypeInfo());
        return identifier;
    }

private:
    static proxyObjectC *makeDefault() { return new X; }

    static mzIIDS identifierOf(proxyMemberDescListS const &list)
    {
        return mzIIDS(list.objectIdentifier != nullptr ? list.objectIdentifier : list.name);
    }
};

// The members of `X` that hand out its description; the line of use is the line of the class.
#define ORVEL_DESCRIBE(X, Base, objectIdentifier)                                                  \
    proxyMemberDescListS *X::getStaticProxyTypeInfo()                                              \
    {                                                                                              \
        return Description<X, Base>::list(#X, objectIdentifier, __LINE__);                         \
    }                                                                                              \
    proxyMemberDescListS const *X::getProxyTypeInfo() const                                        \
    {                                                                                              \
        return getStaticProxyTypeInfo();                                                           \
    }                                                                                              \
    proxyMemberDescListS **X::getStaticBaseClasses()                                               \
    {                                                                                              \
        return Description<X, Base>::bases();                                                      \
    }                                                                                              \
    mzIIDS const &X::OID()                                                                         \
    {                                                                                              \
        return Description<X, Base>::identifier();                                                 \
    }                                                                                              \
    mzComStringC X::getObjectName()                                                                \
    {                                                                                              \
        return getStaticProxyTypeInfo()->name;                                                     \
    }                                                                                              \
    void *X::_castTo(proxyObjectC const *object)                                                   \
    {                                                                                              \
        return const_cast<proxyObjectC *>(object);                                                 \
    }

/// The dot product, which is no member function of the proxies.
template <typename P>
void skalarHandler(proxyObjectC *object, proxyAutoParaListC &parameters, proxyAutoTypeCastC &result,
                   bool lenient)
{
    using V = typename P::ValueType;
    V const other = proxyMember::parameter<V>(parameters[0], lenient);
    result.set<double>(static_cast<P *>(object)->getValue().dot(other));
}

template <typename P>
proxySignatureTypeS const *skalarSignature()
{
    using V = typename P::ValueType;
    using Function = double (P::*)(V const &) const;
    static proxySignatureTypeS const types[] = {{&typeid(Function), &typeid(Function), nullptr},
                                                {&typeid(V), &typeid(V), nullptr}};
    return types;
}

template <typename P>
constexpr proxyMemberDescS skalar(int line)
{
    return {"skalar", proxyMethod, 1, skalarHandler<P>, skalarSignature<P>, proxyMember::sourceName,
            line};
}

} // namespace

ORVEL_DESCRIBE(prxVector3dC, prxQVariantBaseC, "linquet.vector3d")

proxyMemberDescS *prxVector3dC::getStaticMemberDescription()
{
    static proxyMemberDescS table[] = {
        // "Factory" is here twice: this row serves the calls, the last one is where the other
        // classes have theirs. Hosts list the rows and note them by their place, so both stay.
        read<&prxVector3dC::getFactory>("Factory", __LINE__),
        skalar<prxVector3dC>(__LINE__),
        method<&prxVector3dC::add>("add", __LINE__),
        method<&prxVector3dC::sub>("sub", __LINE__),
        method<&prxVector3dC::len>("len", __LINE__),
        method<&prxVector3dC::mulReal>("mul", __LINE__),
        method<&prxVector3dC::divReal>("div", __LINE__),
        method<&prxVector3dC::norm>("norm", __LINE__),
        method<&prxVector3dC::cross>("cross", __LINE__),
        read<&prxVector3dC::getx>("x", __LINE__),
        write<&prxVector3dC::setx>("x", __LINE__),
        method<&prxVector3dC::setx>("x", __LINE__),
        read<&prxVector3dC::gety>("y", __LINE__),
        write<&prxVector3dC::sety>("y", __LINE__),
        method<&prxVector3dC::sety>("y", __LINE__),
        read<&prxVector3dC::getz>("z", __LINE__),
        write<&prxVector3dC::setz>("z", __LINE__),
        method<&prxVector3dC::setz>("z", __LINE__),
        method<&prxVector3dC::setXYZ>("", __LINE__),
        read<&prxVector3dC::getFactory>("Factory", __LINE__),
        end,
    };
    return table;
}

ORVEL_DESCRIBE(prxVector2dC, prxQVariantBaseC, "linquet.vector2d")

proxyMemberDescS *prxVector2dC::getStaticMemberDescription()
{
    static proxyMemberDescS table[] = {
        skalar<prxVector2dC>(__LINE__),
        method<&prxVector2dC::add>("add", __LINE__),
        method<&prxVector2dC::sub>("sub", __LINE__),
        method<&prxVector2dC::len>("len", __LINE__),
        method<&prxVector2dC::mulReal>("mul", __LINE__),
        method<&prxVector2dC::divReal>("div", __LINE__),
        method<&prxVector2dC::norm>("norm", __LINE__),
        read<&prxVector2dC::getx>("x", __LINE__),
        write<&prxVector2dC::setx>("x", __LINE__),
        method<&prxVector2dC::setx>("x", __LINE__),
        read<&prxVector2dC::gety>("y", __LINE__),
        write<&prxVector2dC::sety>("y", __LINE__),
        method<&prxVector2dC::sety>("y", __LINE__),
        method<&prxVector2dC::perpendicular>("perpendicular", __LINE__),
        method<&prxVector2dC::setXY>("", __LINE__),
        read<&prxVector2dC::getFactory>("Factory", __LINE__),
        end,
    };
    return table;
}

ORVEL_DESCRIBE(prxMatrix3x3C, prxQVariantBaseC, "linquet.matrix3x3")

proxyMemberDescS *prxMatrix3x3C::getStaticMemberDescription()
{
    static proxyMemberDescS table[] = {
        method<&prxMatrix3x3C::mulMat3x3>("mul", __LINE__),
        method<&prxMatrix3x3C::mulVec3x3>("mul", __LINE__),
        method<&prxMatrix3x3C::mulVec2x3>("mul", __LINE__),
        method<&prxMatrix3x3C::inv3x3>("inv", __LINE__),
        method<&prxMatrix3x3C::ident>("ident", __LINE__),
        read<&prxMatrix3x3C::getXVec>("X", __LINE__),
        read<&prxMatrix3x3C::getYVec>("Y", __LINE__),
        read<&prxMatrix3x3C::getZVec>("Z", __LINE__),
        write<&prxMatrix3x3C::setXVec>("X", __LINE__),
        write<&prxMatrix3x3C::setYVec>("Y", __LINE__),
        write<&prxMatrix3x3C::setZVec>("Z", __LINE__),
        method<&prxMatrix3x3C::rotAngle>("rotAngle", __LINE__),
        read<&prxMatrix3x3C::getFactory>("Factory", __LINE__),
        end,
    };
    return table;
}

ORVEL_DESCRIBE(prxMatrix4x4C, prxQVariantBaseC, "linquet.matrix4x4")

proxyMemberDescS *prxMatrix4x4C::getStaticMemberDescription()
{
    static proxyMemberDescS table[] = {
        method<&prxMatrix4x4C::mulMat4x4>("mul", __LINE__),
        method<&prxMatrix4x4C::mulVec3dMat4x4>("mul", __LINE__),
        method<&prxMatrix4x4C::mulVec2dMat4x4>("mul", __LINE__),
        method<&prxMatrix4x4C::inv4x4>("inv", __LINE__),
        method<&prxMatrix4x4C::rotAngle>("rotAngle", __LINE__),
        method<&prxMatrix4x4C::rotVector>("rotVector", __LINE__),
        method<&prxMatrix4x4C::conv3x3>("conv3x3", __LINE__),
        method<&prxMatrix4x4C::ident>("ident", __LINE__),
        read<&prxMatrix4x4C::getXVec>("X", __LINE__),
        read<&prxMatrix4x4C::getYVec>("Y", __LINE__),
        read<&prxMatrix4x4C::getZVec>("Z", __LINE__),
        read<&prxMatrix4x4C::getTVec>("T", __LINE__),
        write<&prxMatrix4x4C::setXVec>("X", __LINE__),
        write<&prxMatrix4x4C::setYVec>("Y", __LINE__),
        write<&prxMatrix4x4C::setZVec>("Z", __LINE__),
        write<&prxMatrix4x4C::setTVec>("T", __LINE__),
        read<&prxMatrix4x4C::getRoll>("Roll", __LINE__),
        read<&prxMatrix4x4C::getPitch>("Pitch", __LINE__),
        read<&prxMatrix4x4C::getYaw>("Yaw", __LINE__),
        read<&prxMatrix4x4C::getFactory>("Factory", __LINE__),
        end,
    };
    return table;
}

ORVEL_DESCRIBE(prxMathFactoryC, proxyObjectC, "linquet.mathfactory")

proxyMemberDescS *prxMathFactoryC::getStaticMemberDescription()
{
    static proxyMemberDescS table[] = {
        method<&prxMathFactoryC::createMat4x4>("createmat4x4", __LINE__),
        method<&prxMathFactoryC::createMat3x3>("createmat3x3", __LINE__),
        method<&prxMathFactoryC::createVec3d>("createvec3d", __LINE__),
        method<&prxMathFactoryC::createVec2d>("createvec2d", __LINE__),
        method<&prxMathFactoryC::create>("Create", __LINE__),
        end,
    };
    return table;
}

// All that the library does when it is loaded, in this order. When it is unloaded the clean-ups run
// first, and then the registration objects go, the last one first. It lies in one file with the
// descriptions, so that a program that is linked statically has it as soon as it names a class.
namespace {

proxyAutoRegisterT<prxVector3dC> registerVector3d;
proxyAutoRegisterT<prxVector2dC> registerVector2d;
proxyAutoRegisterT<prxMatrix3x3C> registerMatrix3x3;
proxyAutoRegisterT<prxMatrix4x4C> registerMatrix4x4;
proxyAutoRegisterT<prxMathFactoryC> registerMathFactory;

void runCleanups()
{
    mzRunGlobalCleanupFor(reinterpret_cast<void *>(&runCleanups));
}

[[maybe_unused]] int const cleanupsAreRegistered = std::atexit(runCleanups);

} // namespace
