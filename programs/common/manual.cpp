#include "manual.h"

#include <algorithm>
#include <cctype>

namespace {

// Text for roff: a hyphen that is one, and no line that begins with a control character.
std::string roff(std::string const &text)
{
    std::string out;
    for (char const c : text) {
        if (c == '\\') {
            out += "\\e";
        } else if (c == '-') {
            out += "\\-";
        } else if ((c == '.' || c == '\'') && (out.empty() || out.back() == '\n')) {
            out += "\\&";
            out += c;
        } else {
            out += c;
        }
    }
    return out;
}

std::string upper(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return char(std::toupper(c)); });
    return text;
}

// "--slices PATH", or the name of a positional argument.
std::string usageOf(CLI::Option const &option)
{
    if (option.get_positional()) {
        return "\\fI" + roff(option.get_name(true, false)) + "\\fR";
    }
    std::string text = "\\fB" + roff(option.get_name(false, true)) + "\\fR";
    if (option.get_items_expected_max() > 0 && !option.get_type_name().empty()) {
        text += " \\fI" + roff(option.get_type_name()) + "\\fR";
    }
    return text;
}

std::string optionsText(CLI::App const &app)
{
    std::string text;
    for (CLI::Option const *option : app.get_options()) {
        text += ".TP\n" + usageOf(*option) + "\n" + roff(option->get_description());
        if (!option->get_default_str().empty()) {
            text += " (default: " + roff(option->get_default_str()) + ")";
        }
        text += "\n";
    }
    return text;
}

std::string synopsisOf(CLI::App const &app, std::string const &name)
{
    std::string text = ".B " + roff(name) + "\n[\\fIOPTIONS\\fR]";
    for (CLI::Option const *option : app.get_options()) {
        if (option->get_positional()) {
            std::string const argument = roff(option->get_name(true, false));
            bool const many = option->get_items_expected_max() > 1;
            text += " \\fI" + argument + "\\fR" + (many ? "..." : "");
        }
    }
    return text + "\n";
}

std::vector<CLI::App const *> commandsOf(CLI::App const &app)
{
    return app.get_subcommands(nullptr);
}

std::string words(CLI::App const &app)
{
    std::string text;
    for (CLI::Option const *option : app.get_options()) {
        for (std::string const &name : option->get_lnames()) {
            text += " --" + name;
        }
    }
    return text;
}

// A name that bash takes for a function.
std::string functionName(std::string const &program)
{
    std::string name = "_" + program;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace

std::string manualPage(CLI::App const &app)
{
    std::string const name = app.get_name();
    std::string text = ".TH " + upper(roff(name)) +
                       " 1 \"\" \"OrvelMath " ORVELMATH_VERSION "\" \"User Commands\"\n.SH NAME\n" +
                       roff(name) + " \\- " + roff(app.get_description()) + "\n.SH SYNOPSIS\n" +
                       synopsisOf(app, name);
    for (CLI::App const *command : commandsOf(app)) {
        text += ".br\n" + synopsisOf(*command, name + " " + command->get_name());
    }
    text += ".SH OPTIONS\n" + optionsText(app);
    if (!commandsOf(app).empty()) {
        text += ".SH COMMANDS\n";
    }
    for (CLI::App const *command : commandsOf(app)) {
        text += ".SS " + roff(command->get_name()) + "\n" + roff(command->get_description()) +
                ".\n" + optionsText(*command);
    }
    if (!app.get_footer().empty()) {
        text += ".SH NOTES\n.nf\n" + roff(app.get_footer()) + "\n.fi\n";
    }
    return text;
}

std::string bashCompletion(CLI::App const &app)
{
    std::string const name = app.get_name();
    std::string const function = functionName(name);
    std::string names;
    std::string cases;
    for (CLI::App const *command : commandsOf(app)) {
        names += " " + command->get_name();
        cases += "        " + command->get_name() + ") words=\"" + words(*command) + "\" ;;\n";
    }
    return "# Completion of " + name + " for bash.\n" + function +
           "()\n{\n    local word=${COMP_WORDS[COMP_CWORD]} words\n"
           "    case ${COMP_WORDS[1]} in\n" +
           cases + "        *) words=\"" + words(app) +
           "\" ;;\n    esac\n    COMPREPLY=()\n    if [[ $word == -* ]]; then\n"
           "        COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
           "    elif ((COMP_CWORD == 1)); then\n        COMPREPLY=($(compgen -W \"" +
           names + "\" -- \"$word\"))\n    fi\n}\ncomplete -o bashdefault -o default -F " +
           function + " " + name + "\n";
}
