#include "SvgCanvas.h"
#include "SvgText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace gallery {

namespace {

std::string pair(Vec2 v)
{
    return svgNumber(v.x) + ' ' + svgNumber(v.y);
}

std::string polyPath(std::vector<Vec2> const &view, bool closed)
{
    std::string data;
    for (Vec2 const &v : view) {
        data += (data.empty() ? "M" : " L") + pair(v);
    }
    return closed ? data + " Z" : data;
}

double const kFontSize = 12.0;
double const kCaptionLine = 15.0;

LabelBox boxAt(Vec2 anchor, std::string const &text, Side side)
{
    // 0.56 em is the mean width of a character of the usual sans-serif faces
    double const width = 0.56 * kFontSize * static_cast<double>(characterCount(text));
    double const height = kFontSize;
    double const gap = 6.0;
    double const slant = 4.0;
    double dx = 0.0; // from the anchor to the middle of the box
    double dy = 0.0;
    double const besideX = width / 2 + gap;
    double const besideY = height / 2 + gap;
    double const cornerX = width / 2 + slant;
    double const cornerY = height / 2 + slant;
    switch (side) {
    case Side::E:
        dx = besideX;
        break;
    case Side::NE:
        dx = cornerX;
        dy = -cornerY;
        break;
    case Side::N:
        dy = -besideY;
        break;
    case Side::NW:
        dx = -cornerX;
        dy = -cornerY;
        break;
    case Side::W:
        dx = -besideX;
        break;
    case Side::SW:
        dx = -cornerX;
        dy = cornerY;
        break;
    case Side::S:
        dy = besideY;
        break;
    case Side::SE:
        dx = cornerX;
        dy = cornerY;
        break;
    case Side::Centre:
        break;
    }
    double const x = anchor.x + dx;
    double const y = anchor.y + dy;
    return {x - width / 2, y - height / 2, x + width / 2, y + height / 2, text};
}

bool overlap(LabelBox const &a, LabelBox const &b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool covers(LabelBox const &box, Vec2 dot)
{
    double const margin = 3.0; // radius of a dot in pixels
    return box.left - margin < dot.x && dot.x < box.right + margin && box.top - margin < dot.y &&
           dot.y < box.bottom + margin;
}

} // namespace

Panel::Panel(Frame frame, std::string caption, Bounds bounds, Scaling scaling, int index)
    : m_frame(frame)
    , m_caption(std::move(caption))
    , m_bounds(bounds)
    , m_scaling(scaling)
    , m_index(index)
{
    m_scaleX = m_frame.width / (bounds.hi.x - bounds.lo.x);
    m_scaleY = m_frame.height / (bounds.hi.y - bounds.lo.y);
    if (m_scaling == Scaling::Uniform) {
        m_scaleX = m_scaleY = std::min(m_scaleX, m_scaleY);
    }
}

Vec2 Panel::toView(Vec2 world) const
{
    double const midX = (m_bounds.lo.x + m_bounds.hi.x) / 2;
    double const midY = (m_bounds.lo.y + m_bounds.hi.y) / 2;
    return {m_frame.left + m_frame.width / 2 + (world.x - midX) * m_scaleX,
            m_frame.top + m_frame.height / 2 - (world.y - midY) * m_scaleY};
}

void Panel::path(std::string const &data, Role role)
{
    m_shapes += std::string("<path class=\"") + roleClass(role) + "\" d=\"" + data + "\"/>\n";
}

void Panel::inkLine(Vec2 from, Vec2 to)
{
    Vec2 const d = to - from;
    double const spacing = 3.0; // pixels between samples
    int const steps = static_cast<int>(std::sqrt(d.x * d.x + d.y * d.y) / spacing) + 1;
    for (int i = 0; i <= steps; ++i) {
        m_ink.push_back(from + (static_cast<double>(i) / steps) * d);
    }
}

/// Angles in radians, clockwise on the screen as its y axis points down.
void Panel::inkArc(Vec2 centre, double rx, double ry, double turn, double from, double to)
{
    int const steps = 120;
    for (int i = 0; i <= steps; ++i) {
        double const t = from + (to - from) * i / steps;
        double const u = rx * std::cos(t);
        double const v = ry * std::sin(t);
        m_ink.push_back(centre + Vec2(u * std::cos(turn) - v * std::sin(turn),
                                      u * std::sin(turn) + v * std::cos(turn)));
    }
}

int Panel::inkUnder(LabelBox const &box) const
{
    return static_cast<int>(std::count_if(m_ink.begin(), m_ink.end(), [&](Vec2 const &p) {
        return box.left < p.x && p.x < box.right && box.top < p.y && p.y < box.bottom;
    }));
}

void Panel::beginSolution()
{
    m_shapes += "<g class=\"solution\">\n";
}

void Panel::endSolution()
{
    m_shapes += "</g>\n";
}

void Panel::line(Vec2 a, Vec2 b, Role role)
{
    polyline({a, b}, role);
}

void Panel::infiniteLine(Vec2 a, Vec2 b, Role role)
{
    Vec2 const d = b - a;
    double const length = std::sqrt(d.x * d.x + d.y * d.y);
    // far enough to leave the panel on both sides; the clip path cuts the rest
    double const reach =
        2.0 * (std::abs(m_bounds.hi.x - m_bounds.lo.x) + std::abs(m_bounds.hi.y - m_bounds.lo.y));
    Vec2 const far = (reach / length) * d;
    line(a - far, a + far, role);
}

void Panel::arrow(Vec2 from, Vec2 to, Role role)
{
    line(from, to, role);
    Vec2 const tip = toView(to);
    Vec2 const d = tip - toView(from);
    double const length = std::sqrt(d.x * d.x + d.y * d.y);
    Vec2 const u = (1.0 / length) * d;
    Vec2 const n(-u.y, u.x);
    Vec2 const back = tip - 9.0 * u;
    m_shapes += std::string("<path class=\"fill ") + roleClass(role) + "\" d=\"" +
                polyPath({tip, back + 3.5 * n, back - 3.5 * n}, true) + "\"/>\n";
}

std::vector<Vec2> Panel::toView(std::vector<Vec2> const &points) const
{
    std::vector<Vec2> view;
    view.reserve(points.size());
    for (Vec2 const &p : points) {
        view.push_back(toView(p));
    }
    return view;
}

void Panel::polyline(std::vector<Vec2> const &points, Role role)
{
    std::vector<Vec2> const view = toView(points);
    for (std::size_t i = 1; i < view.size(); ++i) {
        inkLine(view[i - 1], view[i]);
    }
    path(polyPath(view, false), role);
}

void Panel::polygon(std::vector<Vec2> const &points, Role role)
{
    std::vector<Vec2> const view = toView(points);
    for (std::size_t i = 0; i < view.size(); ++i) {
        inkLine(view[i], view[(i + 1) % view.size()]);
    }
    path(polyPath(view, true), role);
}

void Panel::area(std::vector<Vec2> const &points, Role role, double opacity)
{
    std::vector<Vec2> const view = toView(points);
    m_shapes += std::string("<path class=\"fill ") + roleClass(role) + "\" d=\"" +
                polyPath(view, true) + '"' + attribute("opacity", opacity) + "/>\n";
}

void Panel::circle(Vec2 centre, double radius, Role role)
{
    ellipse(centre, radius, radius, 0.0, role);
}

void Panel::disc(Vec2 centre, double radius, Role role, double opacity)
{
    Vec2 const c = toView(centre);
    m_shapes += std::string("<ellipse class=\"fill ") + roleClass(role) + '"' +
                attribute("cx", c.x) + attribute("cy", c.y) + attribute("rx", radius * m_scaleX) +
                attribute("ry", radius * m_scaleY) + attribute("opacity", opacity) + "/>\n";
}

void Panel::arc(Vec2 centre, Vec2 a, Vec2 b, Role role)
{
    Vec2 const u = a - centre;
    Vec2 const v = b - centre;
    double const radius = std::sqrt(u.x * u.x + u.y * u.y);
    double sweep = std::atan2(v.y, v.x) - std::atan2(u.y, u.x);
    double const turn = 2.0 * std::acos(-1.0);
    if (sweep <= 0.0) {
        sweep += turn;
    }
    Vec2 const from = toView(a);
    Vec2 const to = toView(b);
    double const start = std::atan2(u.y, u.x);
    inkArc(toView(centre), radius * m_scaleX, radius * m_scaleY, 0.0, -start, -start - sweep);
    // the view turns y over, so counter-clockwise in the world is SVG's sweep 0
    path("M" + pair(from) + " A" + svgNumber(radius * m_scaleX) + ' ' +
             svgNumber(radius * m_scaleY) + " 0 " + (sweep > turn / 2 ? "1" : "0") + " 0 " +
             pair(to),
         role);
}

void Panel::arcThrough(Vec2 start, Vec2 through, Vec2 end, Role role)
{
    Vec2 const u = through - start;
    Vec2 const v = end - start;
    double const cross = u.x * v.y - u.y * v.x;
    if (std::abs(cross) < 1e-12) { // an area: the three points are collinear
        polyline({start, through, end}, role);
        return;
    }
    double const uu = u.x * u.x + u.y * u.y;
    double const vv = v.x * v.x + v.y * v.y;
    Vec2 const centre =
        start + Vec2((v.y * uu - u.y * vv) / (2 * cross), (u.x * vv - v.x * uu) / (2 * cross));
    if (cross > 0.0) {
        arc(centre, start, end, role);
    } else {
        arc(centre, end, start, role);
    }
}

void Panel::ellipse(Vec2 centre, double a, double b, double degrees, Role role)
{
    Vec2 const c = toView(centre);
    double const turn = 2.0 * std::acos(-1.0);
    inkArc(c, a * m_scaleX, b * m_scaleY, -degrees / 360.0 * turn, 0.0, turn);
    m_shapes += std::string("<ellipse class=\"") + roleClass(role) + '"' + attribute("cx", c.x) +
                attribute("cy", c.y) + attribute("rx", a * m_scaleX) +
                attribute("ry", b * m_scaleY);
    if (degrees != 0.0) {
        m_shapes += " transform=\"rotate(" + svgNumber(-degrees) + ' ' + pair(c) + ")\"";
    }
    m_shapes += "/>\n";
}

void Panel::point(Vec2 p, Role role, std::string const &text, Side side)
{
    Vec2 const c = toView(p);
    m_shapes += std::string("<circle class=\"dot ") + roleClass(role) + '"' + attribute("cx", c.x) +
                attribute("cy", c.y) + " r=\"3\"/>\n";
    m_dots.push_back(c);
    if (!text.empty()) {
        label(p, text, side, role);
    }
}

void Panel::smallPoint(Vec2 p, Role role)
{
    Vec2 const c = toView(p);
    m_shapes += std::string("<circle class=\"dot ") + roleClass(role) + '"' + attribute("cx", c.x) +
                attribute("cy", c.y) + " r=\"1.6\"/>\n";
}

void Panel::solutionPoint(Vec2 p, std::string const &text, Side side)
{
    solution([&] { point(p, Role::Result, text, side); });
}

void Panel::label(Vec2 anchor, std::string const &text, Side side, Role role)
{
    m_labels.push_back({toView(anchor), text, side, role});
}

void Panel::axes(std::string const &xName, std::string const &yName)
{
    int const steps = 4;
    for (int i = 1; i < steps; ++i) {
        double const t = static_cast<double>(i) / steps;
        double const x = m_bounds.lo.x + t * (m_bounds.hi.x - m_bounds.lo.x);
        double const y = m_bounds.lo.y + t * (m_bounds.hi.y - m_bounds.lo.y);
        line({x, m_bounds.lo.y}, {x, m_bounds.hi.y}, Role::Muted);
        line({m_bounds.lo.x, y}, {m_bounds.hi.x, y}, Role::Muted);
        label({x, m_bounds.lo.y}, svgNumber(x), Side::N, Role::Helper);
        label({m_bounds.lo.x, y}, svgNumber(y), Side::E, Role::Helper);
    }
    label({m_bounds.hi.x, m_bounds.lo.y}, xName, Side::NW, Role::Helper);
    label({m_bounds.lo.x, m_bounds.hi.y}, yName, Side::SE, Role::Helper);
}

void Panel::placeLabels(std::vector<LabelBox> &placed) const
{
    Side const order[] = {Side::NE, Side::SE, Side::NW, Side::SW,
                          Side::E,  Side::W,  Side::N,  Side::S};
    auto const inside = [this](LabelBox const &b) {
        return b.left >= m_frame.left && b.right <= m_frame.left + m_frame.width &&
               b.top >= m_frame.top && b.bottom <= m_frame.top + m_frame.height;
    };
    for (Label const &l : m_labels) {
        auto const free = [&](LabelBox const &box) {
            return inside(box) &&
                   std::none_of(placed.begin(), placed.end(),
                                [&](LabelBox const &other) { return overlap(box, other); }) &&
                   std::none_of(m_dots.begin(), m_dots.end(),
                                [&](Vec2 const &dot) { return covers(box, dot); });
        };
        LabelBox chosen = boxAt(l.anchor, l.text, l.side);
        int least = free(chosen) ? inkUnder(chosen) : std::numeric_limits<int>::max();
        for (Side const side : order) {
            LabelBox const other = boxAt(l.anchor, l.text, side);
            // another side has to be clearly better than the one wished for
            int const ink = 2 + inkUnder(other);
            if (l.side != Side::Centre && ink < least && free(other)) {
                chosen = other;
                least = ink;
            }
        }
        placed.push_back(chosen);
    }
}

std::string Panel::svg() const
{
    std::string const id = "panel" + std::to_string(m_index);
    std::string const rect = attribute("x", m_frame.left) + attribute("y", m_frame.top) +
                             attribute("width", m_frame.width) +
                             attribute("height", m_frame.height);
    std::string out = "<clipPath id=\"" + id + "\"><rect" + rect + "/></clipPath>\n";
    out += "<rect class=\"frame\"" + rect + "/>\n";
    out += "<g clip-path=\"url(#" + id + ")\">\n" + m_shapes + "</g>\n";

    std::vector<LabelBox> boxes;
    placeLabels(boxes);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        LabelBox const &box = boxes[i];
        out += std::string("<text class=\"label ") + roleClass(m_labels[i].role) + '"' +
               attribute("x", (box.left + box.right) / 2) + attribute("y", box.bottom - 2.0) + '>' +
               xmlEscaped(box.text) + "</text>\n";
    }

    double baseline = m_frame.top + m_frame.height + kCaptionLine;
    std::size_t begin = 0;
    while (begin <= m_caption.size() && !m_caption.empty()) {
        std::size_t const end = std::min(m_caption.find('\n', begin), m_caption.size());
        out += "<text class=\"caption\"" + attribute("x", m_frame.left + m_frame.width / 2) +
               attribute("y", baseline) + '>' + xmlEscaped(m_caption.substr(begin, end - begin)) +
               "</text>\n";
        baseline += kCaptionLine;
        begin = end + 1;
    }
    return out;
}

} // namespace gallery
