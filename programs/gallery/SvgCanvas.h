#pragma once

/// @file
/// Figures: panels with shapes and labels, written as SVG.

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace gallery {

/// A position or a vector of a figure, in the figure's own (world) units, y upwards.
/// Anything with `x()` and `y()` (`Point2D`, `vectorC2d<double>`) converts to it.
struct Vec2
{
    double x = 0.0;
    double y = 0.0;

    Vec2() = default;
    Vec2(double px, double py)
        : x(px)
        , y(py)
    {
    }
    template <class P, class = decltype(std::declval<P const &>().y())>
    Vec2(P const &p)
        : x(p.x())
        , y(p.y())
    {
    }
};

inline Vec2 operator+(Vec2 a, Vec2 b)
{
    return {a.x + b.x, a.y + b.y};
}
inline Vec2 operator-(Vec2 a, Vec2 b)
{
    return {a.x - b.x, a.y - b.y};
}
inline Vec2 operator*(double s, Vec2 a)
{
    return {s * a.x, s * a.y};
}

/// What a drawn thing stands for; fixes its colour, width and dashes.
enum class Role {
    Given,  ///< input of the function shown: dark blue, solid
    Result, ///< what the function answers: red, heavy
    Helper, ///< construction line: grey, thin, dashed
    Accent, ///< a second result to tell from the first: teal
    Second, ///< a third colour: amber
    Muted   ///< background: light grey, thin, solid
};

/// For paper or for a screen; `System` follows what the reader's system is set to.
enum class Theme { Light, Dark, System };

/// The CSS class of a role's elements.
char const *roleClass(Role role);

/// The side of its anchor on which a label would like to stand, as on a map.
enum class Side { E, NE, N, NW, W, SW, S, SE, Centre };

/// The axis-parallel world rectangle that a panel shows.
struct Bounds
{
    Vec2 lo;
    Vec2 hi;
};

/// Uniform keeps circles round; Stretch fills the panel (for plots).
enum class Scaling { Uniform, Stretch };

/// Pixel rectangle of a label as estimated from its text.
struct LabelBox
{
    double left, top, right, bottom;
    std::string text;
};

/// One picture of a figure with its own world-to-view transform. Shapes are drawn in the order of
/// the calls and cut off at the panel's frame; labels are drawn last, above all shapes, on a white
/// halo, and take the side of their anchor that is free of labels and dots and covers the least of
/// the curves.
class Panel
{
public:
    void line(Vec2 a, Vec2 b, Role role);
    /// The straight line through a and b, drawn across the whole panel.
    void infiniteLine(Vec2 a, Vec2 b, Role role);
    void arrow(Vec2 from, Vec2 to, Role role);
    void polyline(std::vector<Vec2> const &points, Role role);
    void polygon(std::vector<Vec2> const &points, Role role);
    /// A polygon filled with the role's colour at the opacity given (0 to 1), without outline.
    void area(std::vector<Vec2> const &points, Role role, double opacity = 0.15);
    void circle(Vec2 centre, double radius, Role role);
    /// A filled disc without outline.
    void disc(Vec2 centre, double radius, Role role, double opacity = 0.15);
    /// Counter-clockwise from a to b; the radius is the distance from the centre to a.
    void arc(Vec2 centre, Vec2 a, Vec2 b, Role role);
    /// Start, through, end; falls back to the chords when the three are collinear.
    void arcThrough(Vec2 start, Vec2 through, Vec2 end, Role role);
    /// Semi-axis a runs along the direction given in degrees, b across it.
    void ellipse(Vec2 centre, double a, double b, double degrees, Role role);
    /// A dot; the label may be empty.
    void point(Vec2 p, Role role, std::string const &label = {}, Side side = Side::NE);
    void smallPoint(Vec2 p, Role role);
    void label(Vec2 anchor, std::string const &text, Side side = Side::NE, Role role = Role::Given);
    /// Ticks and numbers along the lower and left edge.
    void axes(std::string const &xName, std::string const &yName);

    /// Groups what `draw` draws as one mark of class "solution": the marks that a figure promises.
    template <class Draw>
    void solution(Draw draw)
    {
        beginSolution();
        draw();
        endSolution();
    }
    void solutionPoint(Vec2 p, std::string const &label = {}, Side side = Side::NE);

    Bounds bounds() const { return m_bounds; }

private:
    friend class SvgCanvas;
    struct Label
    {
        Vec2 anchor; // in pixels
        std::string text;
        Side side;
        Role role;
    };
    struct Frame
    {
        double left, top, width, height; // in pixels
    };

    Panel(Frame frame, std::string caption, Bounds bounds, Scaling scaling, int index);
    Vec2 toView(Vec2 world) const;
    std::vector<Vec2> toView(std::vector<Vec2> const &points) const;
    void beginSolution();
    void endSolution();
    void path(std::string const &data, Role role);
    void inkLine(Vec2 from, Vec2 to);
    void inkArc(Vec2 centre, double rx, double ry, double turn, double from, double to);
    int inkUnder(LabelBox const &box) const;
    void placeLabels(std::vector<LabelBox> &placed) const;
    void tick(Vec2 anchor, std::string const &text, Side side);
    std::string svg() const;

    Frame m_frame;
    std::string m_caption;
    Bounds m_bounds;
    Scaling m_scaling;
    int m_index;
    double m_scaleX = 1.0;
    double m_scaleY = 1.0;
    std::string m_shapes;
    std::vector<Label> m_labels;
    std::vector<Vec2> m_dots; // pixel places that labels keep clear of
    std::vector<Vec2> m_ink;  // pixel samples of the strokes, which labels would rather not cover
};

/// A figure: a title, panels in a grid filled row by row, a legend. Coordinates that are not
/// finite are refused with std::runtime_error, so that a broken figure is never written.
class SvgCanvas
{
public:
    explicit SvgCanvas(std::string title);

    /// Panels a row and their size in pixels; call before the first panel (default 3, 300 x 260).
    void layout(int columns, double panelWidth, double panelHeight);
    /// The next panel of the grid. A caption may hold two lines, parted by '\n'. The reference
    /// stays valid as long as the canvas.
    Panel &panel(std::string const &caption, Bounds bounds, Scaling scaling = Scaling::Uniform);
    /// A line of the legend. Its mark is what the figure draws with the role: a stroke where there
    /// is one, else an area in its strength, else a dot.
    void legend(Role role, std::string const &text);

    std::string svg(Theme theme = Theme::System) const;
    /// Labels of one panel that overlap although every side was tried, labels that stick out of
    /// their panel, captions wider than it; empty for a good figure.
    std::vector<std::string> labelFaults() const;

private:
    std::string legendMark(Role role, double x, double y) const;

    std::string m_title;
    int m_columns = 3;
    double m_panelWidth = 300.0;
    double m_panelHeight = 260.0;
    std::vector<std::unique_ptr<Panel>> m_panels;
    std::vector<std::pair<Role, std::string>> m_legend;
};

/// A parallel projection of space onto the drawing plane: the viewer looks at the origin from
/// the azimuth (degrees, from the x axis towards y) and the elevation (degrees above the xy plane).
class Axonometric
{
public:
    Axonometric(double azimuthDegrees, double elevationDegrees);

    Vec2 operator()(double x, double y, double z) const;
    /// Grows towards the viewer; sort faces by it, far ones first.
    double depth(double x, double y, double z) const;
    template <class P>
    Vec2 operator()(P const &p) const
    {
        return (*this)(p.x(), p.y(), p.z());
    }
    template <class P>
    double depth(P const &p) const
    {
        return depth(p.x(), p.y(), p.z());
    }

private:
    double m_sinA, m_cosA, m_sinE, m_cosE;
};

} // namespace gallery
