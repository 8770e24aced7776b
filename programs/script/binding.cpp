#include "binding.h"

#include "describe.h"

#include <OrvelCore/script/ScriptLayer.h>

#include <mruby.h>
#include <mruby/class.h>
#include <mruby/data.h>
#include <mruby/error.h>
#include <mruby/string.h>
#include <mruby/variable.h>

// A Ruby exception leaves a function by a long jump that runs no C++ destructor. So every function
// here makes the exception object first, lets its C++ objects go at the end of a block, and raises
// only then.
namespace {

using Object = mzComPtrT<mzIUnknown>;

void freeObject(mrb_state *, void *object)
{
    delete static_cast<Object *>(object);
}

const mrb_data_type objectType = {"Orvel::Object", freeObject};

RClass *orvelClass(mrb_state *mrb, char const *name)
{
    return mrb_class_get_under(mrb, mrb_module_get(mrb, "Orvel"), name);
}

/// The object that a Ruby value stands for, or null.
Object const *objectOf(mrb_state *mrb, mrb_value value)
{
    return static_cast<Object const *>(mrb_data_check_get_ptr(mrb, value, &objectType));
}

mrb_value wrap(mrb_state *mrb, Object const &object)
{
    RData *data = mrb_data_object_alloc(mrb, orvelClass(mrb, "Object"), nullptr, &objectType);
    data->data = new Object(object);
    return mrb_obj_value(data);
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
mrb_value toRuby(mrb_state *mrb, mzComVariantC const &variant, mrb_value self)
{
    if (variant.isDouble()) {
        return mrb_float_value(mrb, variant.toDouble());
    }
    if (variant.isString()) {
        const mzComStringC text = variant.toString();
        return mrb_str_new(mrb, text.utf8(), std::size_t(text.bytes().size()));
    }
    if (const Object object = variant.toObject()) {
        return object == *objectOf(mrb, self) ? self : wrap(mrb, object);
    }
    return mrb_nil_value();
}

mrb_value makeError(mrb_state *mrb, mzComStringC const &message)
{
    return mrb_exc_new(mrb, orvelClass(mrb, "Error"), message.utf8(),
                       std::size_t(message.bytes().size()));
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

/// Calls a member. The result is the member's, or an exception to raise if `failed`.
mrb_value invoke(mrb_state *mrb, mrb_value self, Member const &member, mrb_value const *arguments,
                 mrb_int argumentCount, bool &failed)
{
    failed = true;
    mzComVariantArrayC variants;
    for (mrb_int i = 0; i < argumentCount; ++i) {
        mzComVariantC variant;
        if (!toVariant(mrb, arguments[i], variant)) {
            return makeError(mrb, mzComStringC("no member takes an argument of class ") +
                                      mrb_obj_classname(mrb, arguments[i]));
        }
        variants.append(variant);
    }
    mzComPtrT<proxyObjectC> proxy;
    if (!(*objectOf(mrb, self))->queryInterface(proxyObjectC::IID(), proxy)) {
        return makeError(mrb, "the object has no members");
    }
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    failed = !proxy->invokeByName(member.name, member.flags, variants, result, exception);
    return failed ? makeError(mrb, exception->message()) : toRuby(mrb, result, self);
}

mrb_value methodMissing(mrb_state *mrb, mrb_value self)
{
    mrb_sym symbol = 0;
    mrb_value const *arguments = nullptr;
    mrb_int argumentCount = 0;
    mrb_get_args(mrb, "n*", &symbol, &arguments, &argumentCount);
    bool failed = false;
    mrb_value result;
    {
        const Member member = memberOf(mrb_sym_name(mrb, symbol), argumentCount);
        result = invoke(mrb, self, member, arguments, argumentCount, failed);
    }
    if (failed) {
        mrb_exc_raise(mrb, result);
    }
    return result;
}

mrb_value inspect(mrb_state *mrb, mrb_value self)
{
    const QByteArray text = describe(*objectOf(mrb, self));
    return mrb_str_new(mrb, text.constData(), std::size_t(text.size()));
}

/// Two Ruby objects are equal if they stand for the same object.
mrb_value isEqual(mrb_state *mrb, mrb_value self)
{
    mrb_value other = mrb_nil_value();
    mrb_get_args(mrb, "o", &other);
    Object const *object = objectOf(mrb, other);
    return mrb_bool_value(object != nullptr && *object == *objectOf(mrb, self));
}

mrb_value createObject(mrb_state *mrb, char const *identifier)
{
    mzComPtrT<proxyObjectC> const object = proxyFactoryC::instance().create(mzIIDS(identifier));
    return object ? wrap(mrb, Object(object.get())) : mrb_nil_value();
}

mrb_value create(mrb_state *mrb, mrb_value)
{
    char const *identifier = nullptr;
    mrb_get_args(mrb, "z", &identifier);
    return createObject(mrb, identifier);
}

mrb_value factory(mrb_state *mrb, mrb_value)
{
    return createObject(mrb, "linquet.mathfactory");
}

} // namespace

void defineOrvel(mrb_state *mrb)
{
    RClass *orvel = mrb_define_module(mrb, "Orvel");
    mrb_define_module_function(mrb, orvel, "factory", factory, MRB_ARGS_NONE());
    mrb_define_module_function(mrb, orvel, "create", create, MRB_ARGS_REQ(1));
    mrb_define_class_under(mrb, orvel, "Error", mrb_class_get(mrb, "StandardError"));

    RClass *object = mrb_define_class_under(mrb, orvel, "Object", mrb->object_class);
    // The macro of mruby narrows an integer.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_GCC("-Wconversion")
    MRB_SET_INSTANCE_TT(object, MRB_TT_DATA);
    QT_WARNING_POP
    mrb_undef_class_method(mrb, object, "new");
    mrb_undef_method(mrb, object, "dup");
    mrb_undef_method(mrb, object, "clone");
    mrb_define_method(mrb, object, "method_missing", methodMissing, MRB_ARGS_ANY());
    mrb_define_method(mrb, object, "inspect", inspect, MRB_ARGS_NONE());
    mrb_define_method(mrb, object, "to_s", inspect, MRB_ARGS_NONE());
    mrb_define_method(mrb, object, "==", isEqual, MRB_ARGS_REQ(1));
}
