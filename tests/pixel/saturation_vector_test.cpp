// The saturation spans on every vector unit the CPU has against the
// per-pixel reference (forced): the same bytes on every colour (a sample in
// unoptimised builds), for matrices on both sides of the 32-bit limit and
// for chroma tables from a range of amounts, on span lengths that leave
// partial vectors; alpha and the bytes around the span are never touched.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "pixel/saturation_kernels.h"
#include "pixel/saturation_spans.h"
#include "pixel/vector/saturation_vectors.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

namespace {

using Bytes = std::vector<unsigned char>;
using Span = std::function<void(unsigned char*, std::size_t)>;

// Every colour once (optimised builds), else every 251st plus greys and the
// corners of the cube; alpha varies so that a write to it shows.
Bytes colours() {
#ifdef NDEBUG
    const std::uint32_t step = 1, count = 1u << 24;
#else
    const std::uint32_t step = 251, count = (1u << 24) / 251 + 1;
#endif
    std::vector<std::uint32_t> bgr;
    for (std::uint32_t k = 0; k < count; ++k) bgr.push_back(k * step & 0xFFFFFFu);
    for (std::uint32_t grey = 0; grey < 256; ++grey) bgr.push_back(grey * 0x010101u);
    for (std::uint32_t corner = 0; corner < 8; ++corner)
        bgr.push_back((corner & 1 ? 0xFFu : 0) | (corner & 2 ? 0xFF00u : 0) | (corner & 4 ? 0xFF0000u : 0));
    Bytes out;
    for (std::size_t k = 0; k < bgr.size(); ++k) {
        for (int byte = 0; byte < 3; ++byte) out.push_back((bgr[k] >> (8 * byte)) & 0xFFu);
        out.push_back((k * 37 + 11) & 0xFFu);
    }
    return out;
}

Bytes run(Bytes image, std::size_t first, std::size_t count, const Span& span, qtzq::VectorUnit unit) {
    qtzq::ScopedVectorUnitLimit limit(unit);
    span(image.data() + 4 * first, count);
    return image;
}

// Fast equals reference on the whole buffer, then on spans of 0..17 pixels
// starting one pixel in (the pixels around them must stay as they were).
void expect_fast_equals_reference(const Bytes& image, const Span& span, const char* name) {
    const Bytes reference = run(image, 0, image.size() / 4, span, qtzq::VectorUnit::kScalar);
    for (std::size_t k = 3; k < image.size(); k += 4) ASSERT_EQ(reference[k], image[k]) << name;
    for (qtzq::VectorUnit unit : qtzq_test::fast_path_limits()) {
        SCOPED_TRACE(testing::Message() << name << ", unit " << int(unit));
        EXPECT_TRUE(run(image, 0, image.size() / 4, span, unit) == reference);
        const Bytes strip(image.begin() + 4 * 1000, image.begin() + 4 * 1020);
        for (std::size_t count = 0; count <= 17; ++count)
            EXPECT_EQ(run(strip, 1, count, span, unit),
                      run(strip, 1, count, span, qtzq::VectorUnit::kScalar)) << "count " << count;
    }
}

struct MatrixCase {
    const char* name;
    qtzq::SaturationMatrix matrix;
    bool fits_32_bits;
};

constexpr int kWidest = 2147483647 / 255 / 3;  // three of these per row still fit

const MatrixCase kMatrices[] = {
    {"amount -100", qtzq::saturation_matrix(-100), true},
    {"amount -30", qtzq::saturation_matrix(-30), true},
    {"amount 0", qtzq::saturation_matrix(0), true},
    {"amount 20", qtzq::saturation_matrix(20), true},
    {"amount 100", qtzq::saturation_matrix(100), true},
    {"amount 1e8", qtzq::saturation_matrix(100000000), false},
    {"widest 32-bit", {{kWidest, -kWidest, kWidest, -kWidest, -kWidest, -kWidest, 3, -kWidest, 7}}, true},
    {"one row past 32 bits", {{8421504, 0, 0, 0, 8421505, 0, 0, 0, 256}}, false},
};

TEST(SaturationMatrixSpan, EqualsThePerPixelReference) {
    const Bytes image = colours();
    for (const MatrixCase& c : kMatrices) {
        EXPECT_EQ(qtzq::matrix_sums_fit_32_bits(c.matrix.m), c.fits_32_bits) << c.name;
        const int* m = c.matrix.m;
        expect_fast_equals_reference(
            image, [m](unsigned char* px, std::size_t n) { qtzq::saturation_matrix_span(px, n, m); },
            c.name);
    }
    const int edge[9] = {8421504, 0, 0, -2147483647 - 1, 0, 0, 0, 0, 0};  // row 0 fits exactly
    EXPECT_FALSE(qtzq::matrix_sums_fit_32_bits(edge));
}

TEST(YuvChromaSpan, EqualsThePerPixelReference) {
    const Bytes image = colours();
    for (long amount : {-100L, -50L, 0L, 37L, 100L, 1000L}) {
        unsigned char table[256];
        qtzq::chroma_scale_table(amount, table);
        expect_fast_equals_reference(
            image, [&table](unsigned char* px, std::size_t n) { qtzq::yuv_chroma_span(px, n, table); },
            ("amount " + std::to_string(amount)).c_str());
    }
}

}  // namespace
