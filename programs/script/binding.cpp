#include "binding.h"

#include "describe.h"
#include "members.h"

#include <OrvelCore/script/ScriptLayer.h>

#include <mruby.h>
#include <mruby/class.h>
#include <mruby/data.h>
#include <mruby/error.h>
#include <mruby/string.h>
#include <mruby/variable.h>

#include <exception>

// A Ruby exception leaves a function by a long jump that runs no C++ destructor, and a C++
// exception must not pass through the interpreter, which is C. So what may raise runs in `guarded`,
// which gives an exception back as a value; the entry points raise it when no C++ object is left.
namespace {

using Object = mzComPtrT<mzIUnknown>;

void freeObject(mrb_state *, void *object)
{
    delete static_cast<Object *>(object);
}

mrb_data_type const objectType = {"Orvel::Object", freeObject};

/// What a call gives: a value, or an exception to raise.
struct Result
{
    mrb_value value;
    bool failed;
};

/// Runs `body`, which makes Ruby values and owns no C++ object, and gives back what it returns or
/// raises.
template <typename Body>
Result guarded(mrb_state *mrb, Body &body)
{
    mrb_bool failed = false;
    mrb_value const value = mrb_protect_error(
        mrb, [](mrb_state *, void *data) { return (*static_cast<Body *>(data))(); }, &body,
        &failed);
    return {value, failed != 0};
}

/// The classes as they were defined: a script may give their names to something else.
Classes const &classesOf(mrb_state *mrb)
{
    return *static_cast<Classes const *>(mrb->ud);
}

/// The object that a Ruby value stands for, or null: for values of other classes, and for what
/// `allocate` or `dup` made without one.
Object const *objectOf(mrb_state *mrb, mrb_value value)
{
    return static_cast<Object const *>(mrb_data_check_get_ptr(mrb, value, &objectType));
}

Result wrap(mrb_state *mrb, Object const &object)
{
    auto body = [mrb] {
        return mrb_obj_value(
            mrb_data_object_alloc(mrb, classesOf(mrb).object, nullptr, &objectType));
    };
    Result const result = guarded(mrb, body);
    if (!result.failed) {
        DATA_PTR(result.value) = new Object(object);
    }
    return result;
}

Result textValue(mrb_state *mrb, QByteArray const &text)
{
    char const *const data = text.constData();
    std::size_t const size = std::size_t(text.size());
    auto body = [=] { return mrb_str_new(mrb, data, size); };
    return guarded(mrb, body);
}

Result error(mrb_state *mrb, RClass *kind, QByteArray const &message)
{
    char const *const data = message.constData();
    std::size_t const size = std::size_t(message.size());
    auto body = [=] { return mrb_exc_new(mrb, kind, data, size); };
    return {guarded(mrb, body).value, true};
}

Result refusal(mrb_state *mrb, QByteArray const &message)
{
    return error(mrb, classesOf(mrb).error, message);
}

Result noObject(mrb_state *mrb)
{
    return refusal(mrb, "there is no object behind this one: it was made by allocate or dup");
}

/// Runs `work`, in which C++ objects live, and raises what came of it once they are gone.
template <typename Work>
mrb_value entryPoint(mrb_state *mrb, Work const &work)
{
    Result result{mrb_nil_value(), false};
    bool isOutOfMemory = false;
    try {
        result = work();
    } catch (std::exception const &) {
        isOutOfMemory = true;
    }
    if (isOutOfMemory) {
        mrb_raise(mrb, mrb->eStandardError_class, "not enough memory");
    }
    if (result.failed) {
        mrb_exc_raise(mrb, result.value);
    }
    return result.value;
}

/// False for a Ruby value that no member can take, such as an array.
bool toVariant(mrb_state *mrb, mrb_value value, mzComVariantC &variant)
{
    if (mrb_nil_p(value)) {
        variant = mzComVariantC();
    } else if (mrb_float_p(value)) {
        variant = mzComVariantC(double(mrb_float(value)));
    } else if (mrb_integer_p(value)) {
        variant = mzComVariantC(double(mrb_integer(value)));
    } else if (mrb_string_p(value)) {
        variant =
            mzComVariantC(mzComStringC(QByteArray(RSTRING_PTR(value), int(RSTRING_LEN(value)))));
    } else if (Object const *object = objectOf(mrb, value)) {
        variant = mzComVariantC(*object);
    } else {
        return false;
    }
    return true;
}

/// The receiver itself where the member gave it back.
Result toRuby(mrb_state *mrb, mzComVariantC const &variant, mrb_value self)
{
    if (variant.isDouble()) {
        double const number = variant.toDouble();
        auto body = [=] { return mrb_float_value(mrb, number); };
        return guarded(mrb, body);
    }
    if (variant.isString()) {
        return textValue(mrb, variant.toString().bytes());
    }
    if (Object const object = variant.toObject()) {
        return object == *objectOf(mrb, self) ? Result{self, false} : wrap(mrb, object);
    }
    return {mrb_nil_value(), false};
}

/// A member as a script names it.
struct Member
{
    mzComStringC name;
    unsigned int flags;
};

Member memberOf(QByteArray const &rubyName, mrb_int argumentCount)
{
    if (rubyName == "call") {
        return {"", proxyMethod};
    }
    if (rubyName.endsWith('=')) {
        return {rubyName.chopped(1), proxyPropertyWrite};
    }
    if (argumentCount == 0) {
        return {rubyName, proxyMethod | proxyPropertyRead};
    }
    return {rubyName, proxyMethod};
}

/// Whether a call changes its receiver: it writes a property, by assignment or by a method that has
/// a property's name, or is the default member.
bool changesReceiver(proxyObjectC &proxy, Member const &member, mrb_int argumentCount)
{
    if ((member.flags & proxyPropertyWrite) != 0 || member.name.bytes().isEmpty()) {
        return true;
    }
    if (argumentCount == 0) {
        return false;
    }
    proxyMemberDescListS const *const list = proxy.getProxyTypeInfo();
    for (int i = 0; list->members[i].name != nullptr; ++i) {
        if (list->members[i].kind == proxyPropertyRead &&
            member.name.bytes() == list->members[i].name) {
            return true;
        }
    }
    return false;
}

Result invoke(mrb_state *mrb, mrb_value self, Member const &member, mrb_value const *arguments,
              mrb_int argumentCount)
{
    Object const *const object = objectOf(mrb, self);
    if (object == nullptr) {
        return noObject(mrb);
    }
    mzComVariantArrayC variants;
    for (mrb_int i = 0; i < argumentCount; ++i) {
        mzComVariantC variant;
        if (!toVariant(mrb, arguments[i], variant)) {
            return refusal(mrb, QByteArray("no member takes an argument of class ") +
                                    mrb_obj_classname(mrb, arguments[i]));
        }
        variants.append(variant);
    }
    mzComPtrT<proxyObjectC> proxy;
    if (!(*object)->queryInterface(proxyObjectC::IID(), proxy)) {
        return refusal(mrb, "the object has no members");
    }
    if (MRB_FROZEN_P(mrb_basic_ptr(self)) && changesReceiver(*proxy, member, argumentCount)) {
        return error(mrb, classesOf(mrb).frozenError, "can't modify frozen " + describe(*object));
    }
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    return proxy->invokeByName(member.name, member.flags, variants, result, exception)
               ? toRuby(mrb, result, self)
               : refusal(mrb, exception->message().bytes());
}

mrb_value methodMissing(mrb_state *mrb, mrb_value self)
{
    mrb_sym symbol = 0;
    mrb_value const *arguments = nullptr;
    mrb_int argumentCount = 0;
    mrb_get_args(mrb, "n*", &symbol, &arguments, &argumentCount);
    char const *const name = mrb_sym_name(mrb, symbol);
    return entryPoint(mrb, [&] {
        return invoke(mrb, self, memberOf(name, argumentCount), arguments, argumentCount);
    });
}

mrb_value inspect(mrb_state *mrb, mrb_value self)
{
    return entryPoint(mrb, [&] {
        Object const *const object = objectOf(mrb, self);
        return textValue(mrb, object != nullptr ? describe(*object) : "no object");
    });
}

/// Two Ruby objects are equal if they stand for the same object.
mrb_value isEqual(mrb_state *mrb, mrb_value self)
{
    mrb_value other = mrb_nil_value();
    mrb_get_args(mrb, "o", &other);
    Object const *const a = objectOf(mrb, self);
    Object const *const b = objectOf(mrb, other);
    bool const isSame = a != nullptr && b != nullptr ? *a == *b : mrb_obj_eq(mrb, self, other);
    return mrb_bool_value(isSame);
}

mrb_value createObject(mrb_state *mrb, char const *identifier)
{
    return entryPoint(mrb, [&] {
        mzComPtrT<proxyObjectC> const object = proxyFactoryC::instance().create(mzIIDS(identifier));
        return object ? wrap(mrb, Object(object.get())) : Result{mrb_nil_value(), false};
    });
}

mrb_value create(mrb_state *mrb, mrb_value)
{
    char const *identifier = nullptr;
    mrb_get_args(mrb, "z", &identifier);
    return createObject(mrb, identifier);
}

mrb_value help(mrb_state *mrb, mrb_value)
{
    char const *topic = nullptr;
    mrb_get_args(mrb, "z", &topic);
    return entryPoint(mrb, [&] { return textValue(mrb, helpText(topic)); });
}

mrb_value factory(mrb_state *mrb, mrb_value)
{
    return createObject(mrb, "linquet.mathfactory");
}

} // namespace

Classes defineOrvel(mrb_state *mrb)
{
    RClass *const orvel = mrb_define_module(mrb, "Orvel");
    mrb_define_module_function(mrb, orvel, "factory", factory, MRB_ARGS_NONE());
    mrb_define_module_function(mrb, orvel, "help", help, MRB_ARGS_REQ(1));
    mrb_define_module_function(mrb, orvel, "create", create, MRB_ARGS_REQ(1));
    RClass *const error =
        mrb_define_class_under(mrb, orvel, "Error", mrb_class_get(mrb, "StandardError"));

    RClass *const object = mrb_define_class_under(mrb, orvel, "Object", mrb->object_class);
    // The macro of mruby narrows an integer.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_GCC("-Wconversion")
    MRB_SET_INSTANCE_TT(object, MRB_TT_DATA);
    QT_WARNING_POP
    mrb_undef_class_method(mrb, object, "new");
    mrb_undef_class_method(mrb, object, "allocate");
    mrb_undef_method(mrb, object, "dup");
    mrb_undef_method(mrb, object, "clone");
    mrb_define_method(mrb, object, "method_missing", methodMissing, MRB_ARGS_ANY());
    mrb_define_method(mrb, object, "inspect", inspect, MRB_ARGS_NONE());
    mrb_define_method(mrb, object, "to_s", inspect, MRB_ARGS_NONE());
    mrb_define_method(mrb, object, "==", isEqual, MRB_ARGS_REQ(1));

    Classes const classes{object, error, mrb_class_get(mrb, "FrozenError")};
    for (RClass *const kept : {classes.object, classes.error, classes.frozenError}) {
        mrb_gc_register(mrb, mrb_obj_value(kept));
    }
    return classes;
}
