#pragma once

/// @file
/// Values on their way between a script and an object.

#include <OrvelCore/script/mzComDataStreamC.h>
#include <OrvelCore/script/mzComPtrC.h>
#include <OrvelCore/script/mzComStringC.h>

#include <QtCore/QMetaType>
#include <QtCore/QVector>

#include <memory>
#include <typeinfo>
#include <utility>

/// How values of one type travel in an mzComVariantC. One static record per type; it must outlive
/// every variant that holds such a value.
struct mzComValueMarshalS
{
    int id;                            ///< 0 until mzComVariantC::registerValueType writes it
    int size;                          ///< size of the value in bytes
    mzComStringC (*name)();            ///< mzComTypeInfoToName of the type
    void *(*create)(void const *from); ///< a new copy; with null a new value of all zero
    void (*copy)(void const *from, void *to);
    void (*destroy)(void *value);                               ///< frees what `create` made
    bool (*read)(void *value, mzComDataStreamC &stream);        ///< false if the stream ran dry
    bool (*write)(void const *value, mzComDataStreamC &stream); ///< true
};

/// The name under which a type is known across modules: the name that the platform's C++ ABI gives.
ORVELCORE_EXPORT mzComStringC mzComTypeInfoToName(std::type_info const &type);
/// The same type as a person would write it, for messages.
ORVELCORE_EXPORT mzComStringC mzComReadableTypeName(mzComStringC const &name);

/// What `mzComVariantC::getUserData` found.
enum mzComUserDataStatusE {
    mzUserDataOk = 0,
    mzUserDataNone = 1,     ///< the variant holds no user value
    mzUserDataOtherType = 2 ///< it holds a user value of another type
};

/// A value on its way between a script and an object: nothing, a number, a text, an object, or a
/// value of a registered type.
///
/// It owns a text or a user value together with its copies, which share it: it never changes. It
/// holds one reference to an object, and a copy another one. A variant belongs to one thread at a
/// time, but copies of one may be used by several. The library of a user value has to stay loaded
/// as long as the value lives.
class ORVELCORE_EXPORT mzComVariantC
{
public:
    mzComVariantC() = default;
    mzComVariantC(double value)
        : m_kind(Kind::Double)
        , m_number(value)
    {
    }
    mzComVariantC(mzComStringC const &value);
    mzComVariantC(char const *utf8)
        : mzComVariantC(mzComStringC(utf8))
    {
    }
    /// A null pointer gives the empty variant.
    mzComVariantC(mzComPtrT<mzIUnknown> const &object)
        : m_kind(object ? Kind::Object : Kind::Empty)
        , m_object(object)
    {
    }

    mzComVariantC(mzComVariantC const &) = default;
    mzComVariantC &operator=(mzComVariantC const &) = default;
    /// Leaves `other` empty.
    mzComVariantC(mzComVariantC &&other) noexcept
        : m_kind(std::exchange(other.m_kind, Kind::Empty))
        , m_number(std::exchange(other.m_number, 0.0))
        , m_record(std::exchange(other.m_record, nullptr))
        , m_object(std::move(other.m_object))
        , m_shared(std::move(other.m_shared))
    {
    }
    mzComVariantC &operator=(mzComVariantC &&other) noexcept
    {
        m_kind = std::exchange(other.m_kind, Kind::Empty);
        m_number = std::exchange(other.m_number, 0.0);
        m_record = std::exchange(other.m_record, nullptr);
        m_object = std::move(other.m_object);
        m_shared = std::move(other.m_shared);
        return *this;
    }
    ~mzComVariantC() = default;

    bool isEmpty() const { return m_kind == Kind::Empty; }
    bool isDouble() const { return m_kind == Kind::Double; }
    bool isString() const { return m_kind == Kind::String; }
    bool isObject() const { return m_kind == Kind::Object; }
    bool isUserValue() const { return m_kind == Kind::User; }

    /// The number; 0 if the variant holds none.
    double toDouble() const { return m_number; }
    /// The text; empty if the variant holds none.
    mzComStringC toString() const
    {
        return isString() ? *static_cast<mzComStringC const *>(m_shared.get()) : mzComStringC();
    }
    /// The object; null if the variant holds none.
    mzComPtrT<mzIUnknown> const &toObject() const { return m_object; }

    /// A copy of `value`, which has the type registered under `id`. An unknown id gives the empty
    /// variant.
    static mzComVariantC fromUserData(int id, void const *value);
    /// Copies the user value of type `id` to `value`. Any other status than mzUserDataOk leaves
    /// `value` as it is.
    mzComUserDataStatusE getUserData(int id, void *value) const;
    /// Type of the user value; 0 if the variant holds none.
    int userType() const;

    /// An object that stands for a value (a prxQVariantBaseC) becomes that value; all else is
    /// returned as it is.
    mzComVariantC toSkalarValue() const &;
    mzComVariantC toSkalarValue() &&;
    /// A user value becomes a new object of the class registered for its type, as scripts see it;
    /// all else, and a value of a type without a class, is returned as it is.
    mzComVariantC toScriptObject() const;

    /// What the value is called in messages: "nothing", "number", "string", a class or type name.
    mzComStringC typeName() const;

    /// Writes the user value as its record does. False without a user value.
    bool writeUserData(mzComDataStreamC &stream) const;
    /// Reads a value of type `id`. The variant stays as it is, with false, if the stream runs dry
    /// or the id is unknown.
    bool readUserData(int id, mzComDataStreamC &stream);

    /// Gives the record an id, if it has none yet. May be called from any thread.
    static void registerValueType(mzComValueMarshalS *record);
    /// Makes variants of type `id` reach scripts as objects of the class `classIdentifier`.
    static void registerUserTypeProxy(int id, mzIIDS const &classIdentifier);
    /// How many records were ever given an id.
    static int registeredValueTypeCount();

private:
    enum class Kind { Empty, Double, String, Object, User };

    Kind m_kind = Kind::Empty;
    double m_number = 0.0;                        // 0 for the other kinds
    mzComValueMarshalS const *m_record = nullptr; // of a user value
    mzComPtrT<mzIUnknown> m_object;               // null for the other kinds
    std::shared_ptr<void const> m_shared;         // the text or the user value
};
Q_DECLARE_METATYPE(mzComVariantC)

/// The arguments of a call, in order.
using mzComVariantArrayC = QVector<mzComVariantC>;
