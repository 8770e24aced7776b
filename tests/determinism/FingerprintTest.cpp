// Hashes over the bits of many results, compared with the ones in fingerprints.txt. The same file
// serves every compiler, level of optimisation and processor. Only operations without a function of
// the C mathematics library take part, since those differ between versions of that library; roots
// are exact everywhere.

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/base/Matrix4X4C.h>
#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>
#include <OrvelMath/geom2d/construct2d.h>
#include <OrvelMath/geom3d/MatUtil.h>
#include <OrvelMath/geom3d/intersect3d.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>
#include <OrvelMath/numerics/LinearSystemT_p.h>
#include <OrvelMath/numerics/Transforms.h>
#include <OrvelMath/volume/BinTreeBuilder.h>

#include "support/Bits.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>

namespace {

// Numbers that are the same everywhere (S. Vigna's splitmix64, 2015).
class Numbers
{
public:
    std::uint64_t bits()
    {
        m_state += 0x9e3779b97f4a7c15u;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }
    // Uniform between -1 and 1; every eighth one is a small integer, so that ties occur.
    double number()
    {
        std::uint64_t const b = bits();
        if (b % 8 == 0) {
            return double(int(b >> 8 & 7)) - 3.0;
        }
        return double(b >> 11) * 0x1p-52 - 1.0;
    }
    Point3D point3()
    {
        double const x = number();
        double const y = number();
        return {x, y, number()};
    }
    vectorC3d<double> vector3() { return static_cast<vectorC3d<double>>(point3()); }
    Point2D point2()
    {
        double const x = number();
        return {x, number()};
    }

private:
    std::uint64_t m_state = 20261121;
};

// FNV-1a over the bits of results; any NaN counts as the same.
class Fingerprint
{
public:
    void add(double value) { addWord(value != value ? 0x7ff8u : support::bitsOf(value)); }
    void add(int value) { addWord(std::uint64_t(std::int64_t(value))); }
    void add(Point2D const &p)
    {
        add(p.x());
        add(p.y());
    }
    void add(Point3D const &p)
    {
        add(p.x());
        add(p.y());
        add(p.z());
    }
    void add(vectorC3d<double> const &v) { add(Point3D(v)); }
    void add(Matrix4X4C const &m)
    {
        for (auto const &row : m.GetConstMatrixRef()) {
            for (double value : row) {
                add(value);
            }
        }
    }
    std::string text() const
    {
        char buffer[17];
        std::snprintf(buffer, sizeof buffer, "%016llx", static_cast<unsigned long long>(m_hash));
        return buffer;
    }

private:
    void addWord(std::uint64_t word)
    {
        for (int i = 0; i < 8; ++i) {
            m_hash = (m_hash ^ (word >> 8 * i & 0xff)) * 0x100000001b3u;
        }
    }
    std::uint64_t m_hash = 0xcbf29ce484222325u;
};

std::map<std::string, std::string> const &expectedFingerprints()
{
    static std::map<std::string, std::string> const expected = [] {
        std::map<std::string, std::string> all;
        std::ifstream file(ORVEL_SOURCE_DIR "/tests/determinism/fingerprints.txt");
        std::string line;
        while (std::getline(file, line)) {
            std::istringstream words(line);
            std::string name;
            std::string hash;
            if (words >> name >> hash && name[0] != '#') {
                all[name] = hash;
            }
        }
        return all;
    }();
    return expected;
}

void expectFingerprint(std::string const &name, Fingerprint const &fingerprint)
{
    auto const entry = expectedFingerprints().find(name);
    ASSERT_NE(expectedFingerprints().end(), entry) << name << ' ' << fingerprint.text();
    EXPECT_EQ(entry->second, fingerprint.text()) << name << " gives other bits in this build";
}

TEST(SameBitsEverywhere, Matrices)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int i = 0; i < 20000; ++i) {
        Matrix4X4C m;
        for (int k = 0; k < 16; ++k) {
            m.GetMatrixRef()[k / 4][k % 4] = numbers.number();
        }
        Matrix4X4C const product = m * m;
        fingerprint.add(product);
        fingerprint.add(product.MultMatrixVector(numbers.point3()));
        fingerprint.add(product.MultMatrixVectorRespectW(numbers.point3()));
        matrixC4x4<double> const columns = product;
        fingerprint.add(columns * numbers.vector3());
        Matrix4X4C aligned = m;
        aligned.AlignAxis();
        aligned.InvertOrthogonal();
        fingerprint.add(aligned);
        fingerprint.add(int(m.Invert()));
        fingerprint.add(m);
    }
    expectFingerprint("matrices", fingerprint);
}

TEST(SameBitsEverywhere, LinesOfThePlane)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int i = 0; i < 50000; ++i) {
        Point2D const a = numbers.point2();
        Point2D const b = numbers.point2();
        Point2D const c = numbers.point2();
        Point2D const d = numbers.point2();
        Point2D out;
        fingerprint.add(concav2d::intersectLineLine(a, b, c, d, out));
        fingerprint.add(out);
        fingerprint.add(intersect_line_line(a, b, c, d, out, 1e-3));
        fingerprint.add(int(concav2d::intersectEdgeEdge(a, b, c, d, out, 1e-3)));
        fingerprint.add(concav2d::pointOnLine(a, b, c, 1e-1));
        fingerprint.add(concav2d::isColinear(a, b, c, 1e-2));
        fingerprint.add(concav2d::getArcMiddle(a, b, c, out, 1e-6));
        fingerprint.add(out);
    }
    expectFingerprint("plane", fingerprint);
}

TEST(SameBitsEverywhere, LinesAndPlanesOfSpace)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int i = 0; i < 20000; ++i) {
        Point3D const a = numbers.point3();
        Point3D const b = numbers.point3();
        Point3D const c = numbers.point3();
        Point3D const d = numbers.point3();
        Point3D p;
        Point3D q;
        fingerprint.add(int(IntersectLineLine(a, b, c, d, p, q)));
        fingerprint.add(p);
        fingerprint.add(q);
        fingerprint.add(int(IntersectPlanePlane(a, b, c, d, p, q)));
        fingerprint.add(p);
        fingerprint.add(q);
        double t1 = 0.0;
        double t2 = 0.0;
        fingerprint.add(IntersectLineSphereDst(a, b, c, 0.75, t1, t2));
        fingerprint.add(t1);
        fingerprint.add(t2);
        double radius = 0.0;
        vectorC3d<double> const e = numbers.vector3();
        vectorC3d<double> const f = numbers.vector3();
        vectorC3d<double> const g = numbers.vector3();
        fingerprint.add(MatUtil::getSphereCenter(e, f, g, numbers.vector3(), radius));
        fingerprint.add(radius);
    }
    expectFingerprint("space", fingerprint);
}

TEST(SameBitsEverywhere, LinearSystems)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int i = 0; i < 20000; ++i) {
        double columns[9];
        for (double &value : columns) {
            value = numbers.number();
        }
        LinearSystemT<3, 3> const system(columns, 1e-12);
        fingerprint.add(int(system.rank));
        fingerprint.add(system.determinant);
    }
    expectFingerprint("systems", fingerprint);
}

TEST(SameBitsEverywhere, Hulls)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int i = 0; i < 60; ++i) {
        QList<vectorC3d<double>> points;
        for (int k = 0; k < 40 * (i % 10 + 1); ++k) {
            points.append(numbers.vector3());
        }
        ConvexHullBuilderC builder(points);
        fingerprint.add(int(builder.buildHull()));
        for (int k = 0; k < builder.triangleCount(); ++k) {
            vectorC3d<double> corners[3];
            vectorC3d<double> normal;
            builder.triangle(k, corners[0], corners[1], corners[2], normal);
            fingerprint.add(corners[0]);
            fingerprint.add(normal);
        }
        for (int index : builder.hullVertexIndices()) {
            fingerprint.add(index);
        }
    }
    expectFingerprint("hulls", fingerprint);
}

TEST(SameBitsEverywhere, Lookups)
{
    Numbers numbers;
    Fingerprint fingerprint;
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    for (int i = 0; i < 5000; ++i) {
        lookup->insert(numbers.point3());
    }
    for (int i = 0; i < 5000; ++i) {
        auto const [nearest, found] = lookup->findNearest(numbers.point3(), 0.1);
        fingerprint.add(nearest);
        fingerprint.add(int(found));
    }
    for (int i = 0; i < 100; ++i) {
        for (Point3D const &p : lookup->findWithinRange(numbers.point3(), 0.3)) {
            fingerprint.add(p);
        }
    }
    expectFingerprint("lookups", fingerprint);
}

TEST(SameBitsEverywhere, Transforms)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int n = 1; n <= 4096; n *= 2) {
        std::size_t const size = std::size_t(n);
        // Any table serves: the butterflies are the same whether or not the roots are ones.
        std::vector<double> rootsRe(size);
        std::vector<double> rootsIm(size);
        std::vector<double> re(size);
        std::vector<double> im(size);
        std::vector<double> scratch(2 * size);
        for (auto *values : {&rootsRe, &rootsIm, &re, &im}) {
            for (double &value : *values) {
                value = numbers.number();
            }
        }
        computeFFT(re.data(), im.data(), re.data(), im.data(), n, rootsRe.data(), rootsIm.data(),
                   scratch.data());
        computeInverseFFT(im.data(), re.data(), im.data(), re.data(), n, rootsRe.data(),
                          rootsIm.data(), scratch.data());
        for (std::size_t i = 0; i < size; ++i) {
            fingerprint.add(re[i]);
            fingerprint.add(im[i]);
        }
    }
    int const size = 64;
    std::vector<double> data(size);
    std::vector<double> weights(size);
    std::vector<double> scratch(size);
    std::vector<double> table(size * size / 2);
    std::vector<double> result(size / 2);
    for (auto *values : {&data, &weights, &table}) {
        for (double &value : *values) {
            value = numbers.number();
        }
    }
    for (int order : {0, 1, 5}) {
        legendreTrafo(data.data(), result.data(), size, order, weights.data(), table.data(),
                      scratch.data());
        for (double value : result) {
            fingerprint.add(value);
        }
    }
    expectFingerprint("transforms", fingerprint);
}

TEST(SameBitsEverywhere, Volumes)
{
    Numbers numbers;
    Fingerprint fingerprint;
    for (int i = 0; i < 10; ++i) {
        std::pair<vectorC3d<double>, vectorC3d<double>> const box({-4, -4, -4}, {4, 4, 4});
        VolumeComparison::BinTreeBuilder tree(box, 0.05, box);
        for (int k = 0; k < 20; ++k) {
            vectorC3d<double> const a = numbers.vector3();
            vectorC3d<double> const b = numbers.vector3();
            tree.addTriangle(a, b, numbers.vector3());
        }
        tree.findOuterArea();
        tree.condense();
        VolumeComparison::SimpleBitVector const bits = tree.exportBitVector();
        fingerprint.add(int(bits.bitCount));
        for (unsigned char byte : bits.bytes) {
            fingerprint.add(int(byte));
        }
    }
    expectFingerprint("volumes", fingerprint);
}

} // namespace
