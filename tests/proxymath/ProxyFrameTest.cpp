#include "ProxyValues.h"

#include <atomic>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <dlfcn.h>

using namespace proxyValues;

namespace {

std::atomic<int> registerCalls{0};

} // namespace

// The program's function comes before the companion's, also for calls from the library: it counts
// and hands over.
void mzComVariantC::registerValueType(mzComValueMarshalS *record)
{
    ++registerCalls;
    void *const next =
        dlsym(RTLD_NEXT, "_ZN13mzComVariantC17registerValueTypeEP18mzComValueMarshalS");
    reinterpret_cast<void (*)(mzComValueMarshalS *)>(next)(record);
}

namespace {

struct Row
{
    char const *name;
    int kind;
    int parameterCount;
};

/// The entries of a table as "name kind count".
std::vector<std::string> rowsOf(proxyMemberDescS const *members)
{
    std::vector<std::string> rows;
    for (; members->name != nullptr; ++members) {
        rows.push_back(std::string(members->name) + " " + std::to_string(members->kind) + " " +
                       std::to_string(members->parameterCount));
    }
    return rows;
}

proxyMemberDescS const &entry(proxyMemberDescListS const *list, int index)
{
    return list->members[index];
}

template <typename X>
void expectDescription(char const *name, char const *identifier, char const *base)
{
    proxyMemberDescListS const *list = X::getStaticProxyTypeInfo();
    EXPECT_STREQ(name, list->name);
    EXPECT_STREQ(identifier, list->objectIdentifier);
    EXPECT_EQ(0, list->flags);
    EXPECT_STREQ("proxymath", list->file);
    EXPECT_GT(list->line, 0);
    EXPECT_EQ(X::getStaticMemberDescription(), list->members);
    EXPECT_EQ(X::getStaticBaseClasses(), list->baseClasses);
    EXPECT_STREQ(base, list->baseClasses[0]->name);
    EXPECT_EQ(nullptr, list->baseClasses[1]);
    EXPECT_TRUE(X::OID() == mzIIDS(identifier));
    EXPECT_EQ(&X::OID(), &X::OID());
    EXPECT_TRUE(X::getObjectName() == name);

    mzComPtrT<proxyObjectC> const object(list->creator());
    ASSERT_TRUE(object);
    EXPECT_EQ(list, object->getProxyTypeInfo());
    EXPECT_EQ(object.get(), list->cast(object.get()));
    EXPECT_EQ(object.get(), X::_castTo(object.get()));
    EXPECT_EQ(object.get(), object->proxyCast(name));

    for (proxyMemberDescS const *member = list->members; member->name != nullptr; ++member) {
        EXPECT_STREQ("proxymath", member->file);
        EXPECT_GT(member->line, 0);
        for (int i = 0; i <= member->parameterCount; ++i) {
            proxySignatureTypeS const &type = member->signature()[i];
            EXPECT_EQ(type.type, type.sameType);
            EXPECT_EQ(nullptr, type.null);
        }
    }
}

template <typename T>
void expectRecord(int size)
{
    proxyValueTypeId<T>();
    mzComValueMarshalS const *record = proxyValueRecord<T>();
    EXPECT_EQ(size, record->size);
    EXPECT_TRUE(record->name() == mzComTypeInfoToName(typeid(T)));

    T source;
    for (int i = 0; i < size / 8; ++i) {
        source[i] = i + 0.5;
    }
    void *zero = record->create(nullptr);
    void *copy = record->create(&source);
    EXPECT_TRUE(*static_cast<T *>(zero) == T());
    EXPECT_TRUE(*static_cast<T *>(copy) == source);
    record->copy(copy, zero);
    EXPECT_TRUE(*static_cast<T *>(zero) == source);
    record->destroy(zero);

    mzComDataStreamC stream;
    EXPECT_TRUE(record->write(copy, stream));
    record->destroy(copy);
    EXPECT_EQ(size, stream.data().size());
    mzComDataStreamC asDoubles(stream.data());
    for (int i = 0; i < size / 8; ++i) {
        double value = 0.0;
        asDoubles >> value;
        EXPECT_EQ(i + 0.5, value);
    }
    T back;
    EXPECT_TRUE(record->read(&back, stream));
    EXPECT_TRUE(back == source);
    mzComDataStreamC shortByOne(stream.data().left(size - 8));
    EXPECT_FALSE(record->read(&back, shortByOne));
}

} // namespace

TEST(ProxyFrame, DescribesEachClass)
{
    expectDescription<prxVector2dC>("prxVector2dC", "linquet.vector2d", "prxQVariantBaseC");
    expectDescription<prxVector3dC>("prxVector3dC", "linquet.vector3d", "prxQVariantBaseC");
    expectDescription<prxMatrix3x3C>("prxMatrix3x3C", "linquet.matrix3x3", "prxQVariantBaseC");
    expectDescription<prxMatrix4x4C>("prxMatrix4x4C", "linquet.matrix4x4", "prxQVariantBaseC");
    expectDescription<prxMathFactoryC>("prxMathFactoryC", "linquet.mathfactory", "proxyObjectC");
}

TEST(ProxyFrame, TablesStandInTheirOrder)
{
    using Rows = std::vector<std::string>;
    EXPECT_EQ(
        (Rows{"Factory 2 0", "skalar 1 1", "add 1 1", "sub 1 1", "len 1 0", "mul 1 1",    "div 1 1",
              "norm 1 1",    "cross 1 1",  "x 2 0",   "x 4 1",   "x 1 1",   "y 2 0",      "y 4 1",
              "y 1 1",       "z 2 0",      "z 4 1",   "z 1 1",   " 1 3",    "Factory 2 0"}),
        rowsOf(prxVector3dC::getStaticMemberDescription()));
    EXPECT_EQ((Rows{"skalar 1 1", "add 1 1", "sub 1 1", "len 1 0", "mul 1 1", "div 1 1", "norm 1 1",
                    "x 2 0", "x 4 1", "x 1 1", "y 2 0", "y 4 1", "y 1 1", "perpendicular 1 0",
                    " 1 2", "Factory 2 0"}),
              rowsOf(prxVector2dC::getStaticMemberDescription()));
    EXPECT_EQ((Rows{"mul 1 1", "mul 1 1", "mul 1 1", "inv 1 0", "ident 1 0", "X 2 0", "Y 2 0",
                    "Z 2 0", "X 4 1", "Y 4 1", "Z 4 1", "rotAngle 1 3", "Factory 2 0"}),
              rowsOf(prxMatrix3x3C::getStaticMemberDescription()));
    EXPECT_EQ((Rows{"mul 1 1",       "mul 1 1",     "mul 1 1",   "inv 1 0", "rotAngle 1 3",
                    "rotVector 1 2", "conv3x3 1 0", "ident 1 0", "X 2 0",   "Y 2 0",
                    "Z 2 0",         "T 2 0",       "X 4 1",     "Y 4 1",   "Z 4 1",
                    "T 4 1",         "Roll 2 0",    "Pitch 2 0", "Yaw 2 0", "Factory 2 0"}),
              rowsOf(prxMatrix4x4C::getStaticMemberDescription()));
    EXPECT_EQ((Rows{"createmat4x4 1 0", "createmat3x3 1 0", "createvec3d 1 0", "createvec2d 1 0",
                    "Create 1 1"}),
              rowsOf(prxMathFactoryC::getStaticMemberDescription()));
}

TEST(ProxyFrame, APropertySetByACallHasTwoEntriesWithOneHandler)
{
    proxyMemberDescListS const *vector = prxVector3dC::getStaticProxyTypeInfo();
    for (int const write : {10, 13, 16}) {
        EXPECT_EQ(proxyPropertyWrite, entry(vector, write).kind);
        EXPECT_EQ(proxyMethod, entry(vector, write + 1).kind);
        EXPECT_EQ(entry(vector, write).handler, entry(vector, write + 1).handler);
    }
}

TEST(ProxyFrame, SignaturesNameTheMemberAndItsParameters)
{
    proxyMemberDescListS const *vector = prxVector3dC::getStaticProxyTypeInfo();
    proxySignatureTypeS const *cross = entry(vector, 8).signature();
    EXPECT_TRUE(*cross[0].type == typeid(&prxVector3dC::cross));
    EXPECT_TRUE(*cross[1].type == typeid(Vector3));
    proxySignatureTypeS const *setAll = entry(vector, 18).signature();
    EXPECT_TRUE(*setAll[0].type == typeid(&prxVector3dC::setXYZ));
    for (int i = 1; i <= 3; ++i) {
        EXPECT_TRUE(*setAll[i].type == typeid(double));
    }
    EXPECT_TRUE(*entry(vector, 1).signature()[1].type == typeid(Vector3));

    proxyMemberDescListS const *matrix = prxMatrix3x3C::getStaticProxyTypeInfo();
    EXPECT_TRUE(*entry(matrix, 0).signature()[1].type == typeid(Matrix3));
    EXPECT_TRUE(*entry(matrix, 1).signature()[1].type == typeid(Vector3));
    EXPECT_TRUE(*entry(matrix, 2).signature()[1].type == typeid(Vector2));
    proxySignatureTypeS const *create =
        entry(prxMathFactoryC::getStaticProxyTypeInfo(), 4).signature();
    EXPECT_TRUE(*create[1].type == typeid(mzComStringC));
}

TEST(ProxyFrame, ASignatureIsAnArrayOfTypeTypeNull)
{
    auto const *flat = reinterpret_cast<void const *const *>(
        entry(prxVector3dC::getStaticProxyTypeInfo(), 8).signature());
    EXPECT_EQ(3 * sizeof(void *), sizeof(proxySignatureTypeS));
    EXPECT_EQ(flat[0], flat[1]);
    EXPECT_EQ(nullptr, flat[2]);
    EXPECT_EQ(flat[3], flat[4]);
    EXPECT_TRUE(*static_cast<std::type_info const *>(flat[3]) == typeid(Vector3));
    EXPECT_EQ(nullptr, flat[5]);
}

TEST(ProxyFrame, RecordsCopyAndStreamInMemoryOrder)
{
    expectRecord<Vector2>(16);
    expectRecord<Vector3>(24);
    expectRecord<Matrix3>(72);
    expectRecord<Matrix4>(128);
}

TEST(ProxyFrame, AVectorKeepsItsOrderThroughAStream)
{
    Vector3 const value(1.0, 2.0, 3.0);
    int const id = proxyValueTypeId<Vector3>();
    mzComDataStreamC stream;
    EXPECT_TRUE(mzComVariantC::fromUserData(id, &value).writeUserData(stream));
    mzComVariantC back;
    EXPECT_TRUE(back.readUserData(id, stream));
    Vector3 read;
    EXPECT_EQ(mzUserDataOk, back.getUserData(id, &read));
    EXPECT_TRUE(read == value);

    mzComDataStreamC twoDoubles;
    twoDoubles << 1.0 << 2.0;
    EXPECT_FALSE(proxyValueRecord<Vector3>()->read(&read, twoDoubles));
}

TEST(ProxyFrame, IdsAreDistinctAndStay)
{
    int const ids[] = {proxyValueTypeId<Vector2>(), proxyValueTypeId<Vector3>(),
                       proxyValueTypeId<Matrix3>(), proxyValueTypeId<Matrix4>()};
    int const count = mzComVariantC::registeredValueTypeCount();
    for (int i = 0; i < 4; ++i) {
        EXPECT_GT(ids[i], 0);
        for (int j = 0; j < i; ++j) {
            EXPECT_NE(ids[i], ids[j]);
        }
    }
    EXPECT_EQ(ids[1], proxyValueTypeId<Vector3>());
    EXPECT_EQ(ids[1], proxyValueRecord<Vector3>()->id);
    EXPECT_EQ(count, mzComVariantC::registeredValueTypeCount());
}

TEST(ProxyFrame, ThreadsThatRaceForAnIdRegisterTheRecordOnce)
{
    static mzComValueMarshalS record = *proxyValueRecord<Vector3>();
    int const count = mzComVariantC::registeredValueTypeCount();
    int const calls = registerCalls;
    record.id = 0;
    std::atomic<bool> go{false};
    std::vector<int> ids(8);
    std::vector<std::thread> threads;
    for (int &id : ids) {
        threads.emplace_back([&id, &go] {
            while (!go) {
            }
            id = proxyRegisterValueType(&record);
        });
    }
    go = true;
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(calls + 1, registerCalls);
    EXPECT_EQ(count + 1, mzComVariantC::registeredValueTypeCount());
    EXPECT_EQ(std::vector<int>(8, record.id), ids);
}

TEST(ProxyFrame, EachRecordIsRegisteredByOneCall)
{
    proxyValueTypeId<Vector2>();
    proxyValueTypeId<Vector3>();
    proxyValueTypeId<Matrix3>();
    proxyValueTypeId<Matrix4>();
    int const calls = registerCalls;
    EXPECT_GE(calls, 4);
    proxyValueTypeId<Vector2>();
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::stopServer();
    EXPECT_TRUE(scriptCall::call(vector3(1, 2, 3), "mul", {2.0}).ok);
    EXPECT_EQ(calls, registerCalls);
}

TEST(ProxyFrame, RegistrationObjectsAnswer0)
{
    // Other global objects of the program don't listen.
    QVector<mzComServerStateEventC *> const waiting = mzComServerStateEventC::waiting();
    EXPECT_EQ(5, waiting.size());
    for (mzComServerStateEventC *event : waiting) {
        EXPECT_EQ(0, event->serverStarted());
        EXPECT_EQ(0, event->serverDone());
    }
}

TEST(ProxyFrame, FromTheServersStartOnAValueReachesScriptsAsItsClass)
{
    mzComServerStateEventC::startServer();
    Vector3 const value(1, 2, 3);
    mzComVariantC const variant = mzComVariantC::fromUserData(proxyValueTypeId<Vector3>(), &value);
    mzComVariantC const object = variant.toScriptObject();
    EXPECT_STREQ("prxVector3dC", object.typeName().utf8());
    EXPECT_TRUE(valueOf<Vector3>(object.toObject()) == value);
    auto const classOf = [](int id) {
        return mzComVariantC::fromUserData(id, nullptr).toScriptObject().typeName();
    };
    EXPECT_STREQ("prxVector2dC", classOf(proxyValueTypeId<Vector2>()).utf8());
    EXPECT_STREQ("prxMatrix3x3C", classOf(proxyValueTypeId<Matrix3>()).utf8());
    EXPECT_STREQ("prxMatrix4x4C", classOf(proxyValueTypeId<Matrix4>()).utf8());
    mzComServerStateEventC::stopServer();
}

TEST(ProxyFrame, TheDefaultMemberIsFoundForACallOnTheObject)
{
    Object const vector = vector3(0, 0, 0);
    EXPECT_TRUE(scriptCall::call(vector, "", {1.0, 2.0, 3.0}).object() == vector);
    EXPECT_TRUE(valueOf<Vector3>(vector) == Vector3(1, 2, 3));
    EXPECT_EQ(mzExceptionNoMember, scriptCall::call(vector, "", {1.0, 2.0}).code);
}

TEST(ProxyFrame, XIsAPropertyAndAMethod)
{
    Object const vector = vector3(4, 0, 0);
    EXPECT_EQ(4.0, scriptCall::read(vector, "x").number());
    EXPECT_TRUE(scriptCall::call(vector, "x", {5.0}).object() == vector);
    EXPECT_EQ(5.0, scriptCall::read(vector, "x").number());
    EXPECT_TRUE(scriptCall::write(vector, "x", 6.0).object() == vector);
    EXPECT_EQ(6.0, scriptCall::read(vector, "x").number());
    EXPECT_EQ(mzExceptionNoMember, scriptCall::call(vector, "x").code);
}

TEST(ProxyFrame, AddingAStringRaisesTheTypeCastException)
{
    scriptCall::Answer const answer = scriptCall::call(vector3(1, 2, 3), "add", {"word"});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ(mzExceptionTypeCast, answer.code);
    EXPECT_EQ("prxVector3dC.add(string): the arguments cannot be converted to the "
              "member's parameters",
              answer.message);
}

TEST(ProxyFrame, AHandlerThatGetsAStringThrows)
{
    proxyMemberDescS const &add = entry(prxVector3dC::getStaticProxyTypeInfo(), 2);
    ASSERT_STREQ("add", add.name);
    mzComPtrT<prxVector3dC> const vector(new prxVector3dC);
    mzComVariantArrayC const arguments = {"word"};
    proxyAutoParaListC parameters(arguments);
    mzComVariantC result("preset");
    proxyAutoTypeCastC cast(&result);
    EXPECT_THROW(add.handler(vector.get(), parameters, cast, false), proxyAutoTypeCastExceptionC);
    EXPECT_STREQ("preset", result.toString().utf8());
}

TEST(ProxyFrame, AValueOfAnotherTypeDoesNotConvert)
{
    Object const vector = vector3(1, 2, 3);
    EXPECT_EQ(mzExceptionTypeCast,
              scriptCall::call(vector, "add", {mzComVariantC(vector2(1, 2))}).code);
    EXPECT_EQ(mzExceptionTypeCast, scriptCall::call(vector, "add", {1.0}).code);
    EXPECT_EQ(mzExceptionTypeCast, scriptCall::call(vector, "add", {mzComVariantC()}).code);
    EXPECT_EQ(mzExceptionTypeCast, scriptCall::call(vector, "mul", {mzComVariantC(vector)}).code);
}

TEST(ProxyFrame, APlainValueServesAsWellAsAProxy)
{
    Vector3 const plain(1, 1, 1);
    mzComVariantC const argument = mzComVariantC::fromUserData(proxyValueTypeId<Vector3>(), &plain);
    EXPECT_TRUE(valueOf<Vector3>(scriptCall::call(vector3(1, 2, 3), "add", {argument})) ==
                Vector3(2, 3, 4));
}

TEST(ProxyFrame, TheFactoryMayBeUsedFromAnyThread)
{
    Object const factory(new prxMathFactoryC);
    EXPECT_TRUE(scriptCall::call(factory, "createvec3d").ok);
    std::thread([&factory] { EXPECT_TRUE(scriptCall::call(factory, "createvec3d").ok); }).join();
}

TEST(ProxyFrame, AValueProxyBelongsToTheThreadThatCallsFirst)
{
    Object const vector = vector3(1, 2, 3);
    EXPECT_TRUE(scriptCall::read(vector, "x").ok);
    std::thread([&vector] {
        EXPECT_EQ(mzExceptionWrongThread, scriptCall::read(vector, "x").code);
    }).join();
}

TEST(ProxyFrame, ThreadsMayMakeAndUseProxiesAtTheSameTime)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < 200; ++i) {
                Object const vector = vector3(t, i, 1);
                EXPECT_EQ(t * t + i * i + 1,
                          scriptCall::call(vector, "skalar", {mzComVariantC(vector)}).number());
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}
