// YiZhou and the two-step time tunnel: curve, overlay and the zoom-blurred
// layer faded in by its own alpha.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

#include <qtzqeffect/blur.h>
#include <qtzqeffect/pixel.h>
#include <qtzqeffect/styles.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;
using qtzq_test::solid;

namespace {

constexpr int kMaskSide = 240;
constexpr double kOverlayOpacity = 0.6000000238418579;  // single-precision 0.6

Bytes zoom_layer(Bytes image, Bytes weights, int w, int h) {
    Bytes layer = image;
    RadiusZoomBlur(layer.data(), image.data(), weights.data(), w, h);
    return layer;
}

void fade_in(Bytes& image, Bytes layer) {
    for (std::size_t i = 0; i < image.size(); i += 4)
        NormalEx(&image[i], &layer[i], layer[i + 3] / 255.0);
}

void curve_33(Bytes& image) {
    for (std::size_t i = 0; i < image.size(); i += 4)
        for (int c = 0; c < 3; ++c) image[i + c] = qtzq::store_curve(33)[image[i + c]];
}

std::unique_ptr<unsigned char[]> tunnel(Bytes& photo, Bytes& mask, int w, int h) {
    return std::unique_ptr<unsigned char[]>(StyleChuanYue1(photo.data(), mask.data(), w, h));
}

TEST(YiZhou, IsCurveThenZoomLayerFadedInByItsAlpha) {
    const int w = 21, h = 16;
    Bytes photo = noise(w, h, 61), expected = photo, material = noise(w, h, 62);
    curve_33(expected);
    fade_in(expected, zoom_layer(expected, material, w, h));
    StyleYiZhou(photo.data(), material.data(), w, h);
    EXPECT_EQ(photo, expected);

    // A material with blue 0 weighs nothing: only the curve is left.
    photo = expected = noise(w, h, 63);
    material = solid(w, h, 0, 255, 255);
    curve_33(expected);
    StyleYiZhou(photo.data(), material.data(), w, h);
    EXPECT_EQ(photo, expected);
}

TEST(TimeTunnel, OverlaysAtSinglePrecisionPointSixThenZoomBlurs) {
    Bytes photo = noise(kMaskSide, kMaskSide, 64), mask = noise(kMaskSide, kMaskSide, 65);
    Bytes overlaid = photo;
    for (std::size_t i = 0; i < overlaid.size(); i += 4)
        OverlayEx(&overlaid[i], mask[i + 2], mask[i + 1], mask[i], kOverlayOpacity);
    const auto layer = tunnel(photo, mask, kMaskSide, kMaskSide);
    EXPECT_EQ(photo, overlaid);
    EXPECT_EQ(Bytes(layer.get(), layer.get() + photo.size()),
              zoom_layer(overlaid, mask, kMaskSide, kMaskSide));

    // Level 5 under black: 0.4 * 5 would give 2; the float opacity gives 1.
    Bytes grey = solid(kMaskSide, kMaskSide, 5, 5, 5), black = solid(kMaskSide, kMaskSide, 0, 0, 0);
    tunnel(grey, black, kMaskSide, kMaskSide);
    EXPECT_EQ(grey[0], 1);
}

TEST(TimeTunnel, ScalesTheMaskToAnyPhotoByNearestNeighbour) {
    Bytes mask = noise(kMaskSide, kMaskSide, 68);
    for (const auto& [w, h] : {std::pair{500, 301}, std::pair{7, 3}, std::pair{0, 0}}) {
        Bytes photo = noise(std::max(w, 1), std::max(h, 1), 69), expected = photo;
        unsigned char* scaled = new unsigned char[mask.size()];
        std::copy(mask.begin(), mask.end(), scaled);
        RampleBit(w, h, &scaled, kMaskSide, kMaskSide, 4);
        for (int i = 0; i < w * h * 4; i += 4)
            OverlayEx(&expected[i], scaled[i + 2], scaled[i + 1], scaled[i], kOverlayOpacity);
        delete[] scaled;
        EXPECT_NE(tunnel(photo, mask, w, h), nullptr);  // 0 bytes for the empty photo
        EXPECT_EQ(photo, expected) << w << " x " << h;
    }
}

TEST(TimeTunnel, SecondStepFadesTowardTheLayerByItsAlpha) {
    Bytes photo = noise(4, 4, 66), expected = photo, layer = noise(4, 4, 67);
    fade_in(expected, layer);
    StyleChuanYue3(photo.data(), layer.data(), 4, 4);
    EXPECT_EQ(photo, expected);

    Bytes keep = {10, 20, 30, 40}, take = keep;
    Bytes clear = {200, 201, 202, 0}, opaque = {200, 201, 202, 255};
    StyleChuanYue3(keep.data(), clear.data(), 1, 1);
    StyleChuanYue3(take.data(), opaque.data(), 1, 1);
    EXPECT_EQ(keep, (Bytes{10, 20, 30, 40}));
    EXPECT_EQ(take, (Bytes{200, 201, 202, 40}));
}

}  // namespace
