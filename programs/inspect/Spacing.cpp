#include "Spacing.h"

#include "InputError.h"
#include "Measure.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/base/Point3D.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <tuple>

namespace {

double const noLimit = std::numeric_limits<double>::infinity();

/// The places of the vertices, each once, in an order that makes a shallow tree: files list them
/// along strips and rows, and once for each part of the mesh.
std::vector<Point3D> shuffledPlaces(Mesh const &mesh)
{
    std::vector<Point3D> points;
    points.reserve(static_cast<std::size_t>(mesh.vertices.size()));
    for (vectorC3d<double> const &v : mesh.vertices) {
        points.emplace_back(v);
    }
    auto const isBefore = [](Point3D const &a, Point3D const &b) {
        return std::make_tuple(a.x(), a.y(), a.z()) < std::make_tuple(b.x(), b.y(), b.z());
    };
    std::sort(points.begin(), points.end(), isBefore);
    points.erase(std::unique(points.begin(), points.end()), points.end());
    std::mt19937_64 random(1);
    for (std::size_t i = points.size(); i > 1; --i) {
        std::swap(points[i - 1], points[random() % i]);
    }
    return points;
}

/// Lowers each distance to that of the nearest point among those that stand before it.
template <typename Iterator, typename Distance>
void lowerToNearestBefore(Iterator begin, Iterator end, Distance distance)
{
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    for (Iterator p = begin; p != end; ++p, ++distance) {
        auto const nearest = lookup->findNearest(*p, *distance);
        if (nearest.second) {
            *distance = std::min(*distance, (nearest.first - *p).Length());
        }
        lookup->insert(*p);
    }
}

int const classCount = 40;

/// The class of a spacing when the classes between the smallest and the largest grow by a constant
/// factor; all in the first when the smallest is 0, for its square is too small for a number.
int classOf(double spacing, double smallest, double largest)
{
    if (!(smallest > 0.0 && spacing > smallest)) {
        return 0;
    }
    double const share = std::log(spacing / smallest) / std::log(largest / smallest);
    return std::min(static_cast<int>(share * classCount), classCount - 1);
}

} // namespace

std::vector<double> vertexSpacings(Mesh const &mesh)
{
    std::vector<Point3D> const points = shuffledPlaces(mesh);
    std::vector<double> spacings(points.size(), noLimit);
    if (points.size() < 2) {
        return {};
    }
    // The nearest other point stands before or behind: once along the list, once against it.
    lowerToNearestBefore(points.begin(), points.end(), spacings.begin());
    lowerToNearestBefore(points.rbegin(), points.rend(), spacings.rbegin());
    std::sort(spacings.begin(), spacings.end());
    return spacings;
}

Table spacingTable(std::vector<double> const &spacings)
{
    if (spacings.empty()) {
        return {};
    }
    return {{"smallest vertex spacing", numberText(spacings.front())},
            {"median vertex spacing", numberText(spacings[spacings.size() / 2])},
            {"largest vertex spacing", numberText(spacings.back())}};
}

std::string spacingPicture(std::vector<double> const &spacings)
{
    if (spacings.empty()) {
        return {};
    }
    double const smallest = spacings.front();
    double const largest = spacings.back();
    std::vector<int> counts(classCount, 0);
    for (double const s : spacings) {
        ++counts[static_cast<std::size_t>(classOf(s, smallest, largest))];
    }
    int const highest = *std::max_element(counts.begin(), counts.end());

    int const barWidth = 16;
    double const height = 200.0;
    std::ostringstream svg;
    svg << "<svg viewBox=\"0 0 " << classCount * barWidth + 40 << " 260\" font-size=\"11\" "
        << "style=\"max-width: 48rem\" font-family=\"sans-serif\">\n";
    for (int i = 0; i < classCount; ++i) {
        double const bar = height * counts[static_cast<std::size_t>(i)] / highest;
        if (bar > 0.0) {
            svg << "<rect x=\"" << 20 + i * barWidth << "\" y=\"" << numberText(225.0 - bar)
                << "\" width=\"" << barWidth - 1 << "\" height=\"" << numberText(bar)
                << "\" fill=\"#2a4b8d\"/>\n";
        }
    }
    int const right = 20 + classCount * barWidth;
    svg << "<path d=\"M20 225.5H" << right << "\" stroke=\"#555\"/>\n"
        << "<text x=\"20\" y=\"245\">" << numberText(smallest) << "</text>\n"
        << "<text x=\"" << right << "\" y=\"245\" text-anchor=\"end\">" << numberText(largest)
        << "</text>\n<text x=\"" << (20 + right) / 2
        << "\" y=\"245\" text-anchor=\"middle\">distance, logarithmic</text>\n<text x=\"" << right
        << "\" y=\"18\" text-anchor=\"end\">highest bar: " << highest
        << " vertices</text>\n</svg>\n";
    return svg.str();
}

Table nearestTable(Mesh const &mesh, std::string const &place)
{
    QStringList const parts = QString::fromStdString(place).split(QLatin1Char(','));
    double c[3] = {0.0, 0.0, 0.0};
    bool good = parts.size() == 3;
    for (int i = 0; i < 3 && good; ++i) {
        c[i] = parts[i].toDouble(&good);
        good = good && std::isfinite(c[i]);
    }
    if (!good) {
        throw InputError("--nearest wants X,Y,Z, three numbers, and not " + place);
    }
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    for (Point3D const &p : shuffledPlaces(mesh)) {
        lookup->insert(p);
    }
    Point3D const query(c[0], c[1], c[2]);
    Point3D const nearest = lookup->findNearest(query, noLimit).first;
    return {{"nearest vertex", numberText(nearest.x()) + ", " + numberText(nearest.y()) + ", " +
                                   numberText(nearest.z())},
            {"its distance", numberText((nearest - query).Length())}};
}
