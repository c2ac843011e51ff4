// The recursive Gaussian's coefficients come from the portable, correctly
// rounded exp, sin and cos, so every CPU computes the same bits. Pinned here
// as digests of whole blocks, for the armhf run to compare with x86-64.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include <qtzqeffect/blur.h>

namespace {

// FNV-1a over the 30 coefficients' bit patterns (as integers: byte order
// does not matter).
std::uint64_t block_digest(const GaussianBlurFilterUtil& block) {
    std::uint64_t hash = 0xCBF29CE484222325ull;
    for (const double* group : {block.n, block.m, block.d, block.dAnti, block.bn, block.bm}) {
        for (int i = 0; i < 5; ++i) {
            std::uint64_t bits;
            std::memcpy(&bits, &group[i], sizeof bits);
            for (int byte = 0; byte < 8; ++byte) {
                hash ^= (bits >> (8 * byte)) & 0xFF;
                hash *= 0x100000001B3ull;
            }
        }
    }
    return hash;
}

TEST(GaussianCoefficientBits, AreTheSameOnEveryCPU) {
    const struct {
        double radius;
        std::uint64_t digest;
    } radii[] = {{0.5, 0x68CC40B99E395D4Bull},  {1.0, 0x05A476D826927433ull},
                 {3.0, 0xD0FFEC950CC23936ull},  {7.25, 0xCD00CA6F997112E5ull},
                 {40.0, 0xD5EE9179235839D5ull}, {255.0, 0x7B5FBA5B5FB7635Aull}};
    for (const auto& c : radii) {
        GaussianBlurFilterUtil block;
        block.FindConstants(c.radius);
        EXPECT_EQ(block_digest(block), c.digest) << "radius " << c.radius;
    }
    // find_constants takes sigma; 0.901... is the brush's radius 2.
    const struct {
        double sigma;
        std::uint64_t digest;
    } sigmas[] = {{0.3, 0xE28C5A258373ACD1ull},
                  {0.901159712351531, 0x9DF4216733008A94ull},
                  {2.0, 0xE3A0DCC4ABEC7CE2ull},
                  {12.0, 0xC7857EB687F3240Eull}};
    for (const auto& c : sigmas) {
        GaussianBlurFilterUtil block;
        find_constants(block.n, block.m, block.d, block.dAnti, block.bn, block.bm, c.sigma);
        EXPECT_EQ(block_digest(block), c.digest) << "sigma " << c.sigma;
    }
}

}  // namespace
