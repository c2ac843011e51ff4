// The zoom blur's fast paths (a row at a time, and eight pixels a gather on
// AVX2) against the reference loop (forced scalar): the same bytes on random
// images and weight masks with zero weights sprinkled in, on every small size
// (single rows and columns, odd and even, partial groups of eight), and
// larger ones whose rows span several strips of columns.
#include <gtest/gtest.h>

#include <cstddef>

#include <qtzqeffect/blur.h>

#include "blur/zoom_taps.h"
#include "blur_test_support.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

using namespace qtzq_test;

namespace {

struct Size {
    int width, height;
};

// A destination that is noise too: pixels without weight keep its colours.
Bytes zoomed(int w, int h, std::uint32_t seed, qtzq::VectorUnit unit) {
    Bytes src = noise(w, h, seed), weights = noise(w, h, seed + 1), dst = noise(w, h, seed + 2);
    for (std::size_t i = 0; i < weights.size(); i += 4)
        if (weights[i + 1] < 64) weights[i] = 0;  // a quarter without weight
    qtzq::ScopedVectorUnitLimit limit(unit);
    RadiusZoomBlur(dst.data(), src.data(), weights.data(), w, h);
    return dst;
}

void expect_fast_paths_equal_reference(Size size, std::uint32_t seed) {
    const Bytes reference = zoomed(size.width, size.height, seed, qtzq::VectorUnit::kScalar);
    // On every CPU the plain strips run under one of these, and on x86-64
    // with AVX2 both paths do.
    for (qtzq::VectorUnit unit : fast_path_limits())
        ASSERT_EQ(zoomed(size.width, size.height, seed, unit), reference)
            << size.width << "x" << size.height << " unit " << int(unit);
}

TEST(ZoomVector, EqualsTheReferenceOnEverySmallSize) {
    const int sizes[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 30, 67};
    std::uint32_t seed = 1;
    for (int w : sizes)
        for (int h : sizes) expect_fast_paths_equal_reference({w, h}, seed += 3);
}

TEST(ZoomVector, EqualsTheReferenceOnLargerAndLongSizes) {
    // Rows of several strips of columns (and a part strip), long columns.
    const Size sizes[] = {{257, 131}, {1031, 3}, {2 * qtzq::kZoomStripColumns, 1}, {1, 1500}};
    std::uint32_t seed = 500;
    for (Size size : sizes) expect_fast_paths_equal_reference(size, seed += 3);
}

}  // namespace
