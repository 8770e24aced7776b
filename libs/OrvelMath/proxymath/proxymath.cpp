#include <OrvelMath/proxymath/proxymath.h>

#include <OrvelMath/proxymath/proxyMember_p.h>

// The member tables of the script classes and what goes with them. The order of the entries decides
// which of several members with one name serves a call.

using proxyMember::end;
using proxyMember::method;
using proxyMember::read;
using proxyMember::write;

namespace {

template <typename X>
proxyObjectC *makeDefault()
{
    return new X;
}

mzIIDS identifierOf(proxyMemberDescListS const &list)
{
    return mzIIDS(list.objectIdentifier != nullptr ? list.objectIdentifier : list.name);
}

/// The dot product, which is no member function of the proxies.
template <typename P>
void skalarHandler(proxyObjectC *object, proxyAutoParaListC &parameters, proxyAutoTypeCastC &result,
                   bool lenient)
{
    using V = typename P::ValueType;
    const V other = proxyMember::parameter<V>(parameters[0], lenient);
    result.set<double>(static_cast<P *>(object)->getValue().dot(other));
}

template <typename P>
proxySignatureTypeS const *skalarSignature()
{
    using V = typename P::ValueType;
    using Function = double (P::*)(const V &) const;
    static const proxySignatureTypeS types[] = {{&typeid(Function), &typeid(Function), nullptr},
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

proxyMemberDescS *prxVector3dC::getStaticMemberDescription()
{
    static proxyMemberDescS table[] = {
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

proxyMemberDescListS *prxVector3dC::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS list = {"prxVector3dC",
                                        _castTo,
                                        getStaticBaseClasses(),
                                        getStaticMemberDescription(),
                                        "linquet.vector3d",
                                        0,
                                        makeDefault<prxVector3dC>,
                                        proxyMember::sourceName,
                                        __LINE__};
    return &list;
}

proxyMemberDescListS const *prxVector3dC::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS **prxVector3dC::getStaticBaseClasses()
{
    static proxyMemberDescListS *bases[] = {prxQVariantBaseC::getStaticProxyTypeInfo(), nullptr};
    return bases;
}

mzIIDS const &prxVector3dC::OID()
{
    static const mzIIDS identifier = identifierOf(*getStaticProxyTypeInfo());
    return identifier;
}

mzComStringC prxVector3dC::getObjectName()
{
    return getStaticProxyTypeInfo()->name;
}

void *prxVector3dC::_castTo(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

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

proxyMemberDescListS *prxVector2dC::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS list = {"prxVector2dC",
                                        _castTo,
                                        getStaticBaseClasses(),
                                        getStaticMemberDescription(),
                                        "linquet.vector2d",
                                        0,
                                        makeDefault<prxVector2dC>,
                                        proxyMember::sourceName,
                                        __LINE__};
    return &list;
}

proxyMemberDescListS const *prxVector2dC::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS **prxVector2dC::getStaticBaseClasses()
{
    static proxyMemberDescListS *bases[] = {prxQVariantBaseC::getStaticProxyTypeInfo(), nullptr};
    return bases;
}

mzIIDS const &prxVector2dC::OID()
{
    static const mzIIDS identifier = identifierOf(*getStaticProxyTypeInfo());
    return identifier;
}

mzComStringC prxVector2dC::getObjectName()
{
    return getStaticProxyTypeInfo()->name;
}

void *prxVector2dC::_castTo(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

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

proxyMemberDescListS *prxMatrix3x3C::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS list = {"prxMatrix3x3C",
                                        _castTo,
                                        getStaticBaseClasses(),
                                        getStaticMemberDescription(),
                                        "linquet.matrix3x3",
                                        0,
                                        makeDefault<prxMatrix3x3C>,
                                        proxyMember::sourceName,
                                        __LINE__};
    return &list;
}

proxyMemberDescListS const *prxMatrix3x3C::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS **prxMatrix3x3C::getStaticBaseClasses()
{
    static proxyMemberDescListS *bases[] = {prxQVariantBaseC::getStaticProxyTypeInfo(), nullptr};
    return bases;
}

mzIIDS const &prxMatrix3x3C::OID()
{
    static const mzIIDS identifier = identifierOf(*getStaticProxyTypeInfo());
    return identifier;
}

mzComStringC prxMatrix3x3C::getObjectName()
{
    return getStaticProxyTypeInfo()->name;
}

void *prxMatrix3x3C::_castTo(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

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

proxyMemberDescListS *prxMatrix4x4C::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS list = {"prxMatrix4x4C",
                                        _castTo,
                                        getStaticBaseClasses(),
                                        getStaticMemberDescription(),
                                        "linquet.matrix4x4",
                                        0,
                                        makeDefault<prxMatrix4x4C>,
                                        proxyMember::sourceName,
                                        __LINE__};
    return &list;
}

proxyMemberDescListS const *prxMatrix4x4C::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS **prxMatrix4x4C::getStaticBaseClasses()
{
    static proxyMemberDescListS *bases[] = {prxQVariantBaseC::getStaticProxyTypeInfo(), nullptr};
    return bases;
}

mzIIDS const &prxMatrix4x4C::OID()
{
    static const mzIIDS identifier = identifierOf(*getStaticProxyTypeInfo());
    return identifier;
}

mzComStringC prxMatrix4x4C::getObjectName()
{
    return getStaticProxyTypeInfo()->name;
}

void *prxMatrix4x4C::_castTo(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

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

proxyMemberDescListS *prxMathFactoryC::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS list = {"prxMathFactoryC",
                                        _castTo,
                                        getStaticBaseClasses(),
                                        getStaticMemberDescription(),
                                        "linquet.mathfactory",
                                        0,
                                        makeDefault<prxMathFactoryC>,
                                        proxyMember::sourceName,
                                        __LINE__};
    return &list;
}

proxyMemberDescListS const *prxMathFactoryC::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS **prxMathFactoryC::getStaticBaseClasses()
{
    static proxyMemberDescListS *bases[] = {proxyObjectC::getStaticProxyTypeInfo(), nullptr};
    return bases;
}

mzIIDS const &prxMathFactoryC::OID()
{
    static const mzIIDS identifier = identifierOf(*getStaticProxyTypeInfo());
    return identifier;
}

mzComStringC prxMathFactoryC::getObjectName()
{
    return getStaticProxyTypeInfo()->name;
}

void *prxMathFactoryC::_castTo(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}
