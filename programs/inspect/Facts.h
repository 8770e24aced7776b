#pragma once

/// @file
/// What the program finds out, in one list for the eye, for JSON and for tables.

#include <QtCore/QByteArray>
#include <QtCore/QJsonValue>

#include <string>
#include <utility>
#include <vector>

/// One thing that was found out.
struct Fact
{
    std::string key;   ///< stable name in JSON and CSV; docs/inspect-json.md lists them
    std::string label; ///< for a person
    QJsonValue value;  ///< for a program
    std::string text;  ///< for a person; a fact without one is for programs alone
};

using Facts = std::vector<Fact>;

Fact textFact(std::string const &key, std::string const &label, std::string const &text);
Fact countFact(std::string const &key, std::string const &label, std::size_t count);
/// A number with seven significant digits in its text, and `unit` after it.
Fact numberFact(std::string const &key, std::string const &label, double value,
                std::string const &unit = {});
/// Three numbers or more, parted by `separator` in the text.
Fact numbersFact(std::string const &key, std::string const &label,
                 std::vector<double> const &values, std::string const &separator = ", ",
                 std::string const &unit = {});

/// Rows "label  text" with the texts in one column.
QByteArray tableText(Facts const &facts);
/// One object on one line.
QByteArray jsonLine(Facts const &facts);
/// The values of all `rows` with the keys of all as the first line (RFC 4180); a list of numbers is
/// one field, parted by blanks; what a row has no value for is empty.
QByteArray csvText(std::vector<Facts> const &rows);
