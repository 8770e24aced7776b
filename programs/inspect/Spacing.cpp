#include "Spacing.h"

#include "Measure.h"
#include "errors.h"

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
    points.reserve(mesh.vertices.size());
    for (Vector const &v : mesh.vertices) {
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

constexpr std::size_t allUpTo = 200000;
constexpr std::size_t sampleSize = 50000;

/// Lowers the distance of each point behind `first` to that of the nearest point among those that
/// stand before it.
template <typename Iterator>
void lowerToNearestBefore(Iterator begin, Iterator end, std::size_t first,
                          std::vector<double> &distances, bool backwards)
{
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    std::size_t const count = std::size_t(end - begin);
    for (std::size_t i = 0; i < count; ++i) {
        Point3D const &p = begin[std::ptrdiff_t(i)];
        if (i >= first) {
            double &distance = distances[backwards ? count - 1 - i : i - first];
            auto const nearest = lookup->findNearest(p, distance);
            if (nearest.second) {
                distance = std::min(distance, (nearest.first - p).Length());
            }
        }
        lookup->insert(p);
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

Spacings vertexSpacings(Mesh const &mesh, Progress &progress)
{
    std::vector<Point3D> const points = shuffledPlaces(mesh);
    Spacings spacings;
    spacings.places = points.size();
    if (points.size() < 2) {
        return spacings;
    }
    // The nearest other point of those at the end of the list stands before them all, or is one of
    // them: once along the list, once against it.
    std::size_t const asked = points.size() > allUpTo ? sampleSize : points.size();
    std::vector<double> &distances = spacings.sorted;
    distances.assign(asked, noLimit);
    lowerToNearestBefore(points.begin(), points.end(), points.size() - asked, distances, false);
    progress.show(0.7);
    lowerToNearestBefore(points.rbegin(), points.rbegin() + std::ptrdiff_t(asked), 0, distances,
                         true);
    std::sort(distances.begin(), distances.end());
    return spacings;
}

Facts spacingFacts(Spacings const &spacings)
{
    std::vector<double> const &sorted = spacings.sorted;
    if (sorted.empty()) {
        return {};
    }
    Facts facts{numberFact("smallestSpacing", "smallest vertex spacing", sorted.front()),
                numberFact("medianSpacing", "median vertex spacing", sorted[sorted.size() / 2]),
                numberFact("largestSpacing", "largest vertex spacing", sorted.back())};
    if (sorted.size() < spacings.places) {
        facts.push_back(countFact("spacingSample", "spacings measured", sorted.size()));
        facts.back().text += " of " + std::to_string(spacings.places) + ", drawn at random";
    }
    return facts;
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

    // The texts stand beside the picture, where they keep their size on a small screen.
    int const barWidth = 16;
    double const height = 200.0;
    std::ostringstream svg;
    svg << "<div class=\"histogram\">\n<svg viewBox=\"0 0 " << classCount * barWidth
        << " 202\" role=\"img\" aria-label=\"how many vertices have which distance\">\n";
    for (int i = 0; i < classCount; ++i) {
        double const bar = height * counts[static_cast<std::size_t>(i)] / highest;
        if (bar > 0.0) {
            svg << "<rect class=\"bar\" x=\"" << i * barWidth << "\" y=\""
                << numberText(height - bar) << "\" width=\"" << barWidth - 1 << "\" height=\""
                << numberText(bar) << "\"/>\n";
        }
    }
    svg << "<path class=\"axis\" d=\"M0 201H" << classCount * barWidth << "\"/>\n</svg>\n<p><span>"
        << numberText(smallest) << "</span><span>distance, logarithmic</span><span>"
        << numberText(largest) << "</span></p>\n<p>highest bar: " << highest
        << " vertices</p>\n</div>\n";
    return svg.str();
}

Vector placeOf(std::string const &text)
{
    QStringList const parts = QString::fromStdString(text).split(QLatin1Char(','));
    Vector place;
    bool good = parts.size() == 3;
    for (int i = 0; i < 3 && good; ++i) {
        place[i] = parts[i].toDouble(&good);
        good = good && std::isfinite(place[i]);
    }
    if (!good) {
        throw UsageError("--nearest wants X,Y,Z, three numbers, and not " + text);
    }
    return place;
}

Facts nearestFacts(Mesh const &mesh, std::string const &place)
{
    if (place.empty()) {
        return {};
    }
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    for (Point3D const &p : shuffledPlaces(mesh)) {
        lookup->insert(p);
    }
    Point3D const query(placeOf(place));
    Point3D const nearest = lookup->findNearest(query, noLimit).first;
    return {numbersFact("nearestVertex", "nearest vertex", {nearest.x(), nearest.y(), nearest.z()}),
            numberFact("nearestDistance", "its distance", (nearest - query).Length())};
}
