#include "prompt.h"

#include "Interpreter.h"
#include "members.h"

#include <OrvelCore/script/ScriptLayer.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QList>

#include <editline/readline.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// The names that complete the word after its last point.
QList<QByteArray> &completions()
{
    static QList<QByteArray> names;
    return names;
}

// One completion after the other, as readline wants them.
char *nextCompletion(char const *word, int state)
{
    static int index = 0;
    if (state == 0) {
        index = 0;
    }
    QByteArray const text = word;
    int const point = text.lastIndexOf('.') + 1;
    while (index < completions().size()) {
        QByteArray const name = completions().at(index++);
        if (name.startsWith(text.mid(point))) {
            return strdup((text.left(point) + name).constData());
        }
    }
    return nullptr;
}

// Members after a point, commands at the start; else null, and readline completes files.
char **complete(char const *word, int start, int)
{
    QByteArray const text = word;
    if (text.contains('.') && !text.contains('/')) {
        completions() = memberNames();
        if (text.startsWith("Orvel.")) {
            completions() = {"create", "factory", "help"};
        }
        return rl_completion_matches(word, nextCompletion);
    }
    if (QByteArray(rl_line_buffer).startsWith("help ") && start > 0) {
        completions() = memberNames();
        return rl_completion_matches(word, nextCompletion);
    }
    return nullptr;
}

QByteArray historyFile()
{
    return QFile::encodeName(QDir::home().filePath(QStringLiteral(".orvel_script_history")));
}

void remember(QByteArray const &line)
{
    add_history(line.constData());
    // Written at once, so that no end of the program loses it.
    write_history(historyFile().constData());
}

// A whole input, of one line or more; false at the end of the input.
bool readInput(Interpreter &interpreter, QByteArray &script)
{
    script.clear();
    while (char *const line = readline(script.isEmpty() ? "orvel> " : "    .. ")) {
        QByteArray const text = line;
        std::free(line);
        if (!text.trimmed().isEmpty()) {
            remember(text);
        }
        script += (script.isEmpty() ? "" : "\n") + text;
        if (!interpreter.isIncomplete(script)) {
            return true;
        }
    }
    return !script.isEmpty();
}

// "help cross" as a call.
QByteArray asCall(QByteArray const &script)
{
    QByteArray const text = script.trimmed();
    if (text.startsWith("help ") && !text.contains('"') && !text.contains(':')) {
        return "help \"" + text.mid(5).trimmed() + "\"";
    }
    return script;
}

void show(Interpreter::Outcome const &outcome)
{
    if (!outcome.isExit) {
        std::printf("%s %s\n", outcome.ok ? "=>" : "error:", outcome.text.constData());
    }
    std::fflush(stdout);
}

// How a process that ran an input came to its end.
void report(int status)
{
    int const signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    char const *const why = signal == SIGINT    ? "interrupted"
                            : signal == SIGALRM ? "stopped: the time is over"
                                                : "ended by a signal";
    std::printf("\n%s; all is as it was before this input\n", why);
    std::fflush(stdout);
}

/// A chain of processes, one for each input, of which the last one has the prompt.
class Worker
{
public:
    Worker(Limits const &limits, int *exitCode)
        : m_limits(limits)
        , m_exitCode(exitCode)
        , m_interpreter(new Interpreter(limits.memory))
    {
        // Ctrl-C is for the input that runs.
        std::signal(SIGINT, SIG_IGN);
    }

    // Ends the process.
    [[noreturn]] void run()
    {
        QByteArray script;
        for (int line = 1; readInput(*m_interpreter, script); line += script.count('\n') + 1) {
            if (!script.trimmed().isEmpty() && isInNewProcess() && runInput(script, line)) {
                break;
            }
        }
        m_interpreter.reset();
        if (int const left = proxyObjectC::liveObjectCount(); left != 0) {
            std::fprintf(stderr, "%d objects are left\n", left);
            *m_exitCode = 3;
        }
        std::fflush(nullptr);
        _exit(0);
    }

private:
    // True in the new process. The old one waits: it ends when the new one has taken the prompt
    // over, and gives false when that one has come to an end without.
    bool isInNewProcess()
    {
        int ends[2];
        std::fflush(nullptr);
        if (pipe(ends) != 0) {
            return true; // without a net
        }
        pid_t const child = fork();
        if (child == 0) {
            close(ends[0]);
            m_taken = ends[1];
            return true;
        }
        close(ends[1]);
        char byte = 0;
        bool const isTaken = child > 0 && ::read(ends[0], &byte, 1) == 1;
        close(ends[0]);
        if (isTaken) {
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        report(status);
        return false;
    }

    // True when the input was `exit`.
    bool runInput(QByteArray const &script, int line)
    {
        std::signal(SIGINT, SIG_DFL);
        alarm(m_limits.seconds);
        Interpreter::Outcome const outcome = m_interpreter->run(asCall(script), "prompt", line);
        alarm(0);
        std::signal(SIGINT, SIG_IGN);
        show(outcome);
        if (m_taken >= 0) {
            char const byte = 1;
            (void)!::write(m_taken, &byte, 1);
            close(m_taken);
            m_taken = -1;
        }
        *m_exitCode = outcome.exitCode;
        return outcome.isExit;
    }

    Limits m_limits;
    int *m_exitCode;
    std::unique_ptr<Interpreter> m_interpreter;
    int m_taken = -1; ///< written to when this process takes the prompt over
};

} // namespace

int runPrompt(Limits const &limits)
{
    using_history();
    read_history(historyFile().constData());
    rl_attempted_completion_function = complete;
    std::puts("f = Orvel.factory gives the factory; help shows the classes; exit leaves.");
    std::fflush(stdout);

    // The exit code is shared with all processes of the chain; this one waits for their last.
    auto *const exitCode = static_cast<int *>(
        mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (exitCode == MAP_FAILED) {
        throw std::bad_alloc();
    }
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    std::signal(SIGINT, SIG_IGN);
    pid_t const child = fork();
    if (child == 0) {
        Worker(limits, exitCode).run();
    }
    while (wait(nullptr) > 0) {
    }
    return *exitCode;
}
