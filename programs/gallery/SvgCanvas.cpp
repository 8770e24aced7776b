#include "SvgCanvas.h"
#include "SvgText.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace gallery {

namespace {

double const kMargin = 16.0;
double const kTitleHeight = 36.0;
double const kGap = 14.0;
double const kCaptionHeight = 38.0;
double const kLegendHeight = 26.0;

/// The colours of a theme: of text, ground, frames and halos, and of the roles.
struct Palette
{
    char const *ink;
    char const *ground;
    char const *frame;
    char const *soft;
    char const *roles[6]; ///< in the order of Role
};

constexpr Palette lightPalette{"#1f2a44",
                               "#ffffff",
                               "#d5dae3",
                               "#5d6678",
                               {"#2b4a7d", "#c8283c", "#8a93a6", "#00798c", "#c47f00", "#dfe3ea"}};
constexpr Palette darkPalette{"#e6e9ef",
                              "#161a22",
                              "#3a4252",
                              "#a9b3c6",
                              {"#8fb4ee", "#ff7a85", "#8a93a6", "#4cc3d6", "#f0b44a", "#333b49"}};

char const kShapes[] =
    R"(text { font-family: "DejaVu Sans", Verdana, Helvetica, Arial, sans-serif; font-size: 11px; }
.title { font-size: 16px; font-weight: bold; }
.caption { text-anchor: middle; }
path, ellipse { fill: none; stroke-linejoin: round; stroke-linecap: round; }
.frame { stroke-width: 1; }
.given { stroke-width: 1.6; }
.result { stroke-width: 2.2; }
.helper { stroke-width: 1; stroke-dasharray: 4 3; }
.accent { stroke-width: 2; }
.second { stroke-width: 2; }
.muted { stroke-width: 1; }
.dot, .fill { stroke-dasharray: none; }
.label { text-anchor: middle; stroke-width: 3; stroke-linejoin: round; stroke-dasharray: none;
         paint-order: stroke; }
)";

std::string colours(Palette const &palette)
{
    static constexpr Role roles[] = {Role::Given,  Role::Result, Role::Helper,
                                     Role::Accent, Role::Second, Role::Muted};
    std::string const ink = palette.ink;
    std::string const ground = palette.ground;
    std::string css = ".title, .caption, .legend { fill: " + ink +
                      "; }\n.ground { fill: " + ground + "; }\n.frame { fill: " + ground +
                      "; stroke: " + palette.frame + "; }\n";
    for (std::size_t i = 0; i < std::size(roles); ++i) {
        std::string const name = roleClass(roles[i]);
        // Grey lines may be faint; grey text and dots may not.
        bool const isGrey = roles[i] == Role::Helper || roles[i] == Role::Muted;
        std::string const strong = isGrey ? palette.soft : palette.roles[i];
        css += "." + name + " { stroke: " + palette.roles[i] + "; }\n.dot." + name + ", .fill." +
               name + ", .label." + name + " { fill: " + strong + "; }\n";
    }
    return css +
           ".dot, .fill, .dot.given, .dot.result, .dot.helper, .dot.accent, .dot.second, "
           ".dot.muted, .fill.given, .fill.result, .fill.helper, .fill.accent, .fill.second, "
           ".fill.muted { stroke: none; }\n"
           ".label.given, .label.result, .label.helper, .label.accent, .label.second, "
           ".label.muted { stroke: " +
           ground + "; stroke-width: 3; }\n";
}

std::string styleOf(Theme theme)
{
    std::string css = kShapes + colours(theme == Theme::Dark ? darkPalette : lightPalette);
    if (theme == Theme::System) {
        css += "@media (prefers-color-scheme: dark) {\n" + colours(darkPalette) + "}\n";
    }
    return "<style>\n" + css + "</style>\n";
}

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

std::string SvgCanvas::legendMark(Role role, double x, double y) const
{
    std::string drawn;
    for (auto const &panel : m_panels) {
        drawn += panel->svg();
    }
    std::string const name = roleClass(role);
    std::size_t const area = drawn.find("class=\"fill " + name + "\"");
    if (drawn.find("class=\"" + name + "\"") != std::string::npos) {
        return "<path class=\"" + name + "\" d=\"M" + svgNumber(x) + ' ' + svgNumber(y) +
               " h22\"/>\n";
    }
    if (area != std::string::npos) {
        std::size_t const opacity = drawn.find(" opacity=\"", area);
        std::size_t const end = drawn.find('"', opacity + 10);
        return "<rect class=\"fill " + name + '"' + attribute("x", x + 4.0) +
               attribute("y", y - 6.0) + " width=\"14\" height=\"12\"" +
               drawn.substr(opacity, end + 1 - opacity) + "/>\n";
    }
    return "<circle class=\"dot " + name + '"' + attribute("cx", x + 11.0) + attribute("cy", y) +
           " r=\"3\"/>\n";
}

std::string SvgCanvas::svg(Theme theme) const
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
    out += "<title>" + xmlEscaped(m_title) + "</title>\n" + styleOf(theme);
    out += "<rect class=\"ground\" width=\"100%\" height=\"100%\"/>\n";
    out += "<text class=\"title\"" + attribute("x", kMargin) + " y=\"24\">" + xmlEscaped(m_title) +
           "</text>\n";
    for (auto const &panel : m_panels) {
        out += panel->svg();
    }
    double x = kMargin;
    double const y = legendTop + 8.0;
    for (auto const &[role, text] : m_legend) {
        out += legendMark(role, x, y);
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
