#pragma once

/// @file
/// What all programs have in common on their command line.

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

/// Adds `--version`, and `--man-page` and `--bash-completion`, which print a manual page and a
/// completion script made from the options that the program has.
void addStandardOptions(CLI::App &app);

/// Parses the command line and runs `work`, which returns the exit code.
///
/// `--help`, `--version` and their like print to standard output and give 0. Wrong use and results
/// that can't be written give a line on standard error, and 2; so does memory that runs out.
/// InputError gives a line and 1.
int runProgram(CLI::App &app, int argc, char **argv, std::function<int()> const &work);

/// "NAME: TEXT" on standard error, below no bar.
void complain(std::string const &program, std::string const &text);
