/// @file
/// The quick way of the two point-in-polygon tests: no vertex lies in the band about the ray. Not
/// part of the interface.
#pragma once

#include <OrvelMath/geom2d/rayBand_p.h>
#include <OrvelMath/geom2d/sse2_p.h>

#include <QtCore/QtAlgorithms>

#include <algorithm>
#include <array>
#include <cstdint>

namespace rayBand {

/// Which vertices lie below the band, a bit each, for up to `capacity` of them.
class Sides
{
public:
    /// 16 KB of bits, which the stack bears.
    static constexpr int capacity = 1 << 17;

    /// Fewer vertices are walked around faster than this is set up.
    static constexpr int smallest = 16;

    /// Takes in all vertices in one pass; adds their x coordinates to `extent`, if given.
    template <typename At>
    Sides(At const &at, int count, Band const &band, Extent *extent)
        : m_count(count)
    {
        if (count < smallest) {
            if (extent != nullptr) {
                *extent = xExtent(at, count, *extent);
            }
            m_areComplete = false;
            return;
        }
        Scan scan(band, extent != nullptr ? *extent : Extent{0.0, 0.0});
        for (int begin = 0; begin < count; begin += 64) {
            m_below[static_cast<size_t>(begin % capacity / 64)] =
                scan.word(at, begin, std::min(64, count - begin));
        }
        if (extent != nullptr) {
            *extent = scan.extent();
        }
        m_areComplete = count <= capacity && scan.isBandEmpty();
    }

    /// Whether the sides tell all: every vertex lies below or above the band, and none was too
    /// many.
    bool areComplete() const { return m_areComplete; }

    /// Calls `visit(i, next)` for each edge from one side to the other, until it returns true.
    /// @return whether `visit` ended the run.
    template <typename Visit>
    bool visitCrossings(Visit visit) const
    {
        for (int begin = 0; begin < m_count; begin += 64) {
            auto const word = static_cast<std::size_t>(begin / 64);
            std::uint64_t const below = m_below[word];
            int const size = std::min(64, m_count - begin);
            bool const isLast = begin + size == m_count;
            std::uint64_t const following = isLast ? m_below[0] : m_below[word + 1];
            std::uint64_t const next = below >> 1 | (following & 1) << (size - 1);
            for (std::uint64_t edges = below ^ next; edges != 0; edges &= edges - 1) {
                int const i = begin + static_cast<int>(qCountTrailingZeroBits(quint64(edges)));
                if (visit(i, i + 1 == m_count ? 0 : i + 1)) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    /// One pass over the vertices for the sides and the extent.
    class Scan
    {
    public:
        Scan(Band const &band, Extent const &extent)
            : m_band(band)
            , m_extent(extent)
#ifdef __SSE2__
            , m_min{_mm_set1_pd(extent.min), _mm_set1_pd(extent.min)}
            , m_max{_mm_set1_pd(extent.max), _mm_set1_pd(extent.max)}
            , m_out{_mm_cmpeq_pd(_mm_setzero_pd(), _mm_setzero_pd())}
            , m_low(_mm_set1_pd(band.low))
            , m_high(_mm_set1_pd(band.high))
#endif
        {
        }

        template <typename At>
        std::uint64_t word(At const &at, int begin, int size)
        {
            std::uint64_t below = 0;
            int i = 0;
#ifdef __SSE2__
            for (; i + 4 <= size; i += 4) {
                int const v = begin + i;
                std::uint64_t const four =
                    sidesOfFour(sse2::load(at(v)), sse2::load(at(v + 1)), sse2::load(at(v + 2)),
                                sse2::load(at(v + 3)));
                below |= four << i;
            }
#endif
            for (; i < size; ++i) {
                Point2D const &vertex = at(begin + i);
                m_extent.include(vertex.x());
                bool const isBelow = m_band.low > vertex.y();
                bool const isAbove = vertex.y() > m_band.high;
                m_isBandEmpty &= isBelow | isAbove;
                below |= std::uint64_t(isBelow) << i;
            }
            return below;
        }

        Extent extent() const
        {
            Extent all = m_extent;
#ifdef __SSE2__
            all.min = std::min(all.min, _mm_cvtsd_f64(_mm_min_sd(m_min[0], m_min[1])));
            all.max = std::max(all.max, _mm_cvtsd_f64(_mm_max_sd(m_max[0], m_max[1])));
#endif
            return all;
        }

        bool isBandEmpty() const
        {
#ifdef __SSE2__
            return m_isBandEmpty && _mm_movemask_pd(m_out) == 3;
#else
            return m_isBandEmpty;
#endif
        }

    private:
#ifdef __SSE2__
        std::uint64_t sidesOfFour(__m128d a, __m128d b, __m128d c, __m128d d)
        {
            // Both coordinates are compared, because that is cheaper than to part them; the extent
            // reads the first lane. In this order NaN changes nothing.
            m_min[0] = _mm_min_pd(c, _mm_min_pd(a, m_min[0]));
            m_min[1] = _mm_min_pd(d, _mm_min_pd(b, m_min[1]));
            m_max[0] = _mm_max_pd(c, _mm_max_pd(a, m_max[0]));
            m_max[1] = _mm_max_pd(d, _mm_max_pd(b, m_max[1]));
            __m128d const y0 = _mm_unpackhi_pd(a, b);
            __m128d const y1 = _mm_unpackhi_pd(c, d);
            __m128d const below0 = _mm_cmpgt_pd(m_low, y0);
            __m128d const below1 = _mm_cmpgt_pd(m_low, y1);
            m_out = _mm_and_pd(m_out, _mm_or_pd(below0, _mm_cmpgt_pd(y0, m_high)));
            m_out = _mm_and_pd(m_out, _mm_or_pd(below1, _mm_cmpgt_pd(y1, m_high)));
            __m128 const below = _mm_shuffle_ps(_mm_castpd_ps(below0), _mm_castpd_ps(below1),
                                                _MM_SHUFFLE(2, 0, 2, 0));
            return static_cast<std::uint64_t>(_mm_movemask_ps(below));
        }
#endif

        Band m_band;
        Extent m_extent;
        bool m_isBandEmpty = true;
#ifdef __SSE2__
        __m128d m_min[2];
        __m128d m_max[2];
        __m128d m_out;
        __m128d m_low;
        __m128d m_high;
#endif
    };

    std::array<std::uint64_t, capacity / 64> m_below;
    int m_count;
    bool m_areComplete;
};

} // namespace rayBand
