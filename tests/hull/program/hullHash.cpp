#include <HullTestSupport.h>

#include <cstdio>

namespace {

/// FNV-1a over the bytes of plain values.
class Hash
{
public:
    template <typename T>
    void add(T const &value)
    {
        unsigned char bytes[sizeof(T)];
        std::memcpy(bytes, &value, sizeof(T));
        for (unsigned char byte : bytes) {
            m_value = (m_value ^ byte) * 1099511628211u;
        }
    }
    unsigned long long value() const { return m_value; }

private:
    unsigned long long m_value = 14695981039346656037u;
};

} // namespace

int main()
{
    Hash hash;
    for (int kind = 0; kind <= int(Cloud::Last); ++kind) {
        Points3 const points = makeCloud(Cloud(kind), 3000, 3);
        ConvexHullBuilderC builder(points);
        builder.buildHull();
        hash.add(builder.dimension());
        for (int index : builder.hullVertexIndices()) {
            hash.add(index);
        }
        for (HullTriangle const &t : trianglesOf(builder)) {
            for (vectorC3d<double> const &v : {t.a, t.b, t.c, t.normal}) {
                hash.add(std::array<double, 3>{v.x(), v.y(), v.z()});
            }
        }
    }
    std::printf("%016llx\n", hash.value());
    return 0;
}
