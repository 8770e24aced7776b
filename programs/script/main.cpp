// Runs Ruby scripts on the script classes of OrvelMath.

#include "CommandLine.h"
#include "Interpreter.h"
#include "Interrupt.h"
#include "Outputs.h"
#include "memberPage.h"
#include "prompt.h"

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxymath.h>

#include <QtCore/QFile>

#include <csignal>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

struct Options
{
    std::vector<std::string> files;
    std::vector<std::string> expressions;
    QList<QByteArray> arguments;
    std::string pageExamples;
    unsigned seconds = 0;
    std::size_t megabytes = 0;

    std::size_t memory() const { return megabytes << 20; }
};

QByteArray contentsOf(std::string const &path)
{
    QFile file(QString::fromStdString(path));
    bool const opened =
        path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened) {
        throw std::runtime_error("cannot read " + path);
    }
    return file.readAll();
}

void stopAtTheTimeLimit(int)
{
    char const text[] = "orvel-script: stopped: the time is over\n";
    (void)!::write(STDERR_FILENO, text, sizeof text - 1);
    _exit(1);
}

/// Runs what was named one after the other in one interpreter, up to the first that fails or exits.
int runAll(Options const &options)
{
    std::signal(SIGALRM, stopAtTheTimeLimit);
    alarm(options.seconds);
    Interpreter interpreter(options.memory());
    interpreter.setArguments(options.arguments);
    std::vector<std::pair<QByteArray, QByteArray>> scripts; // name, text
    for (std::string const &expression : options.expressions) {
        scripts.emplace_back("-e", QByteArray::fromStdString(expression));
    }
    for (std::string const &path : options.files) {
        scripts.emplace_back(QByteArray::fromStdString(path), contentsOf(path));
    }
    for (auto const &[name, text] : scripts) {
        Interpreter::Outcome const outcome = interpreter.run(text, name);
        if (outcome.isExit) {
            return outcome.exitCode;
        }
        if (!outcome.ok) {
            std::fflush(stdout);
            std::fprintf(stderr, "%s\n", outcome.text.constData());
            return 1;
        }
    }
    return 0;
}

/// An object that outlives its interpreter has lost a reference on the way.
int checkNothingIsLeft(int exitCode)
{
    int const left = proxyObjectC::liveObjectCount();
    if (left == 0) {
        return exitCode;
    }
    std::fprintf(stderr, "%d objects are left\n", left);
    return 3;
}

int work(Options options)
{
    // The classes are known from here on; naming one keeps the library linked.
    prxMathFactoryC::getStaticProxyTypeInfo();
    mzComServerStateEventC::startServer();
    if (!options.pageExamples.empty()) {
        printOut(memberPage(contentsOf(options.pageExamples)));
        return checkNothingIsLeft(0);
    }
    if (options.files.empty() && options.expressions.empty()) {
        if (isatty(STDIN_FILENO) != 0) {
            return runPrompt({options.memory(), options.seconds});
        }
        options.files.emplace_back("-");
    }
    installInterrupt();
    return checkNothingIsLeft(runAll(options));
}

/// Cuts the words after "--" off, which are for the script.
QList<QByteArray> takeArguments(int &argc, char **argv)
{
    QList<QByteArray> arguments;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "--") {
            for (int k = i + 1; k < argc; ++k) {
                arguments.append(argv[k]);
            }
            argc = i;
        }
    }
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Runs Ruby scripts on the script classes of OrvelMath", "orvel-script");
    app.footer(
        "Without a script it is a prompt, or runs what comes from a pipe. Words after -- are\n"
        "the script's ARGV.\n\n"
        "Exit codes: 0 all is well, or what the script hands to exit; 1 a script failed; 2\n"
        "wrong use; 130 interrupted.");
    Options options;
    options.arguments = takeArguments(argc, argv);
    app.add_option("FILE", options.files,
                   "Scripts to run, in one interpreter; - for standard input");
    app.add_option("-e", options.expressions, "A line of script to run, before the files")
        ->type_name("SCRIPT")
        ->allow_extra_args(false);
    app.add_option("--time", options.seconds,
                   "Stop after so many seconds; at the prompt, each input")
        ->type_name("SECONDS");
    app.add_option("--memory", options.megabytes, "Let scripts hold so many MiB and no more")
        ->type_name("MIB");
    app.add_option("--page", options.pageExamples,
                   "Print the page of all members, from a file of examples")
        ->type_name("FILE");
    addStandardOptions(app);
    return runProgram(app, argc, argv, [&] { return work(options); });
}
