#pragma once

/// @file
/// The page that shows what was found.

#include "Facts.h"

#include <QtCore/QByteArray>

#include <string>

/// Text with the characters that HTML gives a meaning replaced.
std::string escapedHtml(std::string const &text);

/// A self-contained page: tables, pictures and a view that turns; no network.
class Report
{
public:
    explicit Report(std::string title);

    void addFacts(std::string const &heading, Facts const &facts);
    /// A section of ready-made HTML, such as an inline SVG picture.
    void addSection(std::string const &heading, std::string const &html);
    /// The view in space; `json` is the argument of reportView.js, `still` a picture for where
    /// there is no WebGL. One a page.
    void addView(std::string const &heading, QByteArray const &json, std::string const &still,
                 std::string const &note);

    QByteArray html() const;

private:
    std::string m_title;
    std::string m_body;
    QByteArray m_view;
};
