// Reads the bytes as a program of calls by name: any member, kind and arguments, of right and wrong
// types and counts, on the objects that earlier calls gave. No call may crash, and no object may be
// left at the end.

#include <OrvelMath/proxymath/proxymath.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

using Object = mzComPtrT<mzIUnknown>;

constexpr char const *names[] = {"",
                                 "x",
                                 "y",
                                 "z",
                                 "add",
                                 "sub",
                                 "len",
                                 "mul",
                                 "div",
                                 "norm",
                                 "skalar",
                                 "cross",
                                 "X",
                                 "Y",
                                 "Z",
                                 "T",
                                 "inv",
                                 "ident",
                                 "rotAngle",
                                 "conv3x3",
                                 "rotVector",
                                 "Roll",
                                 "Pitch",
                                 "Yaw",
                                 "Factory",
                                 "Create",
                                 "createmat4x4",
                                 "createmat3x3",
                                 "createvec3d",
                                 "createvec2d",
                                 "missing",
                                 "perpendicular"};
constexpr std::size_t nameCount = sizeof names / sizeof names[0];
constexpr char const *classNames[] = {"linquet.vector2d", "linquet.vector3d", "linquet.matrix3x3",
                                      "linquet.matrix4x4", "linquet.mathfactory"};
constexpr char const *words[] = {"vector3d", "vector2d", "matrix3x3", "matrix4x4", "Vector3d", "7"};

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// Gives out the bytes; zeros once they are used up.
class Input
{
public:
    Input(std::uint8_t const *data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    bool isAtEnd() const { return m_position >= m_size; }
    std::size_t below(std::size_t limit) { return byte() % limit; }
    double number()
    {
        if (below(2) == 0) {
            return double(byte()) - 128.0;
        }
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i) {
            bits = bits << 8 | byte();
        }
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    QByteArray text()
    {
        QByteArray bytes(int(below(8)), '\0');
        for (char &c : bytes) {
            c = char(byte());
        }
        return bytes;
    }

private:
    std::uint8_t byte() { return isAtEnd() ? std::uint8_t(0) : m_data[m_position++]; }

    std::uint8_t const *m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};

/// The objects that calls are made on, and the calls.
class Program
{
public:
    explicit Program(Input &input)
        : m_input(input)
    {
        for (char const *name : classNames) {
            m_objects.push_back(Object(proxyFactoryC::instance().create(mzIIDS(name)).get()));
            require(bool(m_objects.back()));
        }
    }

    void step()
    {
        std::size_t const slot = m_input.below(m_objects.size());
        if (m_input.below(16) == 0) {
            connectRemotely(m_objects[slot]);
            return;
        }
        Object const receiver = m_objects[slot];
        QByteArray const made = m_input.below(8) == 0 ? m_input.text() : QByteArray();
        mzComStringC const name =
            made.isEmpty() ? mzComStringC(names[m_input.below(nameCount)]) : mzComStringC(made);
        unsigned int const flags =
            unsigned(m_input.below(8)) | (m_input.below(2) == 0 ? 0u : proxyInvokeLenient);
        mzComVariantArrayC arguments;
        for (std::size_t left = m_input.below(5); left > 0; --left) {
            arguments.append(argument());
        }
        call(receiver, name, flags, arguments);
    }

private:
    mzComVariantC argument()
    {
        switch (m_input.below(8)) {
        case 0:
            return mzComVariantC();
        case 1:
            return mzComStringC(words[m_input.below(sizeof words / sizeof words[0])]);
        case 2:
            return mzComStringC(m_input.text());
        case 3:
        case 4:
            return m_input.number();
        case 5:
            return mzComVariantC::fromUserData(int(m_input.below(8)), nullptr);
        default:
            return m_objects[m_input.below(m_objects.size())];
        }
    }

    void call(Object const &receiver, mzComStringC const &name, unsigned int flags,
              mzComVariantArrayC const &arguments)
    {
        mzComPtrT<proxyObjectC> proxy;
        require(receiver->queryInterface(proxyObjectC::IID(), proxy));
        mzComVariantC result;
        mzComPtrT<mzIException> exception;
        bool const ok = proxy->invokeByName(name, flags, arguments, result, exception);
        require(ok != bool(exception));
        require(ok || result.isEmpty());
        require(ok || !exception->message().isEmpty());
        if (Object const object = result.toObject()) {
            keep(object);
        }
    }

    /// A new object, or the receiver, takes some slot.
    void keep(Object const &object)
    {
        if (m_objects.size() < 12) {
            m_objects.push_back(object);
        } else {
            m_objects[m_input.below(m_objects.size())] = object;
        }
    }

    static void connectRemotely(Object const &object)
    {
        mzComPtrT<proxyObjectC> proxy;
        require(object->queryInterface(proxyObjectC::IID(), proxy));
        require(proxy->addRemoteConnection(mzIUnknown::IID()) == 1);
        require(proxy->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionLost) == 0);
    }

    Input &m_input;
    std::vector<Object> m_objects;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    // Naming a class keeps the library linked; its classes are known from the server's start on.
    require(prxMathFactoryC::getStaticProxyTypeInfo() != nullptr);
    mzComServerStateEventC::startServer();
    {
        Input input(data, size);
        Program program(input);
        while (!input.isAtEnd()) {
            program.step();
        }
    }
    require(proxyObjectC::liveObjectCount() == 0);
    return 0;
}
