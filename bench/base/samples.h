#pragma once

/// @file
/// Inputs of the benchmarks: a fixed seed, and a number of samples that stays in the first cache.

#include <OrvelMath/base/Matrix4X4C.h>
#include <OrvelMath/base/Quaternion4D.h>

#include <random>
#include <vector>

constexpr std::size_t sampleCount = 64;

inline double anyNumber(std::mt19937_64 &random, double limit)
{
    return std::uniform_real_distribution<double>(-limit, limit)(random);
}

inline Point3D anyPoint(std::mt19937_64 &random, double limit = 10.0)
{
    double const x = anyNumber(random, limit);
    double const y = anyNumber(random, limit);
    return Point3D(x, y, anyNumber(random, limit));
}

/// Rotations with translation, scaled if wanted.
inline std::vector<Matrix4X4C> anyMatrices(bool orthonormal)
{
    std::mt19937_64 random(20240229);
    std::vector<Matrix4X4C> matrices(sampleCount);
    for (Matrix4X4C &m : matrices) {
        Point3D const angles = anyPoint(random, 180.0);
        m.Rotate(angles.x(), angles.y(), angles.z());
        if (!orthonormal) {
            m.Scale(1.5, 0.75, 2.0);
        }
        Point3D const shift = anyPoint(random);
        m.Translate(shift.x(), shift.y(), shift.z());
    }
    return matrices;
}

/// 4096 matrices of random elements: their pivots come in any order, and they stay in the second
/// cache.
inline std::vector<Matrix4X4C> manyMatrices()
{
    std::mt19937_64 random(20240304);
    std::vector<Matrix4X4C> matrices(4096);
    for (Matrix4X4C &m : matrices) {
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                m.GetMatrixRef()[row][column] = anyNumber(random, 10.0);
            }
        }
    }
    return matrices;
}

inline std::vector<Point3D> anyPoints()
{
    std::mt19937_64 random(20240301);
    std::vector<Point3D> points(sampleCount);
    for (Point3D &p : points) {
        p = anyPoint(random);
    }
    return points;
}

inline std::vector<Quaternion4D> anyQuaternions()
{
    std::mt19937_64 random(20240302);
    std::vector<Quaternion4D> quaternions(sampleCount);
    for (Quaternion4D &q : quaternions) {
        q.SetRotation(anyPoint(random), anyNumber(random, 3.1));
    }
    return quaternions;
}

/// Goes round the samples.
class Turn
{
public:
    explicit Turn(std::size_t count = sampleCount)
        : m_count(count)
    {
    }

    std::size_t next()
    {
        ++m_index;
        m_index = m_index == m_count ? 0 : m_index;
        return m_index;
    }

private:
    std::size_t m_count;
    std::size_t m_index = 0;
};
