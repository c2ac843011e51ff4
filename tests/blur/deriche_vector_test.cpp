// The vector paths of the recursive Gaussian against the scalar reference
// (forced): the same bytes for every entry point, on image sizes that leave
// partial blocks of lines and lines shorter than the filter's order, and on
// radii from barely blurring to clamped.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>
#include <string>

#include <qtzqeffect/blur.h>

#include "blur_test_support.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

using namespace qtzq_test;

namespace {

struct Entry {
    const char* name;
    int channels;  // bytes per pixel of the buffer it filters
    std::function<void(unsigned char*, int, int, double)> run;
};

void convolute(unsigned char* buffer, int w, int h, int channels, double radius, bool rows) {
    GaussianBlurFilterUtil util;
    util.FindConstants(radius);
    util.ConvoluteDimension(buffer, w, h, channels, radius, rows);
}

const Entry kEntries[] = {
    {"CreateBlurEffect", 4,
     [](unsigned char* b, int w, int h, double r) {
         GaussianBlurFilterUtil util;
         util.CreateBlurEffect(b, w, h, 4, r, r * 0.6 + 0.4);
     }},
    {"ConvoluteDimension rows, 3 channels", 3,
     [](unsigned char* b, int w, int h, double r) { convolute(b, w, h, 3, r, true); }},
    {"ConvoluteDimension columns, 3 channels", 3,
     [](unsigned char* b, int w, int h, double r) { convolute(b, w, h, 3, r, false); }},
    {"ConvoluteDimension rows, 4 channels", 4,
     [](unsigned char* b, int w, int h, double r) { convolute(b, w, h, 4, r, true); }},
    {"ConvoluteDimension columns, 4 channels", 4,
     [](unsigned char* b, int w, int h, double r) { convolute(b, w, h, 4, r, false); }},
    {"GaussIIRBlurBrush", 4,
     [](unsigned char* b, int w, int h, double r) {
         GaussIIRBlurBrush(b, w, h, int(r), int(r * 0.5) + 3);
     }},
};

// Sizes 1..67: single pixels and lines, lengths below and around the
// filter's order, and counts of lines that leave every partial block.
const int kSizes[] = {1, 2, 3, 4, 5, 6, 7, 9, 13, 30, 67};
const double kRadii[] = {0.05, 1.0, 2.7, 9.0, 41.5, 255.0, 1000.0};

// Flat patches of a few levels, large against short radii: the filtered
// values of a flat stretch lie within rounding of a whole number, so an
// operation done in another order can show as a byte one lower. A sprinkle
// of noise reaches the other values.
Bytes patches(int w, int h, int channels) {
    Bytes image = noise(w * h, 1, std::uint32_t(w * 131 + h));  // 4 bytes a pixel: enough
    image.resize(std::size_t(w) * h * channels);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < channels; ++c) {
                unsigned char& byte = image[(std::size_t(y) * w + x) * channels + c];
                if (byte > 12) byte = static_cast<unsigned char>(((x / 23 + y / 19 + c) % 4) * 85);
            }
    return image;
}

// The buffer exactly as large as the image, so that a stray byte read or
// written past it shows under AddressSanitizer.
Bytes filtered(const Entry& entry, int w, int h, double radius, qtzq::VectorUnit unit) {
    Bytes image = patches(w, h, entry.channels);
    qtzq::ScopedVectorUnitLimit limit(unit);
    entry.run(image.data(), w, h, radius);
    return image;
}

TEST(DericheVector, EqualsTheScalarReference) {
    int case_number = 0;
    for (const Entry& entry : kEntries)
        for (int w : kSizes)
            for (int h : kSizes) {
                // Every size pair meets two radii, in turn across the table.
                for (int pick = 0; pick < 2; ++pick) {
                    const double radius = kRadii[(case_number + pick * 3) % std::size(kRadii)];
                    const Bytes scalar =
                        filtered(entry, w, h, radius, qtzq::VectorUnit::kScalar);
                    for (qtzq::VectorUnit unit : vector_unit_limits())
                        ASSERT_EQ(filtered(entry, w, h, radius, unit), scalar)
                            << entry.name << " " << w << "x" << h << " radius " << radius
                            << " unit " << int(unit);
                }
                ++case_number;
            }
}

TEST(DericheVector, LimitIsScopedAndNests) {
    const qtzq::VectorUnit detected = qtzq::detected_vector_unit();
    {
        qtzq::ScopedVectorUnitLimit outer(qtzq::VectorUnit::kSse2);
        {
            qtzq::ScopedVectorUnitLimit inner(qtzq::VectorUnit::kScalar);
            EXPECT_EQ(qtzq::active_vector_unit(), qtzq::VectorUnit::kScalar);
            EXPECT_FALSE(qtzq::integer_fast_paths_enabled());
        }
        EXPECT_TRUE(qtzq::integer_fast_paths_enabled());
        EXPECT_EQ(qtzq::active_vector_unit(), std::min(detected, qtzq::VectorUnit::kSse2));
    }
    EXPECT_EQ(qtzq::active_vector_unit(), detected);
#if defined(__x86_64__)
    EXPECT_NE(detected, qtzq::VectorUnit::kScalar);
#endif
}

}  // namespace
