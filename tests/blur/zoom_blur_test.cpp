// Radial zoom blur, its contrast curve, the resizer and the B-spline kernel.
#include <gtest/gtest.h>

#include <qtzqeffect/blur.h>

#include "blur/zoom_curve.h"
#include "blur_test_support.h"

using namespace qtzq_test;

namespace {

const unsigned char* const curve = qtzq::kZoomContrastCurve.map;

Bytes zoomed(Bytes src, Bytes weights, int w, int h, Bytes dst = {}) {
    if (dst.empty()) dst = Bytes(src.size(), 0);
    RadiusZoomBlur(dst.data(), src.data(), weights.data(), w, h);
    return dst;
}

TEST(ZoomCurve, RunsFromZeroTo255AndNeverFalls) {
    EXPECT_TRUE(curve[0] == 0 && curve[128] == 127 && curve[255] == 255);
    for (int i = 1; i < 256; ++i) EXPECT_GE(curve[i], curve[i - 1]) << i;
}

TEST(ZoomBlur, ZeroWeightsKeepColoursThroughTheCurveAndClearAlpha) {
    const Bytes old = noise(9, 7, 2);
    const Bytes out = zoomed(noise(9, 7, 1), solid(9, 7, 0, 200, 200, 200), 9, 7, old);
    for (std::size_t i = 0; i < out.size(); ++i) ASSERT_EQ(out[i], i % 4 == 3 ? 0 : curve[old[i]]);
}

TEST(ZoomBlur, FullWeightsOnAUniformImage) {
    // Only byte 0 of a weights pixel counts.
    const Bytes out = zoomed(solid(12, 10, 40, 128, 250, 3), solid(12, 10, 255, 0, 9, 0), 12, 10);
    EXPECT_EQ(out, solid(12, 10, curve[40], curve[128], curve[250], 255));
}

TEST(ZoomBlur, SelfSamples) {
    // The centre of an even image samples itself 97 times.
    const int w = 16, h = 10;
    const Bytes src = noise(w, h, 5), weights = noise(w, h, 6);
    const std::size_t centre = (std::size_t(h / 2) * w + w / 2) * 4;
    ASSERT_NE(weights[centre], 0);
    Bytes out = zoomed(src, weights, w, h);
    for (int c = 0; c < 3; ++c) EXPECT_EQ(out[centre + c], curve[src[centre + c]]);
    EXPECT_EQ(out[centre + 3], weights[centre]);
    // A corner 20 pixels from the centre shrinks by 100/16384 a tap, so taps
    // 0..4 still land on it: with weight only there, alpha = 5 * 194 / 97.
    Bytes corner_only = solid(40, 40, 0, 0, 0, 0);
    corner_only[0] = 194;
    out = zoomed(noise(40, 40, 7), corner_only, 40, 40);
    EXPECT_EQ(out[3], 10);
}

TEST(ZoomBlur, SamplesStayInsideEveryImageSize) {
    // Under AddressSanitizer any sample outside the buffers would show.
    for (int w = 1; w <= 24; ++w)
        for (int h = 1; h <= 24; ++h) zoomed(noise(w, h, w), noise(w, h, h), w, h);
}

unsigned char* owned(const Bytes& bytes) {  // a new[] copy, as RampleBit expects
    auto* p = new unsigned char[bytes.size()];
    std::copy(bytes.begin(), bytes.end(), p);
    return p;
}

TEST(RampleBit, NearestNeighbourByTruncatedScale) {
    unsigned char* image = owned({1, 2, 3, 4, 5, 6});  // 3 x 2, one byte a pixel
    RampleBit(6, 4, &image, 3, 2, 1);
    EXPECT_EQ(Bytes(image, image + 24), (Bytes{1, 1, 2, 2, 3, 3, 1, 1, 2, 2, 3, 3,
                                               4, 4, 5, 5, 6, 6, 4, 4, 5, 5, 6, 6}));
    delete[] image;
    image = owned({10, 11, 20, 21, 30, 31, 40, 41, 50, 51});  // 5 x 1 to 2 x 1: scale 2.5
    RampleBit(2, 1, &image, 5, 1, 2);
    EXPECT_EQ(Bytes(image, image + 4), (Bytes{10, 11, 30, 31}));
    delete[] image;
}

TEST(RampleBit, NoChangeCases) {
    unsigned char* image = owned(noise(4, 3, 1));
    unsigned char* const original = image;
    RampleBit(4, 3, &image, 4, 3, 4);  // same size
    RampleBit(5, 5, nullptr, 4, 3, 4);
    EXPECT_EQ(image, original);
    delete[] image;
}

TEST(KernelBSpline, KnownValuesAndPartitionOfUnity) {
    EXPECT_EQ(KernelBSpline(0.0f), 4.0f * 0.16666667f);
    EXPECT_EQ(KernelBSpline(-1.0f), 0.16666667f);
    EXPECT_EQ(KernelBSpline(2.0f), 0.0f);
    EXPECT_EQ(KernelBSpline(-3.0f), 0.0f);
    for (float t = 0.0f; t < 1.0f; t += 0.125f)
        EXPECT_NEAR(KernelBSpline(t - 2) + KernelBSpline(t - 1) + KernelBSpline(t) + KernelBSpline(t + 1),
                    1.0f, 1e-6f);
}

}  // namespace
