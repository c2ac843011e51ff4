// CSharp's blur through prefix sums of the kernel's runs against the
// tap-by-tap reference (forced): the same bytes for every pass and entry
// point, on sizes that leave partial blocks of lines and lines shorter than
// the kernel, and on radii across the whole range.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <vector>

#include <qtzqeffect/blur.h>

#include "blur/exact_divider.h"
#include "blur_test_support.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

using namespace qtzq_test;

namespace {

struct Entry {
    const char* name;
    std::function<void(unsigned char*, int, int, int)> run;
};

void pass(unsigned char* image, int w, int h, int radius, bool rows) {
    CSharp sharp;
    Bytes scratch(std::size_t(w) * h * 4);
    sharp.GetBlur(image, scratch.data(), w, h, radius, 0, false);  // stores the size and kernel
    sharp.ConvoluteDimension(image, image, 0, rows, false);
}

const Entry kEntries[] = {
    {"row pass", [](unsigned char* b, int w, int h, int r) { pass(b, w, h, r, true); }},
    {"column pass", [](unsigned char* b, int w, int h, int r) { pass(b, w, h, r, false); }},
    {"useEffect", [](unsigned char* b, int w, int h, int r) {
         CSharp().useEffect(b, w, h, r, 1.7f);
     }},
    {"GetUnsharpMask", [](unsigned char* b, int w, int h, int r) {
         CSharp sharp;
         Bytes dst(std::size_t(w) * h * 4, 9);
         sharp.GetBlur(b, dst.data(), w, h, r, 0, false);
         sharp.GetUnsharpMask(b, dst.data(), r, -0.6f, 0);
         std::copy(dst.begin(), dst.end(), b);
     }},
};

const int kSizes[] = {1, 2, 3, 5, 8, 9, 16, 17, 30, 67};  // blocks of 8 lines and tails
const int kRadii[] = {1, 2, 3, 7, 10, 23, 50};

Bytes blurred(const Entry& entry, int w, int h, int radius, qtzq::VectorUnit unit) {
    Bytes image = noise(w, h, std::uint32_t(w * 67 + h));
    qtzq::ScopedVectorUnitLimit limit(unit);
    entry.run(image.data(), w, h, radius);
    return image;
}

TEST(CSharpBlocks, EqualTheTapByTapReference) {
    int case_number = 0;
    for (const Entry& entry : kEntries)
        for (int w : kSizes)
            for (int h : kSizes) {
                for (int pick = 0; pick < 2; ++pick) {
                    const int radius = kRadii[(case_number + pick * 3) % std::size(kRadii)];
                    const Bytes reference = blurred(entry, w, h, radius, qtzq::VectorUnit::kScalar);
                    // The portable kernel, and AVX2's where the CPU has it.
                    for (qtzq::VectorUnit unit : fast_path_limits())
                        ASSERT_EQ(blurred(entry, w, h, radius, unit), reference)
                            << entry.name << " " << w << "x" << h << " radius " << radius
                            << " unit " << int(unit);
                }
                ++case_number;
            }
}

// The unsharp mask's one sweep down the image on lines of every length up
// to 67 across and down (1 x N, N x 1, and N x 11 for partial blocks of
// rows), each length with a radius from the whole range: small radii sum in
// 16 bits, large ones in 32. The first size makes the sweep's ring too large
// (over 4 MB and over the image), so that the two passes run instead.
TEST(CSharpBlocks, UnsharpOnEveryLineLength) {
    struct Size {
        int w, h, radius;
    };
    std::vector<Size> sizes = {{132000, 2, 1}};
    for (int n = 1; n <= 67; ++n) {
        const int radius = kRadii[n % std::size(kRadii)];
        for (const Size& size : {Size{1, n, radius}, Size{n, 1, radius}, Size{n, 11, radius}})
            sizes.push_back(size);
    }
    for (const Entry& entry : {kEntries[2], kEntries[3]})
        for (const Size& s : sizes) {
            const Bytes reference = blurred(entry, s.w, s.h, s.radius, qtzq::VectorUnit::kScalar);
            for (qtzq::VectorUnit unit : fast_path_limits())
                ASSERT_EQ(blurred(entry, s.w, s.h, s.radius, unit), reference)
                    << entry.name << " " << s.w << "x" << s.h << " radius " << s.radius << " unit "
                    << int(unit);
        }
}

// The multiply-and-shift quotient against division, at and around every
// multiple of the divisor up to the bound, for divisors of every size the
// kernels produce and beyond; and the short form (a 16-bit multiply-high
// and a shift) where the bound is below 2^16, which the radii with 16-bit
// sums (kernel sums 181, 122, 208) all have.
TEST(CSharpBlocks, ExactDividerTruncatesLikeDivision) {
    for (std::uint32_t divisor : {1u, 2u, 3u, 7u, 122u, 181u, 208u, 1000u, 5021u, 65535u}) {
        const std::uint32_t bound = divisor * 255u + 254u;
        const qtzq::ExactDivider divide(divisor, bound);
        const std::uint32_t m = divide.short_multiplier();
        if (divisor == 122 || divisor == 181 || divisor == 208) {
            EXPECT_NE(m, 0u) << divisor;
        }
        for (std::uint32_t q = 0; q * divisor <= bound; ++q)
            for (std::uint32_t n : {q * divisor, q * divisor + divisor - 1})
                if (n <= bound) {
                    ASSERT_EQ(divide(n), n / divisor) << n << " / " << divisor;
                    if (m != 0) {
                        ASSERT_EQ((n * m >> 16) >> divide.short_shift(), n / divisor) << n;
                    }
                }
    }
}

}  // namespace
