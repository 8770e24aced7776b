#include "fingerprint/Stream.h"

#include <cmath>
#include <limits>

namespace fingerprint {

void Stream::beginCall()
{
    m_numbers.clear();
    m_points2.clear();
    m_points3.clear();
}

std::uint64_t Stream::bits()
{
    m_state += 0x9e3779b97f4a7c15u;
    std::uint64_t z = m_state;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

double Stream::specialNumber()
{
    constexpr double values[] = {support::nan,
                                 support::inf,
                                 -support::inf,
                                 std::numeric_limits<double>::max(),
                                 std::numeric_limits<double>::min(),
                                 std::numeric_limits<double>::denorm_min(),
                                 1e155,
                                 -1e-200};
    return values[below(8)];
}

double Stream::neighbour(double value)
{
    return std::nextafter(value, below(2) == 1 ? support::inf : -support::inf);
}

double Stream::tolerance()
{
    constexpr double values[] = {1.0,  0.5,  0.1,  1e-2, 1e-3, 1e-3, 1e-4,  1e-4,
                                 1e-5, 1e-6, 1e-6, 1e-7, 1e-8, 1e-9, 1e-10, 1e-12};
    return values[below(16)];
}

double Stream::number()
{
    double value = 0.0;
    int const kind = below(32);
    if (m_special && below(64) == 0) {
        value = specialNumber();
    } else if (kind < 10) {
        value = unit();
    } else if (kind < 14) {
        value = double(below(8)) - 3.0;
    } else if (kind < 18) {
        value = unit() * 10.0;
    } else if (kind < 21) {
        value = tolerance();
    } else if (kind < 23) {
        value = double(below(97)) * 15.0 - 720.0;
    } else if (kind < 25) {
        value = m_numbers.empty() ? 1.0 : m_numbers[std::size_t(below(int(m_numbers.size())))];
    } else if (kind < 26) {
        value = neighbour(m_numbers.empty() ? 1.0 : m_numbers.back());
    } else if (kind < 27) {
        int const exponent = below(121) - 60;
        value = std::ldexp(unit(), exponent);
    } else if (kind < 28) {
        value = below(2) == 1 ? 0.0 : -0.0;
    } else {
        value = (unit() + 1.0) * 2.5;
    }
    m_numbers.push_back(value);
    return value;
}

Point2D Stream::point2()
{
    Point2D p;
    int const kind = below(16);
    int const known = int(m_points2.size());
    if (kind < 2 && known > 0) {
        p = m_points2[std::size_t(below(known))];
    } else if (kind < 5 && known > 1) {
        Point2D const a = m_points2[std::size_t(below(known))];
        Point2D const b = m_points2[std::size_t(below(known))];
        double const t = below(2) == 1 ? 0.5 : unit();
        p = Point2D{a.x() + (b.x() - a.x()) * t, a.y() + (b.y() - a.y()) * t};
    } else if (kind < 6 && known > 0) {
        Point2D const a = m_points2.back();
        p = Point2D{neighbour(a.x()), below(2) == 1 ? a.y() : neighbour(a.y())};
    } else if (kind < 7 && known > 0) {
        Point2D const a = m_points2.back();
        p = Point2D{a.x() + unit() * tolerance(), a.y() + unit() * tolerance()};
    } else if (kind < 11) {
        p = Point2D{double(below(8)) - 3.0, double(below(8)) - 3.0};
    } else if (kind < 12) {
        double const x = number();
        p = Point2D{x, number()};
    } else {
        double const x = unit() * 5.0;
        p = Point2D{x, unit() * 5.0};
    }
    m_points2.push_back(p);
    return p;
}

Point3D Stream::point3()
{
    Point3D p;
    int const kind = below(16);
    int const known = int(m_points3.size());
    if (kind < 2 && known > 0) {
        p = m_points3[std::size_t(below(known))];
    } else if (kind < 5 && known > 1) {
        Point3D const a = m_points3[std::size_t(below(known))];
        Point3D const b = m_points3[std::size_t(below(known))];
        p = a + (b - a) * (below(2) == 1 ? 0.5 : unit());
    } else if (kind < 6 && known > 0) {
        Point3D const a = m_points3.back();
        p = {neighbour(a.x()), a.y(), below(2) == 1 ? a.z() : neighbour(a.z())};
    } else if (kind < 7 && known > 0) {
        Point3D const a = m_points3.back();
        double const length = tolerance();
        double const x = a.x() + unit() * length;
        double const y = a.y() + unit() * length;
        p = {x, y, a.z() + unit() * length};
    } else if (kind < 10) {
        double const x = double(below(8)) - 3.0;
        double const y = double(below(8)) - 3.0;
        p = {x, y, double(below(8)) - 3.0};
    } else if (kind < 11) {
        p = Point3D();
        p[below(3)] = below(2) == 1 ? 1.0 : unit();
    } else if (kind < 12) {
        double const x = number();
        double const y = number();
        p = {x, y, number()};
    } else {
        double const x = unit() * 5.0;
        double const y = unit() * 5.0;
        p = {x, y, unit() * 5.0};
    }
    m_points3.push_back(p);
    return p;
}

Matrix4X4C Stream::matrix()
{
    Matrix4X4C m;
    double(&cells)[4][4] = m.GetMatrixRef();
    int const kind = below(8);
    if (kind == 0) { // a permutation of the axes with signs
        int const first = below(3);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                cells[row][column] = column == (row + first) % 3 ? double(below(2) * 2 - 1) : 0.0;
            }
        }
    } else if (kind < 3) { // nearly the unit matrix
        for (auto &row : cells) {
            for (double &cell : row) {
                cell += unit() * tolerance();
            }
        }
    } else if (kind < 6) { // affine
        for (int i = 0; i < 12; ++i) {
            cells[i / 4][i % 4] = unit() * 3.0;
        }
    } else if (kind < 7) { // anything
        for (int i = 0; i < 16; ++i) {
            cells[i / 4][i % 4] = number();
        }
    } else { // one row is a multiple of another
        for (int i = 0; i < 16; ++i) {
            cells[i / 4][i % 4] = double(below(8)) - 3.0;
        }
        int const row = below(4);
        double const factor = unit();
        for (int i = 0; i < 4; ++i) {
            cells[row][i] = cells[(row + 1) % 4][i] * factor;
        }
    }
    return m;
}

matrixC3x3<double> Stream::matrix3()
{
    matrixC3x3<double> m;
    int const kind = below(8);
    for (int i = 0; i < 9; ++i) {
        m[i] = kind < 2 ? double(below(8)) - 3.0 : kind < 7 ? unit() * 4.0 : number();
    }
    if (kind < 5) {
        m[3] = m[1];
        m[6] = m[2];
        m[7] = m[5];
    }
    if (kind == 2) {
        m[1] = m[3] = 0.0;
    }
    return m;
}

void Stream::draw(vectorC2d<double> &value)
{
    Point2D const p = point2();
    value = {p.x(), p.y()};
}

void Stream::draw(Quaternion4D &value)
{
    double const x = number();
    double const y = number();
    double const z = number();
    value.SetComponents(x, y, z, number());
    if (below(4) != 0) {
        value.Normalize();
    }
}

void Stream::draw(TMatrix &value)
{
    double m[11];
    for (double &cell : m) {
        cell = below(4) == 0 ? number() : unit() * 2.0;
    }
    if (below(4) != 0) {
        m[2] = m[5] = 0.0;
        m[8] = 1.0;
    }
    value.setMatrix(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10]);
}

void Stream::draw(mathPoly::Ellipse &value)
{
    value.cx = unit() * 3.0;
    value.cy = unit() * 3.0;
    value.a = below(8) == 0 ? number() : 0.1 + (unit() + 1.0) * 2.0;
    value.b = below(8) == 0 ? value.a : 0.1 + (unit() + 1.0) * 2.0;
    value.angle = below(4) == 0 ? double(below(25)) * 15.0 - 180.0 : unit() * 180.0;
}

void Stream::draw(mathPoly::Conic &value)
{
    for (double *cell : {&value.A, &value.B, &value.C, &value.D, &value.E, &value.F}) {
        *cell = number();
    }
}

void Stream::draw(mathPoly::TMat &value)
{
    for (double *cell : {&value.m00, &value.m10, &value.m01, &value.m11, &value.tx, &value.ty}) {
        *cell = number();
    }
}

void Stream::draw(mathPoly::Point &value)
{
    value.x = number();
    value.y = number();
}

void Hash::add(Point2D const &p)
{
    add(p.x());
    add(p.y());
}

void Hash::add(Point3D const &p)
{
    add(p.x());
    add(p.y());
    add(p.z());
}

void Hash::add(Matrix4X4C const &m)
{
    for (auto const &row : m.GetConstMatrixRef()) {
        for (double cell : row) {
            add(cell);
        }
    }
}

void Hash::add(matrixC3x3<double> const &m)
{
    for (int i = 0; i < 9; ++i) {
        add(m[i]);
    }
}

void Hash::add(matrixC4x4<double> const &m)
{
    for (int i = 0; i < 16; ++i) {
        add(m[i]);
    }
}

void Hash::add(Quaternion4D const &q)
{
    double c[4];
    q.GetComponents(c[0], c[1], c[2], c[3]);
    for (double component : c) {
        add(component);
    }
}

void Hash::add(TMatrix m)
{
    for (int i = 0; i < 9; ++i) {
        add(m.getValue(i % 3, i / 3));
    }
    add(m * 30.0);
}

void Hash::add(mathPoly::Ellipse const &e)
{
    for (double value : {e.cx, e.cy, e.a, e.b, e.angle}) {
        add(value);
    }
}

void Hash::add(mathPoly::Conic const &c)
{
    for (double value : {c.A, c.B, c.C, c.D, c.E, c.F}) {
        add(value);
    }
}

void Hash::add(mathPoly::TMat const &m)
{
    for (double value : {m.m00, m.m10, m.m01, m.m11, m.tx, m.ty}) {
        add(value);
    }
}

void Hash::add(mathPoly::Point const &p)
{
    add(p.x);
    add(p.y);
}

void Hash::addWord(std::uint64_t word)
{
    for (int i = 0; i < 8; ++i) {
        m_hash = (m_hash ^ (word >> 8 * i & 0xff)) * 0x100000001b3u;
    }
}

} // namespace fingerprint
