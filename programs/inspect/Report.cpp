#include "Report.h"

#include "InputError.h"

#include <QtCore/QByteArray>
#include <QtCore/QSaveFile>
#include <QtCore/QString>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <ostream>

namespace {

constexpr std::size_t mostTrianglesShown = 300000;

std::string replaced(std::string text, std::string const &mark, std::string const &value)
{
    std::size_t const at = text.find(mark);
    return at == std::string::npos ? text : text.replace(at, mark.size(), value);
}

template <typename T>
std::string base64(std::vector<T> const &values)
{
    QByteArray const raw = QByteArray::fromRawData(reinterpret_cast<char const *>(values.data()),
                                                   int(values.size() * sizeof(T)));
    return raw.toBase64().toStdString();
}

// Coordinates relative to the middle of the mesh and scaled to a unit, so that single precision is
// enough for the eye.
class Normalised
{
public:
    explicit Normalised(Mesh const &mesh)
        : m_middle((mesh.lowest + mesh.highest) / 2.0)
        , m_scale((mesh.highest - mesh.lowest).length() / 2.0)
    {
        if (!(m_scale > 0.0)) {
            m_scale = 1.0;
        }
    }
    void append(std::vector<float> &out, vectorC3d<double> const &v) const
    {
        vectorC3d<double> const p = (v - m_middle) / m_scale;
        for (int axis = 0; axis < 3; ++axis) {
            out.push_back(float(p[axis]));
        }
    }

private:
    vectorC3d<double> m_middle;
    double m_scale;
};

// Squared double area.
double sizeOf(Mesh const &mesh, std::array<int, 3> const &t)
{
    vectorC3d<double> const a = mesh.vertices.at(t[0]);
    return (mesh.vertices.at(t[1]) - a).cross(mesh.vertices.at(t[2]) - a).squaredLength();
}

// The triangles to be shown: all, or the largest ones in the order of the file.
std::vector<std::size_t> shownTriangles(Mesh const &mesh)
{
    std::vector<std::size_t> shown(mesh.triangles.size());
    std::iota(shown.begin(), shown.end(), std::size_t(0));
    if (shown.size() > mostTrianglesShown) {
        std::vector<double> sizes;
        for (auto const &t : mesh.triangles) {
            sizes.push_back(sizeOf(mesh, t));
        }
        auto const cut = shown.begin() + std::ptrdiff_t(mostTrianglesShown);
        std::nth_element(shown.begin(), cut, shown.end(), [&](std::size_t a, std::size_t b) {
            return sizes[a] != sizes[b] ? sizes[a] > sizes[b] : a < b;
        });
        shown.erase(cut, shown.end());
        std::sort(shown.begin(), shown.end());
    }
    return shown;
}

} // namespace

void printTable(std::ostream &out, Table const &table)
{
    std::size_t width = 0;
    for (auto const &row : table) {
        width = std::max(width, row.first.size());
    }
    for (auto const &[name, value] : table) {
        out << "  " << name << std::string(width + 2 - name.size(), ' ') << value << '\n';
    }
}

std::string escapedHtml(std::string const &text)
{
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

Report::Report(std::string title)
    : m_title(std::move(title))
{
}

void Report::addTable(std::string const &heading, Table const &table)
{
    std::string html = "<table>\n";
    for (auto const &[name, value] : table) {
        html += "<tr><th>" + escapedHtml(name) + "</th><td>" + escapedHtml(value) + "</td></tr>\n";
    }
    addSection(heading, html + "</table>\n");
}

void Report::addSection(std::string const &heading, std::string const &html)
{
    m_body += "<section>\n<h2>" + escapedHtml(heading) + "</h2>\n" + html + "</section>\n";
}

void Report::addViews(Mesh const &mesh, std::vector<std::array<vectorC3d<double>, 3>> const &wire)
{
    Normalised const normalised(mesh);
    std::vector<float> corners;
    std::vector<std::size_t> const shown = shownTriangles(mesh);
    for (std::size_t i : shown) {
        for (int corner : mesh.triangles[i]) {
            normalised.append(corners, mesh.vertices.at(corner));
        }
    }
    std::vector<float> wireCorners;
    for (auto const &triangle : wire) {
        for (auto const &corner : triangle) {
            normalised.append(wireCorners, corner);
        }
    }
    std::string html = "<div class=\"views\">\n";
    for (char const *const view : {"front", "side", "top", "turn"}) {
        html += std::string("<figure><canvas data-view=\"") + view +
                "\" width=\"640\" height=\"480\"></canvas><figcaption></figcaption></figure>\n";
    }
    html += "</div>\n<p>Grey: the mesh. Red: its convex hull. Drag the last picture to turn it, "
            "roll the wheel to come nearer.</p>\n";
    if (shown.size() < mesh.triangles.size()) {
        html += "<p>Shown are the " + std::to_string(shown.size()) + " largest of " +
                std::to_string(mesh.triangles.size()) + " triangles.</p>\n";
    }
    addSection("Mesh and hull", html);
    m_script = "drawViews(\"" + base64(corners) + "\", \"" + base64(wireCorners) + "\");";
}

void Report::write(std::string const &path) const
{
    std::string page = reportTemplate;
    page = replaced(page, "<!--title-->", escapedHtml(m_title));
    page = replaced(page, "<!--heading-->", escapedHtml(m_title));
    page = replaced(page, "<!--body-->", m_body);
    page = replaced(page, "/*views*/", m_script);

    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(page.data(), qint64(page.size())) < 0 ||
        !file.commit()) {
        throw InputError(path + ": " + file.errorString().toStdString());
    }
}
