#pragma once

/// @file
/// Rows of member tables, made from the member functions themselves: the handler that takes the
/// parameters apart and the signature follow from the type of the member.

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxyValueType.h>

#include <tuple>
#include <type_traits>
#include <utility>

namespace proxyMember {

/// The parameter as a `T`; throws the type-cast exception if it is none.
template <typename T>
T parameter(proxyAutoTypeCastC const &cast, bool lenient)
{
    if constexpr (std::is_same_v<T, double> || std::is_same_v<T, mzComStringC>) {
        return cast.get<T>(lenient);
    } else {
        T value{};
        mzComVariantC const variant = cast.getVariant().toSkalarValue();
        if (variant.getUserData(proxyValueTypeId<T>(), &value) != mzUserDataOk) {
            proxyObjectC::throwAutoTypeCastException();
        }
        return value;
    }
}

inline void setResult(proxyAutoTypeCastC &result, double value)
{
    result.set<double>(value);
}

/// The script layer owns the object through the reference that it gets here.
inline void setResult(proxyAutoTypeCastC &result, proxyObjectC *object)
{
    mzComPtrT<mzIUnknown> pointer;
    if (object != nullptr) {
        object->queryInterface(mzIUnknown::IID(), pointer);
    }
    result.set<mzComPtrT<mzIUnknown>>(pointer);
}

/// Handler and signature of a function `Member` of class `C` with parameters `A`.
template <auto Member, typename C, typename... A>
struct Call
{
    static constexpr int parameterCount = int(sizeof...(A));

    static void handler(proxyObjectC *object, proxyAutoParaListC &parameters,
                        proxyAutoTypeCastC &result, bool lenient)
    {
        invoke(static_cast<C *>(object), parameters, result, lenient,
               std::index_sequence_for<A...>());
    }

    static proxySignatureTypeS const *signature()
    {
        static proxySignatureTypeS const types[] = {
            {&typeid(decltype(Member)), &typeid(decltype(Member)), nullptr},
            {&typeid(A), &typeid(A), nullptr}...};
        return types;
    }

private:
    template <std::size_t... Index>
    static void invoke(C *object, [[maybe_unused]] proxyAutoParaListC &parameters,
                       proxyAutoTypeCastC &result, [[maybe_unused]] bool lenient,
                       std::index_sequence<Index...>)
    {
        // Braces: the parameters are read from the first to the last.
        std::tuple<A...> const values{parameter<A>(parameters[int(Index)], lenient)...};
        setResult(result, (object->*Member)(std::get<Index>(values)...));
    }
};

template <auto Member>
struct CallOf;

template <typename C, typename R, typename... A, R (C::*Member)(A...)>
struct CallOf<Member> : Call<Member, C, std::decay_t<A>...>
{
};

template <typename C, typename R, typename... A, R (C::*Member)(A...) const>
struct CallOf<Member> : Call<Member, C, std::decay_t<A>...>
{
};

/// The source that the entries name.
inline constexpr char sourceName[] = "proxymath";

template <auto Member>
constexpr proxyMemberDescS method(char const *name, int line)
{
    using Called = CallOf<Member>;
    return {name,       proxyMethod, Called::parameterCount, Called::handler, Called::signature,
            sourceName, line};
}

template <auto Getter>
constexpr proxyMemberDescS read(char const *name, int line)
{
    using Called = CallOf<Getter>;
    static_assert(Called::parameterCount == 0);
    return {name, proxyPropertyRead, 0, Called::handler, Called::signature, sourceName, line};
}

template <auto Setter>
constexpr proxyMemberDescS write(char const *name, int line)
{
    using Called = CallOf<Setter>;
    static_assert(Called::parameterCount == 1);
    return {name, proxyPropertyWrite, 1, Called::handler, Called::signature, sourceName, line};
}

inline constexpr proxyMemberDescS end = {nullptr, 0, 0, nullptr, nullptr, nullptr, 0};

} // namespace proxyMember
