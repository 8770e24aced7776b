#include "SlicePictures.h"

#include "Measure.h"
#include "Report.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

constexpr double pixels = 420.0; // along the longest extent
constexpr double margin = 12.0;

std::string rounded(double value)
{
    std::string text = std::to_string(value); // six decimals
    text.erase(text.size() - 4);
    return text;
}

// A plane across the axis `normal`, seen with the axes `right` and `up`.
struct Slice
{
    int normal;
    int right;
    int up;

    std::string caption() const
    {
        std::string const axes = "xyz";
        return "across " + axes.substr(std::size_t(normal), 1) + " (" +
               axes.substr(std::size_t(right), 1) + " to the right, " +
               axes.substr(std::size_t(up), 1) + " up)";
    }
};

// With z upwards: x, y and z are the normals. Else the axes change their roles.
std::array<Slice, 3> slicesFor(int up)
{
    int const first = up == 0 ? 1 : 0;
    int const second = up == 2 ? 1 : 2;
    return {Slice{first, second, up}, Slice{second, first, up}, Slice{up, first, second}};
}

// Where there is something to see: of 31 places, the one with most cells of the rarer kinds.
double placeOf(Slice const &slice, std::vector<SliceCell> const &cells, Box const &content)
{
    constexpr int places = 31;
    double const low = content.first[slice.normal];
    double const high = content.second[slice.normal];
    auto const at = [&](int i) { return low + (high - low) * (double(i) + 0.5) / places; };
    std::map<int, std::array<std::size_t, places>> counts;
    std::map<int, std::size_t> sums;
    for (SliceCell const &cell : cells) {
        ++sums[cell.kind];
        for (int i = 0; i < places; ++i) {
            bool const isCrossed = cell.bounds.first[slice.normal] <= at(i) &&
                                   at(i) < cell.bounds.second[slice.normal];
            counts[cell.kind][std::size_t(i)] += isCrossed ? 1 : 0;
        }
    }
    auto const commonest = std::max_element(
        sums.begin(), sums.end(), [](auto const &a, auto const &b) { return a.second < b.second; });
    int best = places / 2;
    std::size_t most = 0;
    for (int k = 0; k < places; ++k) {
        int const i = places / 2 + (k % 2 != 0 ? (k + 1) / 2 : -k / 2);
        std::size_t rare = 0;
        for (auto const &[kind, count] : counts) {
            rare += sums.size() > 1 && kind == commonest->first ? 0 : count[std::size_t(i)];
        }
        if (rare > most) {
            most = rare;
            best = i;
        }
    }
    return at(best);
}

struct Picture
{
    double width;
    double height;
    std::string body;
    std::string caption;
};

Picture pictureOf(Slice const &slice, std::vector<SliceCell> const &cells,
                  std::vector<SliceKind> const &kinds, Box const &content)
{
    Vector const extent = content.second - content.first;
    double const scale = pixels / std::max({extent.x(), extent.y(), extent.z()});
    double const at = placeOf(slice, cells, content);
    Picture picture{scale * extent[slice.right] + 2.0 * margin,
                    scale * extent[slice.up] + 2.0 * margin, "",
                    slice.caption() + ", at " + numberText(at)};

    // One path a kind: shapes that share their attributes.
    std::vector<std::string> paths(kinds.size());
    for (SliceCell const &cell : cells) {
        if (!(cell.bounds.first[slice.normal] <= at && at < cell.bounds.second[slice.normal])) {
            continue;
        }
        Vector const low = (cell.bounds.first - content.first) * scale;
        Vector const size = (cell.bounds.second - cell.bounds.first) * scale;
        double const top = picture.height - margin - low[slice.up] - size[slice.up];
        paths[std::size_t(cell.kind)] += "M" + rounded(margin + low[slice.right]) + " " +
                                         rounded(top) + "h" + rounded(size[slice.right]) + "v" +
                                         rounded(size[slice.up]) + "h" +
                                         rounded(-size[slice.right]) + "z";
    }
    for (std::size_t k = 0; k < kinds.size(); ++k) {
        picture.body += "<path class=\"kind" + std::to_string(k) + "\" fill=\"" + kinds[k].colour +
                        "\" stroke=\"#fff\" stroke-width=\"0.2\" d=\"" + paths[k] + "\"/>\n";
    }
    return picture;
}

} // namespace

std::string slicePictures(std::vector<SliceCell> const &cells, std::vector<SliceKind> const &kinds,
                          Box const &content, int up)
{
    std::string html = "<p>";
    for (SliceKind const &kind : kinds) {
        html += "<svg style=\"width:1em;height:1em\" viewBox=\"0 0 1 1\" aria-hidden=\"true\">"
                "<rect width=\"1\" height=\"1\" fill=\"" +
                kind.colour + "\"/></svg> " + escapedHtml(kind.name) + " &#160; ";
    }
    html += "</p>\n<div class=\"views\">\n";
    for (Slice const &slice : slicesFor(up)) {
        Picture const picture = pictureOf(slice, cells, kinds, content);
        html += "<figure><svg viewBox=\"0 0 " + rounded(picture.width) + " " +
                rounded(picture.height) + "\" role=\"img\" aria-label=\"slice " + picture.caption +
                "\">\n" + picture.body + "</svg><figcaption>" + picture.caption +
                "</figcaption></figure>\n";
    }
    return html + "</div>\n";
}

std::string sliceDocument(std::vector<SliceCell> const &cells, std::vector<SliceKind> const &kinds,
                          Box const &content, int up)
{
    constexpr double textHeight = 24.0;
    std::string body;
    double width = 0.0;
    double height = 0.0;
    for (Slice const &slice : slicesFor(up)) {
        Picture const picture = pictureOf(slice, cells, kinds, content);
        body += "<g transform=\"translate(" + rounded(width) + " 0)\">\n" + picture.body +
                "<text x=\"" + rounded(margin) + "\" y=\"" +
                rounded(picture.height + textHeight / 2.0) +
                "\" font-family=\"sans-serif\" font-size=\"12\">" + picture.caption +
                "</text>\n</g>\n";
        width += std::max(picture.width, 320.0);
        height = std::max(height, picture.height + textHeight);
    }
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + rounded(width) + "\" height=\"" +
           rounded(height) + "\" viewBox=\"0 0 " + rounded(width) + " " + rounded(height) +
           "\">\n<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n" + body + "</svg>\n";
}
