#pragma once

#include "Mesh.h"

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

/// The page's frame, compiled in from reportTemplate.html.
extern char const *const reportTemplate;

/// Rows of a table: what was measured and its value as text.
using Table = std::vector<std::pair<std::string, std::string>>;

/// Prints a table with its values in one column.
void printTable(std::ostream &out, Table const &table);

/// Text with the characters that HTML gives a meaning replaced.
std::string escapedHtml(std::string const &text);

/// A self-contained page: tables, pictures and sections, no network.
class Report
{
public:
    explicit Report(std::string title);

    void addTable(std::string const &heading, Table const &table);
    /// A section of ready-made HTML, such as an inline SVG picture.
    void addSection(std::string const &heading, std::string const &html);
    /// Three views and one that the mouse turns, of a mesh and the wire frame over it.
    ///
    /// Of meshes beyond a few hundred thousand triangles only the largest triangles are embedded;
    /// the page says so.
    void addViews(Mesh const &mesh, std::vector<std::array<vectorC3d<double>, 3>> const &wire);

    /// Writes the page aside and renames it when it is complete, so that there is never half a
    /// page. Throws InputError when that fails.
    void write(std::string const &path) const;

private:
    std::string m_title;
    std::string m_body;
    std::string m_script;
};
