#pragma once

/// @file
/// Manual pages and completion scripts, made from the options that a program has.

#include <CLI/CLI.hpp>

#include <string>

/// A manual page for section 1, in roff: name, use, options, commands, and the program's footer.
std::string manualPage(CLI::App const &app);

/// A script for bash: completes options, commands and, where neither is begun, files.
std::string bashCompletion(CLI::App const &app);
