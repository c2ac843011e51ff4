// The unsharp mask: kernel, blur edges, combination, preview cache and the
// radius limits.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include <qtzqeffect/blur.h>

#include "blur_test_support.h"

using namespace qtzq_test;

namespace {

// Row pass of radius r over a one-row image with blue samples `s`.
std::vector<int> row_pass(int radius, const std::vector<int>& s) {
    const int width = static_cast<int>(s.size());
    Bytes line = solid(width, 1, 0, 0, 0), out(line.size(), 0), scratch(line.size());
    for (int x = 0; x < width; ++x) line[4 * x] = static_cast<unsigned char>(s[x]);
    CSharp sharp;
    sharp.GetBlur(line.data(), scratch.data(), width, 1, radius, 0, false);  // stores the size
    sharp.ConvoluteDimension(line.data(), out.data(), 0, true, false);
    std::vector<int> result;
    for (int x = 0; x < width; ++x) result.push_back(out[4 * x]);
    return result;
}

// The kernel read back from the middle of a long row: an impulse as high
// as the kernel's sum comes out as the weights themselves.
std::vector<int> kernel_of(int radius, int sum) {
    std::vector<int> impulse(120, 0);
    impulse[60] = sum;
    std::vector<int> weights;
    for (int v : row_pass(radius, impulse))
        if (v) weights.push_back(v);
    return weights;
}

TEST(SharpKernel, StaircaseWeightsForRadiiOneToThree) {
    EXPECT_EQ(kernel_of(1, 181), (std::vector<int>{1, 7, 55, 55, 55, 7, 1}));
    EXPECT_EQ(kernel_of(2, 122), (std::vector<int>{1, 3, 7, 20, 20, 20, 20, 20, 7, 3, 1}));
    EXPECT_EQ(kernel_of(3, 208),
              (std::vector<int>{1, 3, 3, 7, 20, 20, 20, 20, 20, 20, 20, 20, 20, 7, 3, 3, 1}));
}

TEST(SharpKernel, RadiiOutsideOneToFiftyAreRejected) {
    CSharp sharp;
    for (int r : {0, -1, 51, std::numeric_limits<int>::min()}) EXPECT_EQ(sharp.SetRadius(r), 0);
    EXPECT_EQ(sharp.SetRadius(50), 1);
    Bytes image = noise(20, 20, 3), dst(image.size(), 7);
    EXPECT_EQ(sharp.GetBlur(image.data(), dst.data(), 20, 20, 51, 0, false), -1);
    EXPECT_EQ(sharp.useEffect(image.data(), 20, 20, 0, 1.0f), 0);
    EXPECT_EQ(sharp.useEffectPreview(image.data(), 20, 20, 51, 1.0f), 0);
    StyleSharp(image.data(), 20, 20, -3, 1.0f);
    EXPECT_EQ(image, noise(20, 20, 3));
    EXPECT_EQ(dst, Bytes(image.size(), 7));
}

TEST(SharpBlur, FlatImageStaysFlatWhereLinesHoldTheKernel) {
    for (int r : {1, 3, 10, 50}) {
        const int side = (5 * r + 1) | 1;
        Bytes flat = solid(side + 3, side, 11, 128, 254, 77), out(flat.size(), 0);
        CSharp().GetBlur(flat.data(), out.data(), side + 3, side, r, 0, false);
        for (std::size_t i = 0; i < out.size(); i += 4)
            ASSERT_TRUE(out[i] == 11 && out[i + 1] == 128 && out[i + 2] == 254 && out[i + 3] == 0)
                << "radius " << r << " at " << i / 4;
    }
}

TEST(SharpBlur, EdgesAndShortLines) {
    // Radius 1, K = 1 7 55 55 55 7 1. The left edge leaves out the outermost
    // right-hand tap; the right edge uses the kernel from its start.
    const std::vector<int> out = row_pass(1, {0, 20, 40, 60, 80, 100, 120, 140, 160, 180});
    EXPECT_EQ(out[0], (55 * 0 + 55 * 20 + 7 * 40) / 117);
    EXPECT_EQ(out[1], (55 * 0 + 55 * 20 + 55 * 40 + 7 * 60) / 172);
    EXPECT_EQ(out[5], (40 + 7 * 60 + 55 * 80 + 55 * 100 + 55 * 120 + 7 * 140 + 160) / 181);
    EXPECT_EQ(out[9], (120 + 7 * 140 + 55 * 160 + 55 * 180) / 118);
    // A line of 5 (hh = 2) divides its middle by the whole kernel's sum
    // though it uses only 1 7 55 55 55: flat 181 becomes 173 there.
    EXPECT_EQ(row_pass(1, {181, 181, 181, 181, 181}), (std::vector<int>{181, 181, 173, 181, 181}));
}

TEST(SharpBlur, InPlaceEqualsSeparateBuffersAndColumnsMatchTransposedRows) {
    const int w = 23, h = 17;
    Bytes image = noise(w, h, 5);
    // Into a separate buffer whose alpha already is the photo's, and in place.
    Bytes separate = image, in_place = image;
    CSharp().GetBlur(image.data(), separate.data(), w, h, 2, 0, false);
    CSharp().GetBlur(in_place.data(), in_place.data(), w, h, 2, 0, false);
    EXPECT_EQ(in_place, separate);

    // A column pass is the row pass of the transposed image.
    CSharp columns, rows;
    Bytes down = transposed(image, w, h), column_only(image.size(), 0), row_only(image.size(), 0);
    columns.GetBlur(image.data(), column_only.data(), w, h, 1, 0, false);  // stores w x h
    rows.GetBlur(down.data(), row_only.data(), h, w, 1, 0, false);         // stores h x w
    columns.ConvoluteDimension(image.data(), column_only.data(), 0, false, false);
    rows.ConvoluteDimension(down.data(), row_only.data(), 0, true, false);
    EXPECT_EQ(transposed(column_only, w, h), row_only);
}

TEST(SharpCombine, AmountOneIsTwiceTheOriginalLessTheBlur) {
    Bytes image(256 * 256 * 4), blur(256 * 256 * 4);
    for (std::size_t i = 0; i < image.size(); ++i) {
        image[i] = static_cast<unsigned char>(i / 1024);
        blur[i] = static_cast<unsigned char>(i / 4);
    }
    CSharp().SharpProcess(image.data(), blur.data(), 256, 256, 1.0f);
    for (std::size_t i = 0; i < image.size(); ++i) {
        const int o = int(i / 1024), b = int(i / 4) % 256;
        ASSERT_EQ(image[i], i % 4 == 3 ? o : std::clamp(2 * o - b, 0, 255)) << o << " " << b;
    }
}

TEST(SharpCombine, FixedPointAmounts) {
    const auto sharpen = [](int orig, int blur, float amount) {
        Bytes image = solid(1, 1, 0, 0, static_cast<unsigned char>(orig));
        Bytes blurred = solid(1, 1, 0, 0, static_cast<unsigned char>(blur));
        CSharp().SharpProcess(image.data(), blurred.data(), 1, 1, amount);
        return int(image[2]);
    };
    EXPECT_EQ(sharpen(100, 0, 0.12345f), 112);                             // a = 1235
    EXPECT_EQ(sharpen(200, 0, 0.004955f), 201);  // a = trunc(49.55 + 0.5) = 50, not 49
    EXPECT_EQ(sharpen(100, 200, -0.5f), (100 * 5001 + 200 * 4999) / 10000);  // a = -4999
    EXPECT_EQ(sharpen(100, 200, 2.0f), 0);
    EXPECT_EQ(sharpen(100, 200, std::numeric_limits<float>::quiet_NaN()), 100);
    for (float extreme : {1e6f, -1e30f, std::numeric_limits<float>::infinity()})
        sharpen(100, 200, extreme);  // defined, whatever it gives
}

TEST(SharpEffect, AmountZeroOnlyMakesAlphaOpaque) {
    const Bytes image = noise(25, 18, 9);
    Bytes out = image;
    CSharp().useEffect(out.data(), 25, 18, 2, 0.0f);
    for (std::size_t i = 0; i < out.size(); ++i) ASSERT_EQ(out[i], i % 4 == 3 ? 255 : image[i]);
}

TEST(SharpEffect, PreviewKeepsItsFirstBlur) {
    const int w = 16, h = 12;
    const Bytes first = noise(w, h, 10);
    CSharp preview;
    Bytes a = first, one_shot = first;
    preview.useEffectPreview(a.data(), w, h, 2, 0.5f);
    CSharp().useEffect(one_shot.data(), w, h, 2, 0.5f);
    EXPECT_EQ(a, one_shot);
    // Later calls sharpen against that blur, whatever radius they ask for:
    // the first image comes back as the one-shot result at radius 2.
    a = first, one_shot = first;
    preview.useEffectPreview(a.data(), w, h, 9, 1.5f);
    CSharp().useEffect(one_shot.data(), w, h, 2, 1.5f);
    EXPECT_EQ(a, one_shot);
    // A larger image later never reads past the cached blur.
    Bytes large = noise(30, 30, 2);
    EXPECT_EQ(preview.useEffectPreview(large.data(), 30, 30, 1, 1.0f), 1);
}

}  // namespace
