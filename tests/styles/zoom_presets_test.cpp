// YiZhou and the two-step time tunnel: curve, overlay and the zoom-blurred
// layer faded in by its own alpha.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

#include <qtzqeffect/styles.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;
using qtzq_test::solid;

namespace {

constexpr int kMaskSide = 240;

std::unique_ptr<unsigned char[]> tunnel(Bytes& photo, Bytes& mask, int w, int h) {
    return std::unique_ptr<unsigned char[]>(StyleChuanYue1(photo.data(), mask.data(), w, h));
}

TEST(YiZhou, MaterialWithBlueZeroLeavesOnlyCurve33) {
    const int w = 21, h = 16;
    Bytes photo = noise(w, h, 63), expected = photo, material = solid(w, h, 0, 255, 255);
    for (std::size_t i = 0; i < expected.size(); i += 4)
        for (int c = 0; c < 3; ++c) expected[i + c] = qtzq::store_curve(33)[expected[i + c]];
    StyleYiZhou(photo.data(), material.data(), w, h);
    EXPECT_EQ(photo, expected);
}

TEST(TimeTunnel, OverlaysAtSinglePrecisionPointSix) {
    // Level 5 under black: 0.4 * 5 would give 2; the float opacity gives 1.
    Bytes grey = solid(kMaskSide, kMaskSide, 5, 5, 5), black = solid(kMaskSide, kMaskSide, 0, 0, 0);
    tunnel(grey, black, kMaskSide, kMaskSide);
    EXPECT_EQ(grey[0], 1);
}

TEST(TimeTunnel, TakesTheFixedMaskForAnyPhotoSize) {
    const Bytes mask = noise(kMaskSide, kMaskSide, 68);
    for (const auto& [w, h] : {std::pair{500, 301}, std::pair{7, 3}, std::pair{0, 0}}) {
        Bytes photo = noise(std::max(w, 1), std::max(h, 1), 69), mask_copy = mask;
        EXPECT_NE(tunnel(photo, mask_copy, w, h), nullptr) << w << " x " << h;  // 0 bytes if empty
        EXPECT_EQ(mask_copy, mask);
    }
}

TEST(TimeTunnel, SecondStepFadesTowardTheLayerByItsAlpha) {
    Bytes keep = {10, 20, 30, 40}, take = keep;
    Bytes clear = {200, 201, 202, 0}, opaque = {200, 201, 202, 255};
    StyleChuanYue3(keep.data(), clear.data(), 1, 1);
    StyleChuanYue3(take.data(), opaque.data(), 1, 1);
    EXPECT_EQ(keep, (Bytes{10, 20, 30, 40}));
    EXPECT_EQ(take, (Bytes{200, 201, 202, 40}));
}

}  // namespace
