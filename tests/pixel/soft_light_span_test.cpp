// The soft light span on every vector unit against both blends it stands
// for at full opacity, over every pair of levels, on span lengths that
// leave partial vectors; alpha and the bytes after the span stay as they
// were.
#include <gtest/gtest.h>

#include <vector>

#include "pixel/blend_kernels.h"
#include "pixel/soft_light_span.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

namespace {

using Bytes = std::vector<unsigned char>;

TEST(SoftLightSpan, EqualsBothFullOpacityBlendsOnEveryPair) {
    // Pixel k holds pair k and k + 1 per channel, alpha varies; one extra
    // pixel after the span must stay as it is.
    constexpr std::size_t kPairs = 256 * 256, kPixels = kPairs + 1;
    Bytes base(4 * kPixels), blend(4 * kPixels);
    for (std::size_t k = 0; k < kPixels; ++k)
        for (int c = 0; c < 4; ++c) {
            base[4 * k + c] = static_cast<unsigned char>((k + c) >> 8);
            blend[4 * k + c] = static_cast<unsigned char>(k + 7 * c);
        }
    for (auto reference : {+[](unsigned char* px, const unsigned char* m) { qtzq::soft_light_ex(px, m, 1.0); },
                           +[](unsigned char* px, const unsigned char* m) { qtzq::composite_color_ex(px, m, 1.0); }}) {
        for (qtzq::VectorUnit unit : qtzq_test::fast_path_limits()) {
            qtzq::ScopedVectorUnitLimit limit(unit);
            for (std::size_t count : {kPairs, kPairs - 1, kPairs - 3, std::size_t(5), std::size_t(0)}) {
                Bytes expected = base, got = base;
                for (std::size_t k = 0; k < count; ++k) reference(&expected[4 * k], &blend[4 * k]);
                qtzq::soft_light_span(got.data(), blend.data(), count);
                ASSERT_EQ(got, expected) << "unit " << int(unit) << ", count " << count;
            }
        }
    }
}

}  // namespace
