#include "SvgCanvas.h"
#include "SvgText.h"

#include <algorithm>
#include <cmath>

namespace gallery {

namespace {

double const kMargin = 16.0;
double const kTitleHeight = 36.0;
double const kGap = 14.0;
double const kCaptionHeight = 38.0;
double const kLegendHeight = 26.0;

char const kStyle[] = R"(<style>
text { font-family: "DejaVu Sans", Verdana, Helvetica, Arial, sans-serif; font-size: 11px; }
.title { font-size: 16px; font-weight: bold; fill: #1f2a44; }
.caption { text-anchor: middle; fill: #1f2a44; }
.legend { fill: #1f2a44; }
.label { text-anchor: middle; stroke: #ffffff; stroke-width: 3; stroke-linejoin: round;
         paint-order: stroke; }
.frame { fill: #ffffff; stroke: #d5dae3; stroke-width: 1; }
path, ellipse { fill: none; stroke-linejoin: round; stroke-linecap: round; }
.given { stroke: #2b4a7d; stroke-width: 1.6; }
.result { stroke: #c8283c; stroke-width: 2.2; }
.helper { stroke: #8a93a6; stroke-width: 1; stroke-dasharray: 4 3; }
.accent { stroke: #00798c; stroke-width: 2; }
.second { stroke: #c47f00; stroke-width: 2; }
.muted { stroke: #dfe3ea; stroke-width: 1; }
.dot, .fill { stroke: none; stroke-dasharray: none; }
.dot.given, .fill.given, .label.given { fill: #2b4a7d; }
.dot.result, .fill.result, .label.result { fill: #c8283c; }
.dot.helper, .fill.helper, .label.helper { fill: #6b7487; }
.dot.accent, .fill.accent, .label.accent { fill: #00798c; }
.dot.second, .fill.second, .label.second { fill: #c47f00; }
.dot.muted, .fill.muted, .label.muted { fill: #c3c9d4; }
.label.given, .label.result, .label.helper, .label.accent, .label.second, .label.muted {
    stroke: #ffffff; stroke-width: 3; stroke-dasharray: none; }
</style>
)";

/// Estimated width, in pixels, of the longest line of a caption.
double widestLine(std::string const &caption)
{
    double const characterWidth = 6.2;
    double widest = 0.0;
    std::size_t begin = 0;
    while (begin <= caption.size()) {
        std::size_t const end = std::min(caption.find('\n', begin), caption.size());
        std::size_t const count = characterCount(caption.substr(begin, end - begin));
        widest = std::max(widest, characterWidth * static_cast<double>(count));
        begin = end + 1;
    }
    return widest;
}

} // namespace

char const *roleClass(Role role)
{
    switch (role) {
    case Role::Given:
        return "given";
    case Role::Result:
        return "result";
    case Role::Helper:
        return "helper";
    case Role::Accent:
        return "accent";
    case Role::Second:
        return "second";
    case Role::Muted:
        return "muted";
    }
    return "given";
}

SvgCanvas::SvgCanvas(std::string title)
    : m_title(std::move(title))
{
}

void SvgCanvas::layout(int columns, double panelWidth, double panelHeight)
{
    m_columns = columns;
    m_panelWidth = panelWidth;
    m_panelHeight = panelHeight;
}

Panel &SvgCanvas::panel(std::string const &caption, Bounds bounds, Scaling scaling)
{
    int const index = static_cast<int>(m_panels.size());
    int const column = index % m_columns;
    int const row = index / m_columns;
    Panel::Frame const frame{kMargin + column * (m_panelWidth + kGap),
                             kTitleHeight + row * (m_panelHeight + kCaptionHeight), m_panelWidth,
                             m_panelHeight};
    m_panels.emplace_back(new Panel(frame, caption, bounds, scaling, index));
    return *m_panels.back();
}

void SvgCanvas::legend(Role role, std::string const &text)
{
    m_legend.emplace_back(role, text);
}

std::string SvgCanvas::svg() const
{
    int const count = static_cast<int>(m_panels.size());
    int const columns = std::max(1, std::min(m_columns, count));
    int const rows = (count + m_columns - 1) / m_columns;
    double const width = 2 * kMargin + columns * m_panelWidth + (columns - 1) * kGap;
    double const legendTop = kTitleHeight + rows * (m_panelHeight + kCaptionHeight);
    double const height = legendTop + (m_legend.empty() ? 0.0 : kLegendHeight);

    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                      attribute("width", width) + attribute("height", height) + " viewBox=\"0 0 " +
                      svgNumber(width) + ' ' + svgNumber(height) + "\">\n";
    out += "<title>" + xmlEscaped(m_title) + "</title>\n" + kStyle;
    out += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
    out += "<text class=\"title\"" + attribute("x", kMargin) + " y=\"24\">" + xmlEscaped(m_title) +
           "</text>\n";
    for (auto const &panel : m_panels) {
        out += panel->svg();
    }
    double x = kMargin;
    double const y = legendTop + 8.0;
    for (auto const &[role, text] : m_legend) {
        out += std::string("<path class=\"") + roleClass(role) + "\" d=\"M" + svgNumber(x) + ' ' +
               svgNumber(y) + " h22\"/>\n";
        out += "<text class=\"legend\"" + attribute("x", x + 28.0) + attribute("y", y + 4.0) + '>' +
               xmlEscaped(text) + "</text>\n";
        x += 28.0 + 6.3 * static_cast<double>(characterCount(text)) + 18.0;
    }
    return out + "</svg>\n";
}

std::vector<std::string> SvgCanvas::labelFaults() const
{
    std::vector<std::string> faults;
    for (auto const &panel : m_panels) {
        std::vector<LabelBox> boxes;
        panel->placeLabels(boxes);
        Panel::Frame const &frame = panel->m_frame;
        if (widestLine(panel->m_caption) > frame.width + kGap) {
            faults.push_back("the caption \"" + panel->m_caption + "\" is wider than its panel");
        }
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            LabelBox const &box = boxes[i];
            if (box.left < frame.left || box.right > frame.left + frame.width ||
                box.top < frame.top || box.bottom > frame.top + frame.height) {
                faults.push_back('"' + box.text + "\" sticks out of \"" + panel->m_caption + '"');
            }
            for (std::size_t j = 0; j < i; ++j) {
                LabelBox const &other = boxes[j];
                if (box.left < other.right && other.left < box.right && box.top < other.bottom &&
                    other.top < box.bottom) {
                    faults.push_back('"' + box.text + "\" overlaps \"" + other.text + "\" in \"" +
                                     panel->m_caption + '"');
                }
            }
        }
    }
    return faults;
}

Axonometric::Axonometric(double azimuthDegrees, double elevationDegrees)
{
    double const radians = std::acos(-1.0) / 180.0;
    m_sinA = std::sin(azimuthDegrees * radians);
    m_cosA = std::cos(azimuthDegrees * radians);
    m_sinE = std::sin(elevationDegrees * radians);
    m_cosE = std::cos(elevationDegrees * radians);
}

Vec2 Axonometric::operator()(double x, double y, double z) const
{
    return {-m_sinA * x + m_cosA * y, -m_sinE * (m_cosA * x + m_sinA * y) + m_cosE * z};
}

double Axonometric::depth(double x, double y, double z) const
{
    return m_cosE * (m_cosA * x + m_sinA * y) + m_sinE * z;
}

} // namespace gallery
