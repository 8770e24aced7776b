#include "Report.h"

#include <QtCore/QFile>
#include <QtCore/QString>

#include <stdexcept>

namespace {

QByteArray resource(char const *name)
{
    QFile file(QStringLiteral(":/orvel-inspect/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::logic_error(std::string("no such part of the page: ") + name);
    }
    return file.readAll();
}

QByteArray script(QByteArray const &text)
{
    return "<script>\n" + text + "\n</script>\n";
}

} // namespace

std::string escapedHtml(std::string const &text)
{
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

Report::Report(std::string title)
    : m_title(std::move(title))
{
}

void Report::addFacts(std::string const &heading, Facts const &facts)
{
    std::string html = "<table>\n";
    for (Fact const &fact : facts) {
        if (!fact.text.empty()) {
            html += "<tr><th scope=\"row\">" + escapedHtml(fact.label) + "</th><td>" +
                    escapedHtml(fact.text) + "</td></tr>\n";
        }
    }
    addSection(heading, html + "</table>\n");
}

void Report::addSection(std::string const &heading, std::string const &html)
{
    m_body += "<section>\n<h2>" + escapedHtml(heading) + "</h2>\n" + html + "</section>\n";
}

void Report::addView(std::string const &heading, QByteArray const &json, std::string const &still,
                     std::string const &note)
{
    m_view = json;
    addSection(heading,
               "<div id=\"view\" hidden tabindex=\"0\" role=\"application\" aria-label=\"" +
                   escapedHtml(heading) +
                   ", a view that turns: arrow keys turn, plus and minus zoom, "
                   "1 front, 2 side, 3 top, 0 from a corner\"></div>\n"
                   "<div id=\"controls\" hidden></div>\n<figure id=\"still\">" +
                   still +
                   "<figcaption>A still picture: the view that turns needs WebGL and scripts."
                   "</figcaption></figure>\n" +
                   (note.empty() ? "" : "<p>" + escapedHtml(note) + "</p>\n"));
}

QByteArray Report::html() const
{
    QByteArray page = resource("reportTemplate.html");
    page.replace("<!--title-->", QByteArray::fromStdString(escapedHtml(m_title)));
    QByteArray scripts;
    if (!m_view.isEmpty()) {
        scripts = script(resource("three.min.js")) + script(resource("OrbitControls.js")) +
                  script(resource("reportView.js") + "\norvelView(" + m_view + ");");
    }
    // The two large parts go in at once, so that nothing in them is taken for a mark.
    int const body = page.indexOf("<!--body-->");
    int const code = page.indexOf("<!--scripts-->");
    return page.left(body) + QByteArray::fromStdString(m_body) +
           page.mid(body + 11, code - body - 11) + scripts + page.mid(code + 14);
}
