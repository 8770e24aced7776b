#include "Interpreter.h"

#include "binding.h"

#include <mruby.h>
#include <mruby/array.h>
#include <mruby/compile.h>
#include <mruby/error.h>
#include <mruby/string.h>
#include <mruby/variable.h>

#include <new>

namespace {

QByteArray toBytes(mrb_value string)
{
    return QByteArray(RSTRING_PTR(string), int(RSTRING_LEN(string)));
}

/// "file:line: message (Class)", and leaves the interpreter without an error.
QByteArray takeError(mrb_state *mrb)
{
    const mrb_value error = mrb_obj_value(mrb->exc);
    mrb->exc = nullptr;
    QByteArray text =
        toBytes(mrb_funcall(mrb, error, "message", 0)) + " (" + mrb_obj_classname(mrb, error) + ")";
    const mrb_value trace = mrb_exc_backtrace(mrb, error);
    if (mrb_array_p(trace) && RARRAY_LEN(trace) > 0) {
        const mrb_value place = mrb_ary_ref(mrb, trace, 0);
        if (mrb_string_p(place)) {
            const QByteArray where = toBytes(place); // "file:line:in function"
            text.prepend(where.left(where.indexOf(":in ")) + ": ");
        }
    }
    return text;
}

} // namespace

Interpreter::Interpreter()
    : m_mrb(mrb_open())
    , m_context(nullptr)
{
    if (m_mrb == nullptr) {
        throw std::bad_alloc();
    }
    m_context = mrbc_context_new(m_mrb);
    m_context->capture_errors = true;
    defineOrvel(m_mrb);
}

Interpreter::~Interpreter()
{
    mrbc_context_free(m_mrb, m_context);
    mrb_close(m_mrb);
}

Interpreter::Outcome Interpreter::run(QByteArray const &script, QByteArray const &fileName,
                                      int line)
{
    int const arena = mrb_gc_arena_save(m_mrb);
    mrbc_filename(m_mrb, m_context, fileName.constData());
    m_context->lineno = std::uint16_t(line);
    const mrb_value value =
        mrb_load_nstring_cxt(m_mrb, script.constData(), std::size_t(script.size()), m_context);
    Outcome outcome;
    outcome.ok = m_mrb->exc == nullptr;
    if (outcome.ok) {
        outcome.text = toBytes(mrb_inspect(m_mrb, value));
    }
    if (m_mrb->exc != nullptr) {
        outcome.ok = false;
        outcome.text = takeError(m_mrb);
    }
    mrb_gc_arena_restore(m_mrb, arena);
    return outcome;
}
