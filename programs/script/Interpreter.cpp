#include "Interpreter.h"

#include "binding.h"

#include <mruby.h>
#include <mruby/array.h>
#include <mruby/compile.h>
#include <mruby/error.h>
#include <mruby/string.h>
#include <mruby/variable.h>

#include <QtCore/QList>

#include <new>

namespace {

QByteArray toBytes(mrb_value string)
{
    return mrb_string_p(string) ? QByteArray(RSTRING_PTR(string), int(RSTRING_LEN(string)))
                                : QByteArray("(no text)");
}

/// What `body` returns, or the exception that it raises: scripts may redefine any method.
template <typename Body>
mrb_value guarded(mrb_state *mrb, Body body, bool &failed)
{
    mrb_bool state = false;
    mrb_value const value = mrb_protect_error(
        mrb, [](mrb_state *, void *data) { return (*static_cast<Body *>(data))(); }, &body, &state);
    failed = state != 0;
    return value;
}

/// The text of a value by one of its methods; a note where the method fails or gives no text.
QByteArray textBy(mrb_state *mrb, char const *method, mrb_value value)
{
    bool failed = false;
    mrb_value const text = guarded(
        mrb,
        [=] {
            mrb_value const made = mrb_funcall(mrb, value, method, 0);
            return mrb_string_p(made) ? made : mrb_obj_as_string(mrb, made);
        },
        failed);
    return failed ? QByteArray("(") + method + " failed)" : toBytes(text);
}

/// The lines "file:line:in function" that led to an error, the innermost first.
QList<QByteArray> traceOf(mrb_state *mrb, mrb_value error)
{
    bool failed = false;
    mrb_value const trace = guarded(
        mrb, [=] { return mrb_exc_backtrace(mrb, error); }, failed);
    QList<QByteArray> lines;
    if (!failed && mrb_array_p(trace)) {
        for (mrb_int i = 0; i < RARRAY_LEN(trace); ++i) {
            mrb_value const line = RARRAY_PTR(trace)[i];
            if (mrb_string_p(line)) {
                lines.append(toBytes(line));
            }
        }
    }
    return lines;
}

/// "file:line: message (Class)" and the callers below, and leaves the interpreter without an error.
QByteArray takeError(mrb_state *mrb, QByteArray const &fileName)
{
    mrb_value const error = mrb_obj_value(mrb->exc);
    mrb->exc = nullptr;
    QByteArray text = textBy(mrb, "message", error) + " (" + mrb_obj_classname(mrb, error) + ")";
    QList<QByteArray> const trace = traceOf(mrb, error);
    QByteArray place = trace.isEmpty() ? fileName : trace.first();
    if (int const at = place.indexOf(":in "); at >= 0) {
        place.truncate(at);
    }
    text.prepend(place + ": ");
    for (int i = 1; i < trace.size(); ++i) {
        // A function of the host has the line of its caller.
        if (trace[i] != trace[i - 1]) {
            text += "\n    from " + trace[i];
        }
    }
    return text;
}

} // namespace

Interpreter::Interpreter()
    : m_mrb(mrb_open())
    , m_context(nullptr)
    , m_classes(new Classes)
{
    if (m_mrb == nullptr) {
        throw std::bad_alloc();
    }
    m_context = mrbc_context_new(m_mrb);
    m_context->capture_errors = true;
    *m_classes = defineOrvel(m_mrb);
    m_mrb->ud = m_classes.get();
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
    mrb_value const value =
        mrb_load_nstring_cxt(m_mrb, script.constData(), std::size_t(script.size()), m_context);
    Outcome outcome;
    outcome.ok = m_mrb->exc == nullptr;
    if (outcome.ok) {
        outcome.text = textBy(m_mrb, "inspect", value);
    }
    if (m_mrb->exc != nullptr) {
        outcome.ok = false;
        outcome.text = takeError(m_mrb, fileName);
    }
    mrb_gc_arena_restore(m_mrb, arena);
    return outcome;
}
