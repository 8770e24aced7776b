#include "SlicePictures.h"

#include "Measure.h"
#include "Report.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr double pixels = 420.0; // along the longest extent
constexpr double margin = 12.0;

std::string rounded(double value)
{
    std::string text = std::to_string(value); // six decimals
    text.erase(text.size() - 4);
    return text;
}

struct Slice
{
    int normal;
    int right;
    int up;
    char const *caption;
};

constexpr Slice slices[] = {{0, 1, 2, "across x (y to the right, z up)"},
                            {1, 0, 2, "across y (x to the right, z up)"},
                            {2, 0, 1, "across z (x to the right, y up)"}};

std::string pictureOf(Slice const &slice, std::vector<SliceCell> const &cells,
                      std::vector<SliceKind> const &kinds, Box const &content)
{
    vectorC3d<double> const extent = content.second - content.first;
    double const scale = pixels / std::max({extent.x(), extent.y(), extent.z()});
    double const at = (content.first[slice.normal] + content.second[slice.normal]) * 0.5;
    double const width = scale * extent[slice.right] + 2.0 * margin;
    double const height = scale * extent[slice.up] + 2.0 * margin;

    // One path a kind: shapes that share their attributes.
    std::vector<std::string> paths(kinds.size());
    for (SliceCell const &cell : cells) {
        if (!(cell.bounds.first[slice.normal] <= at && at < cell.bounds.second[slice.normal])) {
            continue;
        }
        vectorC3d<double> const low = (cell.bounds.first - content.first) * scale;
        vectorC3d<double> const size = (cell.bounds.second - cell.bounds.first) * scale;
        double const top = height - margin - low[slice.up] - size[slice.up];
        paths[std::size_t(cell.kind)] += "M" + rounded(margin + low[slice.right]) + " " +
                                         rounded(top) + "h" + rounded(size[slice.right]) + "v" +
                                         rounded(size[slice.up]) + "h" +
                                         rounded(-size[slice.right]) + "z";
    }
    std::string svg = "<figure><svg viewBox=\"0 0 " + rounded(width) + " " + rounded(height) +
                      "\" role=\"img\" aria-label=\"slice " + slice.caption + "\">\n";
    for (std::size_t k = 0; k < kinds.size(); ++k) {
        svg += "<path class=\"kind" + std::to_string(k) + "\" fill=\"" + kinds[k].colour +
               "\" stroke=\"#fff\" stroke-width=\"0.2\" d=\"" + paths[k] + "\"/>\n";
    }
    return svg + "</svg><figcaption>" + slice.caption + ", at " + numberText(at) +
           "</figcaption></figure>\n";
}

} // namespace

std::string slicePictures(std::vector<SliceCell> const &cells, std::vector<SliceKind> const &kinds,
                          Box const &content)
{
    std::string html = "<p>";
    for (SliceKind const &kind : kinds) {
        html += "<svg style=\"width:1em;height:1em;border:0\" viewBox=\"0 0 1 1\">"
                "<rect width=\"1\" height=\"1\" fill=\"" +
                kind.colour + "\"/></svg> " + escapedHtml(kind.name) + " &#160; ";
    }
    html += "</p>\n<div class=\"views\">\n";
    for (Slice const &slice : slices) {
        html += pictureOf(slice, cells, kinds, content);
    }
    return html + "</div>\n";
}
