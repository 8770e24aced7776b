#include "CommandLine.h"

#include "Outputs.h"
#include "Progress.h"
#include "errors.h"
#include "manual.h"

#include <csignal>
#include <cstdio>
#include <new>

namespace {

// Ends the parsing with a text for standard output.
struct PrintAndEnd : CLI::Success
{
    explicit PrintAndEnd(std::string const &text)
        : CLI::Success("PrintAndEnd", text, CLI::ExitCodes::Success)
    {
    }
};

// Parses; true when the program is to go on.
bool parses(CLI::App &app, int argc, char **argv)
{
    try {
        app.parse(argc, argv);
        return true;
    } catch (CLI::CallForHelp const &) {
        CLI::App const *asked = &app;
        while (!asked->get_subcommands().empty()) {
            asked = asked->get_subcommands().front();
        }
        printOut(QByteArray::fromStdString(asked->help()));
    } catch (CLI::CallForVersion const &version) {
        printOut(QByteArray(version.what()) + QByteArray("\n"));
    } catch (PrintAndEnd const &end) {
        printOut(end.what());
    }
    return false;
}

} // namespace

void addStandardOptions(CLI::App &app)
{
    app.set_version_flag("--version", app.get_name() + " " ORVELMATH_VERSION);
    app.get_option("--version")->description("Print the version and exit");
    app.get_option("--help")->description("Print this help and exit");
    app.add_flag_callback(
           "--man-page", [&app] { throw PrintAndEnd(manualPage(app)); },
           "Print the manual page (roff) and exit")
        ->trigger_on_parse()
        ->group("Installation");
    app.add_flag_callback(
           "--bash-completion", [&app] { throw PrintAndEnd(bashCompletion(app)); },
           "Print the completion script for bash and exit")
        ->trigger_on_parse()
        ->group("Installation");
}

void complain(std::string const &program, std::string const &text)
{
    Progress::erase();
    std::fprintf(stderr, "%s: %s\n", program.c_str(), text.c_str());
}

int runProgram(CLI::App &app, int argc, char **argv, std::function<int()> const &work)
{
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is an error that can be reported
    try {
        return parses(app, argc, argv) ? work() : 0;
    } catch (InputError const &error) {
        complain(app.get_name(), error.what());
        return 1;
    } catch (std::bad_alloc const &) {
        complain(app.get_name(), "not enough memory");
    } catch (std::exception const &error) {
        complain(app.get_name(), error.what());
    }
    return 2;
}
