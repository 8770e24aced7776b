#include "Interpreter.h"
#include "memberPage.h"
#include "prompt.h"

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxymath.h>

#include <QtCore/QFile>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

QByteArray contentsOf(std::string const &path)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path);
    }
    return file.readAll();
}

/// Runs the files one after the other in one interpreter, up to the first that fails.
int runFiles(std::vector<std::string> const &paths)
{
    Interpreter interpreter;
    for (std::string const &path : paths) {
        Interpreter::Outcome const outcome =
            interpreter.run(contentsOf(path), QByteArray::fromStdString(path));
        if (!outcome.ok) {
            std::fprintf(stderr, "%s\n", outcome.text.constData());
            return 1;
        }
    }
    return 0;
}

int runInput()
{
    Interpreter interpreter;
    return runPrompt(interpreter);
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

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Runs Ruby scripts on the script classes of OrvelMath.");
    std::vector<std::string> files;
    std::string pageExamples;
    app.add_option("FILE", files, "Scripts to run, in one interpreter; without one, a prompt");
    app.add_option("--page", pageExamples,
                   "Print the page of all members, from a file of examples");
    CLI11_PARSE(app, argc, argv);

    // The classes are known from here on; naming one keeps the library linked.
    prxMathFactoryC::getStaticProxyTypeInfo();
    mzComServerStateEventC::startServer();
    int exitCode = 0;
    try {
        if (!pageExamples.empty()) {
            std::fputs(memberPage(contentsOf(pageExamples)).constData(), stdout);
        } else {
            exitCode = files.empty() ? runInput() : runFiles(files);
        }
    } catch (std::exception const &error) {
        std::fprintf(stderr, "orvel-script: %s\n", error.what());
        exitCode = 2;
    }
    return checkNothingIsLeft(exitCode);
}
