#pragma once

#include "fingerprint/Stream.h"

#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace fingerprint {

/// Whose arithmetic a function's result depends on.
enum class Arithmetic {
    Own,      ///< ours and the processor's alone: the same bits everywhere
    CLibrary, ///< sines, logarithms and their kin of the C library as well
};

/// One exported function: its name and what its results over the stream come to.
struct Row
{
    std::string name;
    Arithmetic arithmetic;
    std::function<std::uint64_t()> fingerprint;
};

namespace detail {

template <typename T>
struct SignatureOf : SignatureOf<decltype(&T::operator())>
{
};
template <typename R, typename... Args>
struct SignatureOf<R (*)(Args...)>
{
    using Result = R;
    using Arguments = std::tuple<Args...>;
};
template <typename C, typename R, typename... Args>
struct SignatureOf<R (C::*)(Args...) const> : SignatureOf<R (*)(Args...)>
{
};

template <typename T>
constexpr bool isOutput =
    std::is_lvalue_reference_v<T> && !std::is_const_v<std::remove_reference_t<T>>;

/// Arguments that are drawn from the stream; a `Stream &` or `Hash &` is passed on itself.
template <typename T>
struct Argument
{
    std::decay_t<T> value{};
    Argument(Stream &stream, Hash &) { stream.draw(value); }
    T get() { return static_cast<T>(value); }
    void addTo(Hash &hash)
    {
        if constexpr (isOutput<T>) {
            hash.add(value);
        }
    }
};
template <>
struct Argument<Stream &>
{
    Stream &stream;
    Argument(Stream &s, Hash &)
        : stream(s)
    {
    }
    Stream &get() { return stream; }
    void addTo(Hash &) {}
};
template <>
struct Argument<Hash &>
{
    Hash &hash;
    Argument(Stream &, Hash &h)
        : hash(h)
    {
    }
    Hash &get() { return hash; }
    void addTo(Hash &) {}
};

template <typename R, typename F, typename... Args>
void callOnce(F const &function, Stream &stream, Hash &hash, bool toleranceLast,
              std::tuple<Args...> *)
{
    std::tuple<Argument<Args>...> arguments{Argument<Args>(stream, hash)...};
    using Last = std::tuple_element_t<sizeof...(Args) - 1, std::tuple<Args...>>;
    if constexpr (std::is_same_v<std::decay_t<Last>, double>) {
        if (toleranceLast && stream.below(8) != 0) {
            std::get<sizeof...(Args) - 1>(arguments).value = stream.tolerance();
        }
    }
    std::apply(
        [&](auto &...argument) {
            if constexpr (std::is_void_v<R>) {
                function(argument.get()...);
            } else if constexpr (std::is_enum_v<R>) {
                hash.add(int(function(argument.get()...)));
            } else {
                hash.add(function(argument.get()...));
            }
            (argument.addTo(hash), ...);
        },
        arguments);
}

} // namespace detail

/// How the arguments of a function are drawn.
struct Drawing
{
    int calls = 100000;
    bool special = true; ///< NaN, infinities and the ends of the range among the numbers
    bool toleranceLast =
        true; ///< a last argument of type double is a tolerance, seven times of eight
};

/// Calls `function` with drawn arguments and hashes its results and all that it may write.
template <typename F>
Row row(std::string name, Arithmetic arithmetic, F function, Drawing drawing)
{
    auto run = [=] {
        using Signature = detail::SignatureOf<F>;
        Stream stream(20261122, drawing.special);
        Hash hash;
        for (int i = 0; i < drawing.calls; ++i) {
            stream.beginCall();
            detail::callOnce<typename Signature::Result>(
                function, stream, hash, drawing.toleranceLast,
                static_cast<typename Signature::Arguments *>(nullptr));
        }
        return hash.value();
    };
    return {std::move(name), arithmetic, run};
}

/// A function whose arithmetic is ours alone.
template <typename F>
Row own(std::string name, F function, Drawing drawing = {})
{
    return row(std::move(name), Arithmetic::Own, function, drawing);
}

/// A function that calls the C library's sines and their kin.
template <typename F>
Row withLibrary(std::string name, F function, Drawing drawing = {})
{
    return row(std::move(name), Arithmetic::CLibrary, function, drawing);
}

/// The rows of one subsystem each.
std::vector<Row> baseRows();
std::vector<Row> planeRows();
std::vector<Row> constructionRows();
std::vector<Row> conicRows();
std::vector<Row> spaceRows();
std::vector<Row> numericsRows();
std::vector<Row> structureRows();
std::vector<Row> scriptRows();

} // namespace fingerprint
