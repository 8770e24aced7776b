#pragma once

/// @file
/// The functions of the plane that golden files speak of, each as a call on plain numbers.

#include <OrvelCore/runtime/PPtrOrderedVector.h>
#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>
#include <OrvelMath/geom2d/construct2d.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace golden {

using Numbers = std::vector<double>;

/// Hands out the arguments one after another.
class Arguments
{
public:
    explicit Arguments(Numbers const &numbers)
        : m_numbers(numbers)
    {
    }

    double number() { return m_numbers.at(m_next++); }
    int integer() { return static_cast<int>(number()); }
    bool truth() { return number() != 0; }
    Point2D point()
    {
        double const x = number();
        return Point2D(x, number());
    }
    std::vector<Point2D> points()
    {
        std::vector<Point2D> list;
        for (int left = integer(); left > 0; --left) {
            list.push_back(point());
        }
        return list;
    }

private:
    Numbers const &m_numbers;
    size_t m_next = 0;
};

/// A result code, and after a code other than 0 the points that were written.
inline Numbers found(int code, std::initializer_list<Point2D> points)
{
    Numbers results{static_cast<double>(code)};
    if (code != 0) {
        for (Point2D const &p : points) {
            results.push_back(p.x());
            results.push_back(p.y());
        }
    }
    return results;
}

template <typename Cross>
Numbers crossing(Numbers const &numbers, Cross cross)
{
    Arguments a(numbers);
    Point2D const p0 = a.point(), p1 = a.point(), p2 = a.point(), p3 = a.point();
    Point2D out;
    int const type = cross(p0, p1, p2, p3, out, a.number());
    return found(type, {out});
}

inline Numbers tangentOfPoint(Numbers const &numbers)
{
    Arguments a(numbers);
    Point2D const p = a.point(), c = a.point();
    double const r = a.number();
    int const side = a.integer();
    Point2D from, touch;
    int const code = tangente_punkt_kreis(p, c, r, side, from, touch, a.number());
    return found(code, {from, touch});
}

inline Numbers tangentOfCircles(Numbers const &numbers)
{
    Arguments a(numbers);
    Point2D const c1 = a.point();
    double const r1 = a.number();
    Point2D const c2 = a.point();
    double const r2 = a.number();
    int const side = a.integer(), cross = a.integer(), magnitudes = a.integer();
    Point2D t1, t2;
    int const code =
        tangente_kreis_kreis(c1, r1, c2, r2, side, cross, t1, t2, magnitudes, a.number());
    return found(code, {t1, t2});
}

inline Numbers filletOfLines(Numbers const &numbers)
{
    Arguments a(numbers);
    Point2D const p0 = a.point(), p1 = a.point(), p2 = a.point(), p3 = a.point();
    double const r = a.number();
    int const side1 = a.integer(), side2 = a.integer();
    Point2D m, t1, t2;
    int const code = fillet_line_line(p0, p1, p2, p3, r, side1, side2, m, t1, t2, a.number());
    return found(code, {m, t1, t2});
}

inline Numbers filletOfCircles(Numbers const &numbers)
{
    Arguments a(numbers);
    Point2D const c1 = a.point();
    double const r1 = a.number();
    Point2D const c2 = a.point();
    double const r2 = a.number(), r = a.number();
    int const side = a.integer(), inner = a.integer();
    Point2D m, t1, t2;
    int const code = fillet_kreis_kreis(c1, r1, c2, r2, r, side, inner, m, t1, t2, a.number());
    return found(code, {m, t1, t2});
}

inline Numbers filletOfLineAndCircle(Numbers const &numbers)
{
    Arguments a(numbers);
    Point2D const p0 = a.point(), p1 = a.point(), c = a.point();
    double const rc = a.number(), r = a.number();
    int const side = a.integer(), far = a.integer(), inner = a.integer();
    Point2D m, t1, t2;
    int const code = fillet_line_circle(p0, p1, c, rc, r, side, far, m, t1, t2, inner, a.number());
    return found(code, {m, t1, t2});
}

inline Numbers locationByVector(Numbers const &numbers)
{
    Arguments a(numbers);
    double const tol = a.number();
    Point2D const p = a.point();
    std::vector<Point2D> points = a.points();
    PPtrOrderedVector<Point2D> polygon;
    for (Point2D &vertex : points) {
        polygon.append(&vertex);
    }
    return {static_cast<double>(concav2d::pointInsidePolygone(polygon, p, tol))};
}

inline Numbers locationByArray(Numbers const &numbers)
{
    Arguments a(numbers);
    double const tol = a.number();
    Point2D const p = a.point();
    std::vector<Point2D> points = a.points();
    int const count = static_cast<int>(points.size());
    return {
        static_cast<double>(Math2DInsidePolygon(points.data(), count, p, nullptr, nullptr, tol))};
}

/// The calls by the names that stand in the files.
inline std::map<std::string, std::function<Numbers(Numbers const &)>> const &calls()
{
    static std::map<std::string, std::function<Numbers(Numbers const &)>> const table = {
        {"tangente_punkt_kreis", tangentOfPoint},
        {"tangente_kreis_kreis", tangentOfCircles},
        {"fillet_line_line", filletOfLines},
        {"fillet_kreis_kreis", filletOfCircles},
        {"fillet_line_circle", filletOfLineAndCircle},
        {"pointInsidePolygone", locationByVector},
        {"Math2DInsidePolygon", locationByArray},
        {"Math2DIntersect2Lines",
         [](Numbers const &n) { return crossing(n, Math2DIntersect2Lines); }},
        {"Math2DIntersect2LinesWrong",
         [](Numbers const &n) { return crossing(n, Math2DIntersect2LinesWrong); }},
        {"intersectEdgeEdge",
         [](Numbers const &n) { return crossing(n, concav2d::intersectEdgeEdge); }},
    };
    return table;
}

} // namespace golden
