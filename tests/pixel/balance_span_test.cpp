// Colour balance keeping lightness on the vector kernels against the
// per-pixel reference (forced): every colour (a sample under the sanitizers
// and on 32-bit ARM) for several settings, every span length around the
// block sizes, alpha and the bytes around a span left alone.
#include "pixel/balance_span.h"

#include <gtest/gtest.h>
#include <qtzqeffect/pixel.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "pixel/colour_balance_curves.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
#define QTZQ_TEST_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QTZQ_TEST_SANITIZED 1
#endif
#endif

#if defined(QTZQ_TEST_SANITIZED)
constexpr std::uint32_t kColourStride = 509;  // a sample of the colours
#elif defined(__arm__)
constexpr std::uint32_t kColourStride = 7;  // every 7th: the cross tests run emulated
#else
constexpr std::uint32_t kColourStride = 1;  // every colour
#endif

using Bytes = std::vector<unsigned char>;

const qtzq::ColourBalanceSetting kSettings[] = {
    {qtzq::kMidtones, 0, 0, 0},  // the round trip alone
    {qtzq::kMidtones, 20, -10, 15},
    {qtzq::kShadows, 100, -100, 50},
    {qtzq::kHighlights, -60, 80, -100},
};

// Colour c of the sample as red c >> 16, green c >> 8, blue c; alpha varies.
// Greys and the corners of the cube come first.
Bytes colour_sample() {
    Bytes pixels;
    auto add = [&pixels](std::uint32_t c) {
        pixels.insert(
            pixels.end(),
            {static_cast<unsigned char>(c), static_cast<unsigned char>(c >> 8),
             static_cast<unsigned char>(c >> 16), static_cast<unsigned char>(c * 37 >> 3)});
    };
    for (std::uint32_t v = 0; v < 256; ++v) add(v * 0x010101u);
    for (std::uint32_t c : {0xFF0000u, 0x00FF00u, 0x0000FFu, 0xFFFF00u, 0xFF00FFu, 0x00FFFFu,
                            0xFF0001u, 0x01FEFFu, 0x7F8080u, 0x80807Fu})
        add(c);
    for (std::uint32_t c = 0; c < (1u << 24); c += kColourStride) add(c);
    return pixels;
}

Bytes noise(std::size_t pixels, std::uint32_t state) {
    Bytes bytes(pixels * 4);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>((state = state * 1103515245u + 12345u) >> 16);
    return bytes;
}

Bytes balanced(Bytes pixels, const qtzq::RgbCurves& curves, std::size_t first, std::size_t count,
               qtzq::VectorUnit unit) {
    qtzq::ScopedVectorUnitLimit limit(unit);
    qtzq::balance_keep_lightness_span(pixels.data() + first * 4, count, curves);
    return pixels;
}

TEST(BalanceKeepLightnessSpan, EveryColourAsTheReference) {
    const Bytes colours = colour_sample();
    const std::size_t count = colours.size() / 4;
    for (const qtzq::ColourBalanceSetting& setting : kSettings) {
        const qtzq::RgbCurves curves = qtzq::colour_balance_curves(setting);
        const Bytes reference = balanced(colours, curves, 0, count, qtzq::VectorUnit::kScalar);
        for (qtzq::VectorUnit unit : qtzq_test::fast_path_limits()) {
            const Bytes fast = balanced(colours, curves, 0, count, unit);
            const std::size_t same =
                std::mismatch(fast.begin(), fast.end(), reference.begin()).first - fast.begin();
            EXPECT_EQ(same, fast.size())
                << "region " << setting.region << " shifts " << setting.red << " " << setting.green
                << " " << setting.blue << " unit " << int(unit) << " pixel " << same / 4;
        }
    }
}

TEST(BalanceKeepLightnessSpan, SpanLengthsAroundTheBlocksTouchOnlyTheirPixels) {
    const qtzq::RgbCurves curves = qtzq::colour_balance_curves(kSettings[1]);
    const Bytes around = noise(20, 12345);
    for (std::size_t count = 0; count <= 17; ++count) {
        const Bytes reference = balanced(around, curves, 1, count, qtzq::VectorUnit::kScalar);
        for (std::size_t i = 0; i < around.size(); ++i) {
            const bool inside = i >= 4 && i < (count + 1) * 4 && i % 4 != 3;
            if (!inside) {
                ASSERT_EQ(reference[i], around[i]) << count << " " << i;
            }
        }
        for (qtzq::VectorUnit unit : qtzq_test::fast_path_limits())
            EXPECT_EQ(balanced(around, curves, 1, count, unit), reference)
                << count << " unit " << int(unit);
    }
}

TEST(BalanceKeepLightnessSpan, CColorBalanceRowsAsTheReference) {
    const int per_row = 13, rows = 5;  // rows that end in partial blocks
    Bytes image = noise(std::size_t(per_row) * rows, 777);
    Bytes reference = image;
    {
        qtzq::ScopedVectorUnitLimit scalar(qtzq::VectorUnit::kScalar);
        CColorBalance(true, TONE_REGION_HIGHLIGHTS, 40, -70, 90, reference.data(), rows, per_row);
    }
    CColorBalance(true, TONE_REGION_HIGHLIGHTS, 40, -70, 90, image.data(), rows, per_row);
    EXPECT_EQ(image, reference);
}

}  // namespace
