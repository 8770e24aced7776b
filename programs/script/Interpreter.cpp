#include "Interpreter.h"

#include "binding.h"

#include <mruby.h>
#include <mruby/array.h>
#include <mruby/compile.h>
#include <mruby/error.h>
#include <mruby/string.h>
#include <mruby/variable.h>

#include <QtCore/QList>

#include <cstdlib>
#include <cstring>
#include <new>

#include <malloc.h>

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

/// Whether the error is a call of `exit`, and with what.
bool isExit(mrb_state *mrb, int &code)
{
    mrb_value const error = mrb_obj_value(mrb->exc);
    if (std::strcmp(mrb_obj_classname(mrb, error), "SystemExit") != 0) {
        return false;
    }
    bool failed = false;
    mrb_value const status = guarded(
        mrb, [=] { return mrb_iv_get(mrb, error, mrb_intern_lit(mrb, "@status")); }, failed);
    code = !failed && mrb_integer_p(status) ? int(mrb_integer(status)) : 1;
    return true;
}

} // namespace

struct Interpreter::Memory
{
    std::size_t limit;
    std::size_t used = 0;

    // As mruby wants it: size 0 frees, null refuses.
    static void *allocate(mrb_state *, void *block, std::size_t size, void *self)
    {
        Memory &memory = *static_cast<Memory *>(self);
        std::size_t const former = block != nullptr ? malloc_usable_size(block) : 0;
        if (size == 0) {
            memory.used -= former;
            std::free(block);
            return nullptr;
        }
        if (memory.limit > 0 && size > former && memory.used - former + size > memory.limit) {
            return nullptr;
        }
        void *const made = std::realloc(block, size);
        if (made != nullptr) {
            memory.used += malloc_usable_size(made) - former;
        }
        return made;
    }
};

namespace {

// What Ruby has and mruby leaves to its hosts.
constexpr char prelude[] = R"(
class SystemExit < Exception
  attr_reader :status
  def initialize(status = 0)
    @status = status == true ? 0 : status == false ? 1 : status.to_i
    super("exit")
  end
end
module Kernel
  def exit(status = 0)
    raise SystemExit.new(status)
  end
  def load(path)
    eval(File.open(path) { |file| file.read }, nil, path)
    true
  end
  def help(topic = "")
    print Orvel.help(topic.to_s)
  end
end
)";

bool isOpen(mrb_parser_state const &parser)
{
    if (parser.parsing_heredoc != nullptr || parser.lex_strterm != nullptr) {
        return true;
    }
    for (std::size_t i = 0; i < parser.nerr && i < 10; ++i) {
        QByteArray const message = parser.error_buffer[i].message;
        if (message.contains("unexpected end of file") || message.contains("unexpected $end")) {
            return true;
        }
    }
    return parser.nerr == 0 && parser.lstate == EXPR_DOT;
}

} // namespace

Interpreter::Interpreter(std::size_t memoryLimit)
    : m_memory(new Memory{memoryLimit})
    , m_mrb(mrb_open_allocf(Memory::allocate, m_memory.get()))
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
    mrb_load_nstring(m_mrb, prelude, sizeof prelude - 1);
    setArguments({});
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
    if (m_mrb->exc != nullptr && isExit(m_mrb, outcome.exitCode)) {
        m_mrb->exc = nullptr;
        outcome.isExit = true;
    }
    if (m_mrb->exc != nullptr) {
        outcome.ok = false;
        outcome.text = takeError(m_mrb, fileName);
    }
    mrb_gc_arena_restore(m_mrb, arena);
    return outcome;
}

bool Interpreter::isIncomplete(QByteArray const &script)
{
    int const arena = mrb_gc_arena_save(m_mrb);
    mrb_parser_state *const parser = mrb_parser_new(m_mrb);
    parser->s = script.constData();
    parser->send = script.constData() + script.size();
    parser->lineno = 1;
    parser->capture_errors = true;
    mrb_parser_parse(parser, m_context);
    bool const open = isOpen(*parser);
    mrb_parser_free(parser);
    mrb_gc_arena_restore(m_mrb, arena);
    return open;
}

void Interpreter::setArguments(QList<QByteArray> const &arguments)
{
    int const arena = mrb_gc_arena_save(m_mrb);
    mrb_value const list = mrb_ary_new(m_mrb);
    for (QByteArray const &argument : arguments) {
        mrb_ary_push(m_mrb, list,
                     mrb_str_new(m_mrb, argument.constData(), std::size_t(argument.size())));
    }
    mrb_define_global_const(m_mrb, "ARGV", list);
    mrb_gc_arena_restore(m_mrb, arena);
}
