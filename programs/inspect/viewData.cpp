#include "viewData.h"

#include <meshoptimizer.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr std::size_t stillTriangles = 2500;
constexpr double stillSize = 480.0; // pixels

// The axes of the page: x to the right, y away, z up.
Vector turned(Vector const &v, int up)
{
    switch (up) {
    case 0:
        return {v.y(), v.z(), v.x()};
    case 1:
        return {v.x(), -v.z(), v.y()};
    default:
        return v;
    }
}

// Maps the view's box into the unit ball, where single precision is enough for the eye.
class UnitFrame
{
public:
    explicit UnitFrame(View const &view)
        : m_middle(view.lowest * 0.5 + view.highest * 0.5)
        , m_radius((view.highest - view.lowest).length() / 2.0)
        , m_up(view.up)
    {
        if (!(m_radius > 0.0)) {
            m_radius = 1.0;
        }
    }
    Vector operator()(Vector const &v) const { return turned((v - m_middle) / m_radius, m_up); }
    double radius() const { return m_radius; }

private:
    Vector m_middle;
    double m_radius;
    int m_up;
};

template <typename T>
QString base64(std::vector<T> const &values)
{
    QByteArray const raw = QByteArray::fromRawData(reinterpret_cast<char const *>(values.data()),
                                                   int(values.size() * sizeof(T)));
    return QString::fromLatin1(raw.toBase64());
}

std::vector<float> coordinates(std::vector<Vector> const &vertices, UnitFrame const &frame)
{
    std::vector<float> out;
    out.reserve(3 * vertices.size());
    for (Vector const &v : vertices) {
        Vector const p = frame(v);
        out.insert(out.end(), {float(p.x()), float(p.y()), float(p.z())});
    }
    return out;
}

template <std::size_t n>
std::vector<unsigned> flat(std::vector<std::array<int, n>> const &tuples)
{
    std::vector<unsigned> out;
    out.reserve(n * tuples.size());
    for (auto const &tuple : tuples) {
        for (int const index : tuple) {
            out.push_back(unsigned(index));
        }
    }
    return out;
}

QJsonObject partJson(ViewPart const &part, UnitFrame const &frame)
{
    static char const *const styles[] = {"surface", "wire", "lines", "points"};
    QJsonObject json;
    json["name"] = QString::fromStdString(part.name);
    json["style"] = styles[int(part.style)];
    json["colour"] = QString::fromStdString(part.colour);
    json["on"] = part.isOn;
    json["places"] = base64(coordinates(part.vertices, frame));
    if (part.style == ViewPart::Style::lines) {
        json["indices"] = base64(flat(part.lines));
    } else if (part.style != ViewPart::Style::points) {
        json["indices"] = base64(flat(part.triangles));
    }
    return json;
}

// Only the vertices that `indices` names, renumbered in the order of their first use.
ViewPart compacted(ViewPart const &part, std::vector<unsigned> const &indices)
{
    ViewPart out = part;
    out.vertices.clear();
    out.triangles.resize(indices.size() / 3);
    std::vector<int> number(part.vertices.size(), -1);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        int &n = number[indices[i]];
        if (n < 0) {
            n = int(out.vertices.size());
            out.vertices.push_back(part.vertices[indices[i]]);
        }
        out.triangles[i / 3][i % 3] = n;
    }
    return out;
}

ViewPart thinnedPoints(ViewPart const &part, std::size_t most)
{
    ViewPart out = part;
    out.vertices.clear();
    std::size_t const step = part.vertices.size() / most + 1;
    for (std::size_t i = 0; i < part.vertices.size(); i += step) {
        out.vertices.push_back(part.vertices[i]);
    }
    return out;
}

struct ShadedTriangle
{
    double depth;
    std::string svg;
};

std::string pixel(double value)
{
    return QByteArray::number(value, 'f', 1).toStdString();
}

// Seen from the front, the right and above, in a parallel projection.
ShadedTriangle shaded(Corners const &c)
{
    static Vector const right = Vector(1.0, 1.0, 0.0) / std::sqrt(2.0);
    static Vector const eye = Vector(1.0, -1.0, 0.8) / std::sqrt(2.64);
    static Vector const up = eye.cross(right);
    ShadedTriangle out{0.0, "<path d=\"M"};
    for (std::size_t k = 0; k < 3; ++k) {
        out.depth += c[k].dot(eye);
        out.svg += (k > 0 ? "L" : "") + pixel(stillSize / 2.0 * (1.0 + c[k].dot(right))) + " " +
                   pixel(stillSize / 2.0 * (1.0 - c[k].dot(up)));
    }
    Vector const normal = (c[1] - c[0]).cross(c[2] - c[0]);
    double const length = normal.length();
    double const facing = length > 0.0 ? std::fabs(normal.dot(eye)) / length : 0.0;
    int const shade = 90 + int(130.0 * facing);
    std::string const colour = "rgb(" + std::to_string(shade - 20) + "," +
                               std::to_string(shade - 8) + "," + std::to_string(shade) + ")";
    out.svg += "z\" fill=\"" + colour + "\" stroke=\"" + colour + "\"/>\n";
    return out;
}

} // namespace

ViewPart decimated(ViewPart const &part, std::size_t most)
{
    if (part.style == ViewPart::Style::points) {
        return part.vertices.size() > most ? thinnedPoints(part, most) : part;
    }
    if (part.triangles.size() <= most) {
        return part;
    }
    std::vector<float> places;
    places.reserve(3 * part.vertices.size());
    for (Vector const &v : part.vertices) {
        Vector const p = v - part.vertices.front();
        places.insert(places.end(), {float(p.x()), float(p.y()), float(p.z())});
    }
    std::vector<unsigned> const indices = flat(part.triangles);
    std::vector<unsigned> kept(indices.size());
    kept.resize(meshopt_simplifySloppy(kept.data(), indices.data(), indices.size(), places.data(),
                                       part.vertices.size(), 3 * sizeof(float), 3 * most, 1.0f,
                                       nullptr));
    return compacted(part, kept);
}

QByteArray viewJson(View const &view)
{
    UnitFrame const frame(view);
    QJsonArray parts;
    for (ViewPart const &part : view.parts) {
        parts.append(partJson(part, frame));
    }
    QJsonObject json;
    json["radius"] = frame.radius();
    json["unit"] = QString::fromStdString(view.unit);
    json["parts"] = parts;
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

std::string stillPicture(View const &view)
{
    UnitFrame const frame(view);
    std::vector<ShadedTriangle> triangles;
    for (ViewPart const &whole : view.parts) {
        if (whole.style != ViewPart::Style::surface || !whole.isOn) {
            continue;
        }
        ViewPart const part = decimated(whole, stillTriangles);
        for (auto const &t : part.triangles) {
            triangles.push_back(shaded({frame(part.vertices[std::size_t(t[0])]),
                                        frame(part.vertices[std::size_t(t[1])]),
                                        frame(part.vertices[std::size_t(t[2])])}));
        }
    }
    std::stable_sort(
        triangles.begin(), triangles.end(),
        [](ShadedTriangle const &a, ShadedTriangle const &b) { return a.depth < b.depth; });
    std::string const size = pixel(stillSize);
    std::string svg = "<svg viewBox=\"0 0 " + size + " " + size +
                      "\" role=\"img\" aria-label=\"the mesh from a corner\" "
                      "stroke-width=\"0.4\" style=\"max-width:30rem\">\n";
    for (ShadedTriangle const &triangle : triangles) {
        svg += triangle.svg;
    }
    return svg + "</svg>";
}

std::vector<std::array<int, 2>> boxEdges()
{
    std::vector<std::array<int, 2>> edges;
    for (int corner = 0; corner < 8; ++corner) {
        for (int bit = 1; bit < 8; bit *= 2) {
            if ((corner & bit) == 0) {
                edges.push_back({corner, corner | bit});
            }
        }
    }
    return edges;
}
