#include "fingerprint/Rows.h"

#include "proxymath/ProxyValues.h"

namespace fingerprint {

namespace {

using proxyValues::make;
using scriptCall::Answer;
using scriptCall::Object;

template <typename T>
bool addAs(Hash &hash, mzComVariantC const &value)
{
    T result{};
    if (value.getUserData(proxyValueTypeId<T>(), &result) != mzUserDataOk) {
        return false;
    }
    hash.add(result);
    return true;
}

/// Hashes whether a call went well, its error code, and its result as a number or as a value.
void addAnswer(Hash &hash, Answer const &answer)
{
    hash.add(answer.ok);
    hash.add(answer.code);
    if (!answer.ok) {
        return;
    }
    if (Object const object = answer.object()) {
        mzComVariantC const value = mzComVariantC(object).toSkalarValue();
        bool const known =
            addAs<vectorC2d<double>>(hash, value) || addAs<vectorC3d<double>>(hash, value) ||
            addAs<matrixC3x3<double>>(hash, value) || addAs<matrixC4x4<double>>(hash, value);
        hash.add(known);
    } else {
        hash.add(answer.number());
    }
}

/// An argument of one of the kinds that scripts pass: a number, vectors, matrices.
mzComVariantC argument(Stream &stream)
{
    vectorC2d<double> v2;
    vectorC3d<double> v3;
    stream.draw(v2);
    stream.draw(v3);
    switch (stream.below(5)) {
    case 0:
        return mzComVariantC(make<prxVector2dC>(v2));
    case 1:
        return mzComVariantC(make<prxMatrix3x3C>(stream.matrix3()));
    case 2:
        return mzComVariantC(make<prxMatrix4x4C>(matrixC4x4<double>(stream.matrix())));
    case 3:
        return mzComVariantC(stream.number());
    default:
        return mzComVariantC(make<prxVector3dC>(v3));
    }
}

/// Calls every member by name: methods with up to three arguments of any kind, reads and writes.
template <typename Proxy, typename Value>
Row classRow(std::string name, std::vector<char const *> members)
{
    return withLibrary(
        std::move(name),
        [members = std::move(members)](Stream &stream, Hash &hash) {
            Value value{};
            stream.draw(value);
            Object const object = make<Proxy>(value);
            char const *const member = members[std::size_t(stream.below(int(members.size())))];
            mzComVariantArrayC arguments;
            int const count = stream.below(4);
            bool const numbers = stream.below(3) == 0;
            for (int i = 0; i < count; ++i) {
                arguments.append(numbers ? mzComVariantC(stream.number()) : argument(stream));
            }
            addAnswer(hash, scriptCall::call(object, member, arguments));
            addAnswer(hash, scriptCall::read(object, member));
            addAnswer(hash, scriptCall::write(object, member, argument(stream)));
            Answer self;
            self.ok = true;
            self.value = mzComVariantC(object);
            addAnswer(hash, self);
        },
        {20000, true, true});
}

} // namespace

std::vector<Row> scriptRows()
{
    return {
        classRow<prxVector2dC, vectorC2d<double>>(
            "prxVector2dC", {"skalar", "add", "sub", "len", "mul", "div", "norm", "x", "y",
                             "perpendicular", "", "Factory", "none"}),
        classRow<prxVector3dC, vectorC3d<double>>("prxVector3dC",
                                                  {"skalar", "add", "sub", "len", "mul", "div",
                                                   "norm", "cross", "x", "y", "z", "", "none"}),
        classRow<prxMatrix3x3C, matrixC3x3<double>>(
            "prxMatrix3x3C", {"mul", "inv", "ident", "X", "Y", "Z", "rotAngle", "none"}),
        classRow<prxMatrix4x4C, matrixC4x4<double>>(
            "prxMatrix4x4C", {"mul", "inv", "ident", "X", "Y", "Z", "T", "rotAngle", "rotVector",
                              "conv3x3", "Roll", "Pitch", "Yaw"}),
    };
}

} // namespace fingerprint
