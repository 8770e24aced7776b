#pragma once

#include "support/Bits.h"

#include <OrvelMath/base/Matrix4X4C.h>
#include <OrvelMath/base/Quaternion4D.h>
#include <OrvelMath/base/TMatrix.h>
#include <OrvelMath/base/valueTypes.h>
#include <OrvelMath/geom2d/mathPoly.h>

#include <cstdint>
#include <vector>

namespace fingerprint {

/// A fixed stream of arguments: random ones, small integers, repeated values and points, points on
/// the line through earlier ones, neighbours by one ulp, huge, tiny and special values.
///
/// What it draws is the same on every compiler and processor: splitmix64 (S. Vigna, 2015) and
/// arithmetic that rounds once.
class Stream
{
public:
    /// @param special whether NaN, infinities and the ends of the range are drawn now and then.
    explicit Stream(std::uint64_t seed, bool special)
        : m_state(seed)
        , m_special(special)
    {
    }

    /// Forgets the values that may be repeated; every call begins with this.
    void beginCall();

    std::uint64_t bits();
    /// Uniform in 0 .. count - 1.
    int below(int count) { return int(bits() % std::uint64_t(count)); }
    /// Uniform in [-1, 1).
    double unit() { return double(bits() >> 11) * 0x1p-52 - 1.0; }
    /// A number of any kind.
    double number();
    /// One of the tolerances and steps that are in use, from 1e-12 to 1.
    double tolerance();

    Point2D point2();
    Point3D point3();
    Matrix4X4C matrix();
    matrixC3x3<double> matrix3();

    void draw(bool &value) { value = below(2) == 1; }
    void draw(int &value) { value = below(8) - 2; }
    void draw(float &value) { value = float(number()); }
    void draw(double &value) { value = number(); }
    void draw(Point2D &value) { value = point2(); }
    void draw(Point3D &value) { value = point3(); }
    void draw(vectorC2d<double> &value);
    void draw(vectorC3d<double> &value) { value = vectorC3d<double>(point3()); }
    void draw(Matrix4X4C &value) { value = matrix(); }
    void draw(matrixC3x3<double> &value) { value = matrix3(); }
    void draw(matrixC4x4<double> &value) { value = matrix(); }
    void draw(Quaternion4D &value);
    void draw(TMatrix &value);
    void draw(mathPoly::Ellipse &value);
    void draw(mathPoly::Conic &value);
    void draw(mathPoly::TMat &value);
    void draw(mathPoly::Point &value);

private:
    double specialNumber();
    double neighbour(double value);

    std::uint64_t m_state;
    bool m_special;
    std::vector<double> m_numbers;
    std::vector<Point2D> m_points2;
    std::vector<Point3D> m_points3;
};

/// FNV-1a over the bits of results; any NaN counts as the same.
class Hash
{
public:
    void add(double value) { addWord(value != value ? 0x7ff8u : support::bitsOf(value)); }
    void add(float value) { add(double(value)); }
    void add(bool value) { addWord(value); }
    void add(int value) { addWord(std::uint64_t(std::int64_t(value))); }
    void add(unsigned int value) { addWord(value); }
    void add(quint64 value) { addWord(value); }
    void add(Point2D const &p);
    void add(Point3D const &p);
    void add(vectorC2d<double> const &v) { add(Point2D(v)); }
    void add(vectorC3d<double> const &v) { add(Point3D(v)); }
    void add(Matrix4X4C const &m);
    void add(matrixC3x3<double> const &m);
    void add(matrixC4x4<double> const &m);
    void add(Quaternion4D const &q);
    void add(TMatrix m);
    void add(mathPoly::Ellipse const &e);
    void add(mathPoly::Conic const &c);
    void add(mathPoly::TMat const &m);
    void add(mathPoly::Point const &p);
    template <typename List>
    auto add(List const &list) -> decltype(list.begin(), void())
    {
        add(int(list.size()));
        for (auto const &item : list) {
            add(item);
        }
    }
    void addWord(std::uint64_t word);
    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xcbf29ce484222325u;
};

} // namespace fingerprint
