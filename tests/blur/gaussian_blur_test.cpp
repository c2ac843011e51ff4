// The recursive Gaussian blur: coefficients, radius handling, edges, and
// concurrent use of the shared instance.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>

#include <qtzqeffect/blur.h>

#include "blur/sigma_mapping.h"
#include "blur_test_support.h"

using namespace qtzq_test;

namespace {

using Table = void (*)(double*, double*, double*, double*, double*, double*, double);

// A coefficient block holder filled by one of the free functions.
GaussianBlurFilterUtil filled(Table table, double sigma) {
    GaussianBlurFilterUtil b;
    table(b.n, b.m, b.d, b.dAnti, b.bn, b.bm, sigma);
    return b;
}

GaussianBlurFilterUtil for_radius(double radius) {
    return filled(find_constants, qtzq::blur_radius_to_sigma(radius));
}

bool same_block(const GaussianBlurFilterUtil& a, const GaussianBlurFilterUtil& b) {
    const auto eq = [](const double* x, const double* y) { return std::equal(x, x + 5, y); };
    return eq(a.n, b.n) && eq(a.m, b.m) && eq(a.d, b.d) && eq(a.dAnti, b.dAnti) &&
           eq(a.bn, b.bn) && eq(a.bm, b.bm);
}

Bytes blurred(Bytes image, int w, int h, double rx, double ry) {
    GaussianBlurFilterUtil util;
    EXPECT_EQ(util.CreateBlurEffect(image.data(), w, h, 4, rx, ry), 1);
    return image;
}

// Explicit passes through the public steps: rows with the coefficients of
// radius `rows`, then columns with those of `columns` (0: no pass).
Bytes by_passes(Bytes image, int w, int h, double rows, double columns) {
    GaussianBlurFilterUtil util;
    util.FindConstants(rows);
    util.ConvoluteDimension(image.data(), w, h, 4, rows, true);
    util.FindConstants(columns);
    util.ConvoluteDimension(image.data(), w, h, 4, columns, false);
    return image;
}

// Every colour byte of the image is the same; returns it (-1 otherwise).
int uniform_value(const Bytes& image) {
    for (std::size_t i = 0; i < image.size(); ++i)
        if (i % 4 != 3 && image[i] != image[0]) return -1;
    return image[0];
}

TEST(GaussianCoefficients, FixedEntriesAndSteadyState) {
    EXPECT_NEAR(qtzq::blur_radius_to_sigma(0.0), 1.3 / 3.3290429691304455, 1e-15);  // 0.39
    EXPECT_DOUBLE_EQ(qtzq::brush_radius_to_sigma(2), 0.901159712351531);
    for (double sigma : {0.4, 0.7, 2.0, 20.0, 80.0}) {
        const GaussianBlurFilterUtil b = filled(find_constants, sigma);
        EXPECT_TRUE(b.n[4] == 0 && b.m[0] == 0 && b.d[0] == 0 && b.bn[0] == 0 && b.bm[0] == 0);
        EXPECT_TRUE(std::equal(b.d, b.d + 5, b.dAnti));
        EXPECT_NEAR(b.n[0], 1.0 / (sigma * 2.5066282746310002), 1e-15);
        double sn = 0, sm = 0, sd = 1;
        for (int i = 0; i < 5; ++i) sn += b.n[i], sm += b.m[i], sd += b.d[i];
        // Both filters pass a constant almost unchanged, except at radius 0
        // (sigma 0.39), where the approximation's gain is 1.09.
        EXPECT_NEAR((sn + sm) / sd, 1.0, sigma < 0.6 ? 0.1 : 3e-4) << sigma;
    }
}

TEST(GaussianCoefficients, FixedTablesAreTheBrushRadiiTwoAndTwelve) {
    // Listed to about six decimals; the radius-2 causal edge row is the
    // denominator with entry 3 positive instead.
    for (const auto& [table, radius] :
         {std::pair{find_constants_2, 2}, std::pair{find_constants_12, 12}}) {
        const GaussianBlurFilterUtil listed = filled(table, 123.0);
        const GaussianBlurFilterUtil formula =
            filled(find_constants, qtzq::brush_radius_to_sigma(radius));
        const auto near = [](double a, double b) { return std::fabs(a - b) < 1e-5; };
        for (int i = 0; i < 5; ++i) {
            const double bn = radius == 2 ? (i == 3 ? -listed.d[i] : listed.d[i]) : formula.bn[i];
            EXPECT_TRUE(near(listed.n[i], formula.n[i]) && near(listed.m[i], formula.m[i]) &&
                        near(listed.d[i], formula.d[i]) && near(listed.bm[i], formula.bm[i]) &&
                        listed.dAnti[i] == listed.d[i] &&
                        (radius == 2 ? listed.bn[i] == bn : near(listed.bn[i], bn)))
                << radius << " " << i;
        }
    }
}

TEST(GaussianCoefficients, FindConstantsSkipsTinyRadii) {
    GaussianBlurFilterUtil util;
    EXPECT_TRUE(util.n[0] == 0 && util.bm[4] == 0);  // all 0 at construction
    util.FindConstants(6.5);
    for (double tiny : {0.0, 5e-9, -3.0, std::nan("")}) {
        util.FindConstants(tiny);
        EXPECT_TRUE(same_block(util, for_radius(6.5))) << tiny;
    }
}

TEST(GaussianBlur, NullBufferAndEmptySizes) {
    GaussianBlurFilterUtil util;
    EXPECT_EQ(util.CreateBlurEffect(nullptr, 4, 4, 4, 3.0, 3.0), 0);
    Bytes image = noise(4, 4, 1);
    EXPECT_EQ(util.CreateBlurEffect(image.data(), 0, 4, 4, 3.0, 3.0), 1);
    EXPECT_EQ(util.CreateBlurEffect(image.data(), 4, -2, 4, 3.0, 3.0), 1);
    EXPECT_EQ(image, noise(4, 4, 1));
}

TEST(GaussianBlur, UniformImageStaysUniform) {
    // From radius 1.5 on the response to a constant is just above 1, so every
    // value survives the truncation exactly.
    for (double radius : {1.5, 3.0, 60.0, 255.0})
        for (int v = 0; v < 256; ++v) {
            const auto c = static_cast<unsigned char>(v);
            ASSERT_EQ(uniform_value(blurred(solid(6, 5, c, c, c), 6, 5, radius, radius)), v) << radius;
        }
    // Below that it stays uniform, but the value moves (gain 0.99991 at
    // radius 1: one lower per pass; 1.0064 at radius 0.5).
    EXPECT_EQ(uniform_value(blurred(solid(5, 4, 255, 255, 255), 5, 4, 1.0, 1.0)), 253);
    EXPECT_EQ(uniform_value(blurred(solid(5, 4, 160, 160, 160), 5, 4, 0.5, 0.5)), 162);
}

TEST(GaussianBlur, RadiusHandling) {
    const Bytes image = noise(13, 11, 3);
    EXPECT_TRUE(alpha_unchanged(image, blurred(image, 13, 11, 4.0, 9.0)));
    for (double none : {0.0, 1e-9, -5.0, std::nan("")})
        EXPECT_EQ(blurred(image, 13, 11, none, none), image) << none;
    EXPECT_EQ(blurred(image, 13, 11, 4.0, -5.0), by_passes(image, 13, 11, 4.0, 0.0));
    EXPECT_EQ(blurred(image, 13, 11, 0.0, 6.0), by_passes(image, 13, 11, 0.0, 6.0));
    EXPECT_EQ(blurred(image, 13, 11, 4.0, 7.0), by_passes(image, 13, 11, 4.0, 7.0));
    EXPECT_EQ(blurred(image, 13, 11, 1000.0, 1e300), blurred(image, 13, 11, 255.0, 255.0));
}

TEST(GaussianBlur, RowsAndColumnsAreTheSameFilter) {
    for (const auto& [w, h] : {std::pair{17, 9}, std::pair{1, 50}, std::pair{50, 1}}) {
        const Bytes image = noise(w, h, 6);
        EXPECT_EQ(transposed(blurred(transposed(image, w, h), h, w, 0.0, 5.0), h, w),
                  blurred(image, w, h, 5.0, 0.0));
    }
    // A line of one pixel gives its value back through both edge
    // extensions (at most 1 lower after truncation).
    const Bytes pixel = noise(1, 1, 8), out = blurred(pixel, 1, 1, 20.0, 20.0);
    for (int c = 0; c < 3; ++c) EXPECT_TRUE(out[c] == pixel[c] || out[c] + 1 == pixel[c]);
}

TEST(GaussianBlur, BlockKeepsTheLastRadiusComputed) {
    const Bytes image = noise(10, 12, 7);
    GaussianBlurFilterUtil util;
    Bytes copy = image;
    util.CreateBlurEffect(copy.data(), 10, 12, 4, 3.0, 7.0);
    EXPECT_TRUE(same_block(util, for_radius(7.0)));
    util.CreateBlurEffect(copy.data(), 10, 12, 4, 5.0, 0.0);
    EXPECT_TRUE(same_block(util, for_radius(5.0)));
    // Radii within 1e-6 of each other share the row coefficients.
    copy = image;
    util.CreateBlurEffect(copy.data(), 10, 12, 4, 4.0, 4.0 + 5e-7);
    EXPECT_TRUE(same_block(util, for_radius(4.0)));
    EXPECT_EQ(copy, by_passes(image, 10, 12, 4.0, 4.0));
    // Radius 0 computes nothing, so a column radius of 5e-7 blurs with the
    // block as it stands, as a lone caller would see it.
    copy = image;
    util.CreateBlurEffect(copy.data(), 10, 12, 4, 0.0, 5e-7);
    EXPECT_EQ(copy, by_passes(image, 10, 12, 0.0, 4.0));
}

TEST(GaussianBlurThreads, TwoThreadsGiveTheBytesOfOneAfterTheOther) {
    const int w = 120, h = 90;
    const Bytes first = noise(w, h, 21), second = noise(w, h, 22);
    GaussianBlurFilterUtil* shared = GaussianBlurFilterUtil::GetInst();
    ASSERT_EQ(shared, GaussianBlurFilterUtil::GetInst());
    Bytes a = first, b = second;
    shared->CreateBlurEffect(a.data(), w, h, 4, 3.0, 3.0);
    shared->CreateBlurEffect(b.data(), w, h, 4, 17.0, 2.0);
    for (int round = 0; round < 4; ++round) {
        Bytes x = first, y = second;
        std::thread t1([&] { shared->CreateBlurEffect(x.data(), w, h, 4, 3.0, 3.0); });
        std::thread t2([&] { shared->CreateBlurEffect(y.data(), w, h, 4, 17.0, 2.0); });
        t1.join();
        t2.join();
        EXPECT_EQ(x, a);
        EXPECT_EQ(y, b);
        EXPECT_TRUE(same_block(*shared, for_radius(3.0)) || same_block(*shared, for_radius(2.0)));
    }
}

}  // namespace
