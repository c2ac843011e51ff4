// SFCurve: slots, applying per channel, stacking, reset and release.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include <qtzqeffect/curve.h>

#include "support/images.h"

using qtzq_test::Bytes;

namespace {

// Blue runs up 0..255, green down, red up from 100 (wrapping); alpha 7.
Bytes ramps() {
    Bytes image(256 * 4);
    for (int i = 0; i < 256; ++i) {
        image[4 * i] = static_cast<unsigned char>(i);
        image[4 * i + 1] = static_cast<unsigned char>(255 - i);
        image[4 * i + 2] = static_cast<unsigned char>(i + 100);
        image[4 * i + 3] = 7;
    }
    return image;
}

Bytes applied(SFCurve& curve, Channel channel, Bytes image = ramps()) {
    curve.ApplyCurve(channel, image.data(), 256, 1);
    return image;
}

// A constant curve: one point.
void set_constant(SFCurve& curve, Channel channel, int level) {
    _POINT point = {0, level};
    curve.GetCurveByPoints(&point, 1, channel);
}

// True when no channel 0..5 changes the ramps.
bool all_identities(SFCurve& curve) {
    for (int channel = 0; channel <= 5; ++channel)
        if (applied(curve, Channel(channel)) != ramps()) return false;
    return true;
}

TEST(SFCurve, EachChannelMapsItsOwnBytes) {
    SFCurve curve;
    EXPECT_TRUE(all_identities(curve));
    for (int channel = 0; channel <= 4; ++channel)
        set_constant(curve, Channel(channel), 10 * channel + 1);
    // Pixel (b, g, r, a) = (200, 201, 202, 7); slot k is the constant 10 k + 1.
    const Bytes pixel = {200, 201, 202, 7};
    auto one = [&](Channel channel) {
        Bytes p = pixel;
        curve.ApplyCurve(channel, p.data(), 1, 1);
        return p;
    };
    EXPECT_EQ(one(CHANNEL_SPARE), pixel);  // slot 0 is never applied
    EXPECT_EQ(one(CHANNEL_RED), (Bytes{200, 201, 11, 7}));
    EXPECT_EQ(one(CHANNEL_GREEN), (Bytes{200, 21, 202, 7}));
    EXPECT_EQ(one(CHANNEL_BLUE), (Bytes{31, 201, 202, 7}));
    EXPECT_EQ(one(CHANNEL_RGB), (Bytes{41, 41, 41, 7}));
    // Channel 5: red through slot 1, green through 2, blue through 3.
    EXPECT_EQ(one(CHANNEL_SEPARATE), (Bytes{31, 21, 11, 7}));
}

TEST(SFCurve, ChannelsOutsideTheSlotsDoNothing) {
    SFCurve curve;
    for (int channel : {-1, 5, 6, 1000, INT32_MIN}) set_constant(curve, Channel(channel), 3);
    EXPECT_TRUE(all_identities(curve));
    set_constant(curve, CHANNEL_RGB, 3);
    EXPECT_EQ(applied(curve, Channel(9)), ramps());
}

TEST(SFCurve, SuperpositionDrawsOnTopOfTheSlot) {
    // On the identity it equals drawing; on a curve it acts after it.
    std::vector<_POINT> points = {{0, 0}, {83, 72}, {163, 184}, {255, 255}};
    std::vector<_POINT> inverse = {{0, 255}, {255, 0}};
    SFCurve drawn, stacked, twice;
    drawn.GetCurveByPoints(points.data(), 4, CHANNEL_RGB);
    stacked.GetCurveSuperpositionByPoints(points.data(), 4, CHANNEL_RGB);
    EXPECT_EQ(applied(drawn, CHANNEL_RGB), applied(stacked, CHANNEL_RGB));
    drawn.GetCurveByPoints(points.data(), 4, CHANNEL_BLUE);
    stacked.GetCurveByPoints(inverse.data(), 2, CHANNEL_BLUE);
    twice.GetCurveByPoints(inverse.data(), 2, CHANNEL_BLUE);
    twice.GetCurveSuperpositionByPoints(points.data(), 4, CHANNEL_BLUE);
    EXPECT_EQ(applied(twice, CHANNEL_BLUE),
              applied(drawn, CHANNEL_BLUE, applied(stacked, CHANNEL_BLUE)));
}

TEST(SFCurve, ResetReleaseAndEmptyImages) {
    SFCurve curve;
    set_constant(curve, CHANNEL_RGB, 200);
    Bytes image = ramps();
    curve.ApplyCurve(CHANNEL_RGB, image.data(), 0, 256);
    curve.ApplyCurve(CHANNEL_RGB, image.data(), 256, -1);
    curve.ApplyCurve(CHANNEL_RGB, nullptr, 256, 1);
    EXPECT_EQ(image, ramps());
    EXPECT_EQ(applied(curve, CHANNEL_RGB), applied(curve, CHANNEL_RGB));  // curves persist
    EXPECT_NE(applied(curve, CHANNEL_RGB), ramps());
    curve.Reset();
    EXPECT_TRUE(all_identities(curve));
    // After Release every call is ignored; a second Release is harmless.
    curve.Release();
    curve.Release();
    set_constant(curve, CHANNEL_RED, 1);
    curve.Reset();
    EXPECT_TRUE(all_identities(curve));
}

}  // namespace
