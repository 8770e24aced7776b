#pragma once

/// @file
/// The figures that go to standard output.

#include "Facts.h"

#include <string>
#include <vector>

/// Prints facts as tables, as JSON or as CSV.
class Listing
{
public:
    enum class Form { table, json, csv, none };

    explicit Listing(Form form)
        : m_form(form)
    {
    }

    /// Prints what was found out about one mesh, below a heading in a table. CSV waits for `end`.
    void add(std::string const &heading, Facts const &facts);
    /// Prints that a mesh failed: an object with the fields `file` and `error`, a row, or nothing
    /// but the line on standard error.
    void addError(std::string const &file, std::string const &error);
    /// Prints what waits.
    void end();

private:
    Form m_form;
    std::vector<Facts> m_rows;
};
