#include "TestProxies.h"

namespace {

void *castTo(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

mzComStringC pairName()
{
    return mzComTypeInfoToName(typeid(Pair));
}

void *createPair(void const *from)
{
    return from != nullptr ? new Pair(*static_cast<Pair const *>(from)) : new Pair();
}

void copyPair(void const *from, void *to)
{
    *static_cast<Pair *>(to) = *static_cast<Pair const *>(from);
}

void destroyPair(void *value)
{
    delete static_cast<Pair *>(value);
}

bool readPair(void *value, mzComDataStreamC &stream)
{
    Pair &pair = *static_cast<Pair *>(value);
    stream >> pair.first >> pair.second;
    return stream.isOk();
}

bool writePair(void const *value, mzComDataStreamC &stream)
{
    Pair const &pair = *static_cast<Pair const *>(value);
    stream << pair.first << pair.second;
    return true;
}

template <typename... A>
proxySignatureTypeS const *signature()
{
    static proxySignatureTypeS const types[] = {{&typeid(void), &typeid(void), nullptr},
                                                {&typeid(A), &typeid(A), nullptr}...};
    return types;
}

/// Answers with a text.
template <char const *Text>
void answer(proxyObjectC *, proxyAutoParaListC &, proxyAutoTypeCastC &result, bool)
{
    result.set<mzComStringC>(Text);
}

constexpr char inBase[] = "base";
constexpr char inProbe[] = "probe";
constexpr char onNumber[] = "number";
constexpr char onText[] = "text";
constexpr char onPair[] = "pair";
constexpr char onObject[] = "object";
constexpr char onAnything[] = "anything";
constexpr char onDefault[] = "default";
constexpr char onMethod[] = "method";
constexpr char onRead[] = "read";

void readStored(proxyObjectC *object, proxyAutoParaListC &, proxyAutoTypeCastC &result, bool)
{
    result.set<double>(static_cast<Probe *>(object)->stored);
}

void writeStored(proxyObjectC *object, proxyAutoParaListC &parameters, proxyAutoTypeCastC &result,
                 bool lenient)
{
    static_cast<Probe *>(object)->stored = parameters[0].get<double>(lenient);
    result.set<mzComPtrT<mzIUnknown>>(mzComPtrT<mzIUnknown>(object));
}

void makePair(proxyObjectC *, proxyAutoParaListC &, proxyAutoTypeCastC &result, bool)
{
    Pair const pair = {1.0, 2.0};
    result.set<mzComVariantC>(mzComVariantC::fromUserData(pairTypeId(), &pair));
}

/// Says in its signature that it takes anything, and then does not.
void refuses(proxyObjectC *, proxyAutoParaListC &parameters, proxyAutoTypeCastC &, bool lenient)
{
    parameters[0].get<double>(lenient);
}

void throwsOther(proxyObjectC *, proxyAutoParaListC &, proxyAutoTypeCastC &, bool)
{
    throw std::bad_alloc();
}

} // namespace

mzComValueMarshalS *pairRecord()
{
    static mzComValueMarshalS record = {0,        int(sizeof(Pair)), pairName, createPair,
                                        copyPair, destroyPair,       readPair, writePair};
    return &record;
}

int pairTypeId()
{
    mzComVariantC::registerValueType(pairRecord());
    return pairRecord()->id;
}

proxyMemberDescListS *BaseProbe::getStaticProxyTypeInfo()
{
    static proxyMemberDescS members[] = {
        {"onlyInBase", 1, 0, answer<inBase>, signature<>, "test", 1},
        {"inBoth", 1, 0, answer<inBase>, signature<>, "test", 2},
        {"overloaded", 1, 1, answer<onObject>, signature<mzComPtrT<mzIUnknown>>, "test", 3},
        {nullptr, 0, 0, nullptr, nullptr, nullptr, 0},
    };
    static proxyMemberDescListS *bases[] = {proxyObjectC::getStaticProxyTypeInfo(), nullptr};
    static proxyMemberDescListS list = {"BaseProbe", castTo,  bases,  members, nullptr,
                                        0,           nullptr, "test", 1};
    return &list;
}

proxyMemberDescListS const *BaseProbe::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS *Probe::getStaticProxyTypeInfo()
{
    static proxyMemberDescS members[] = {
        {"inBoth", 1, 0, answer<inProbe>, signature<>, "test", 1},
        {"overloaded", 1, 1, answer<onNumber>, signature<double>, "test", 2},
        {"overloaded", 1, 1, answer<onText>, signature<mzComStringC>, "test", 3},
        {"overloaded", 1, 1, answer<onPair>, signature<Pair>, "test", 4},
        {"overloaded", 1, 2, answer<onNumber>, signature<double, double>, "test", 5},
        {"tie", 1, 1, answer<onAnything>, signature<mzComVariantC>, "test", 6},
        {"tie", 1, 1, answer<onNumber>, signature<double>, "test", 7},
        {"", 1, 1, answer<onDefault>, signature<double>, "test", 8},
        {"both", 1, 0, answer<onMethod>, signature<>, "test", 9},
        {"both", 2, 0, answer<onRead>, signature<>, "test", 10},
        {"stored", 2, 0, readStored, signature<>, "test", 11},
        {"stored", 4, 1, writeStored, signature<double>, "test", 12},
        {"stored", 1, 1, writeStored, signature<double>, "test", 12},
        {"makePair", 1, 0, makePair, signature<>, "test", 13},
        {"refuses", 1, 1, refuses, signature<mzComVariantC>, "test", 14},
        {"throwsOther", 1, 0, throwsOther, signature<>, "test", 15},
        {nullptr, 0, 0, nullptr, nullptr, nullptr, 0},
        {"behindTheEnd", 1, 0, answer<inProbe>, signature<>, "test", 16},
    };
    static proxyMemberDescListS *bases[] = {BaseProbe::getStaticProxyTypeInfo(), nullptr};
    static proxyMemberDescListS list = {"Probe",
                                        castTo,
                                        bases,
                                        members,
                                        "test.probe",
                                        0,
                                        []() -> proxyObjectC * { return new Probe; },
                                        "test",
                                        1};
    return &list;
}

proxyMemberDescListS const *Probe::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

proxyMemberDescListS *PairProxy::getStaticProxyTypeInfo()
{
    static proxyMemberDescS members[] = {{nullptr, 0, 0, nullptr, nullptr, nullptr, 0}};
    static proxyMemberDescListS *bases[] = {prxQVariantBaseC::getStaticProxyTypeInfo(), nullptr};
    static proxyMemberDescListS list = {"PairProxy",
                                        castTo,
                                        bases,
                                        members,
                                        "test.pair",
                                        0,
                                        []() -> proxyObjectC * { return new PairProxy; },
                                        "test",
                                        1};
    return &list;
}

proxyMemberDescListS const *PairProxy::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}
