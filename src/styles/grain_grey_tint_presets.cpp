// Single-image presets built on grain, grey or a constant tint colour.
#include <cstdlib>
#include <ctime>
#include <vector>

#include "pixel/blend_kernels.h"
#include "pixel/colour_against_constant.h"
#include "pixel/image_walk.h"
#include "pixel/tone_kernels.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"
#include "styles/look.h"
#include "styles/look_steps.h"

using qtzq::ChannelMaps;
using qtzq::Look;
using qtzq::RgbCurves;
using qtzq::for_each_pixel;

namespace {

// Full width of the grain band, in grey levels, of both noisy looks.
constexpr long kGrainAmount = 20;

// Reseeds the process-wide generator from the clock, so that every call
// draws fresh grain (two calls within one second draw the same grain).
void reseed_from_clock() { std::srand(static_cast<unsigned>(std::time(nullptr))); }

}  // namespace

void StyleLiuJin(unsigned char* image, int width, int height) {
    constexpr long kDesaturate = -100, kHslMode = 1;
    constexpr unsigned char kRedAdd = 40, kGreenAdd = 25, kBlueAdd = 0;

    // The generator is reseeded before any grain is drawn; the grain is
    // drawn pixel by pixel in order, as one sequence.
    reseed_from_clock();
    Look()
        .span(qtzq::saturation_step(kDesaturate, kHslMode))
        .maps(qtzq::channel_maps_of(
            [](unsigned char* px) { qtzq::shift_rgb(px, kRedAdd, kGreenAdd, kBlueAdd); }))
        .span(qtzq::each_pixel([](unsigned char* px) { qtzq::add_noise(px, kGrainAmount); }))
        .run(image, width, height);
}

void StyleRetro(unsigned char* image, int width, int height) {
    reseed_from_clock();  // before the size is looked at: an empty image still reseeds
    Look()
        .curves(RgbCurves::from_store(51, 52, 53))
        .span(qtzq::each_pixel([](unsigned char* px) { qtzq::add_noise(px, kGrainAmount); }))
        .run(image, width, height);
}

void StyleHeiBai(unsigned char* image, int width, int height) {
    // Colour first, curves second: curves 39 and 40 are equal and 41 is
    // darker in the low tones, which leaves a slightly warm monochrome.
    static constexpr unsigned char kTint[4] = {56, 47, 47, 0};  // B, G, R, A
    constexpr double kTintOpacity = 0.8;
    // The colour mode mixes channels: a span step, not a channel blend.
    const qtzq::ColourAgainstConstant tint(kTint, kTintOpacity);
    Look()
        .span(qtzq::each_pixel([&tint](unsigned char* px) { tint.apply(px); }))
        .curves(RgbCurves::from_store(39, 40, 41))
        .run(image, width, height);
}

void StyleCinnamon(unsigned char* image, int width, int height) {
    static constexpr unsigned char kTint[4] = {185, 118, 93, 0};  // B, G, R, A
    // The pin-light blend takes its opacity in single precision.
    constexpr float kTintOpacity = 0.8f;
    Look()
        // The pixel soft-lit with itself, fixed half strength.
        .blend_self([](unsigned char* px, const unsigned char* self) { qtzq::soft_light_ex2(px, self); })
        .blend_constant(kTint, [](unsigned char* px, const unsigned char* tint) {
            qtzq::pin_light_ex_mixed(px, tint, kTintOpacity);
        })
        .run(image, width, height);
}

void StyleElegant(unsigned char* image, int width, int height) {
    // Each pixel is soft-lit with the grey value it had before the curves.
    // The grey of one pixel is needed only while that pixel is worked on,
    // so it lives in a local instead of a whole-image plane.
    // Each channel's result is a function of its level and that grey: one
    // table per channel, indexed by (level, grey), filled by running the
    // curves and the soft light themselves.
    constexpr double kSoftLightOpacity = 1.0;
    const ChannelMaps curves = ChannelMaps::of(RgbCurves::from_store(42, 43, 44));
    std::vector<unsigned char> table(3 * 256 * 256);
    for (int level = 0; level < 256; ++level)
        for (int grey = 0; grey < 256; ++grey) {
            const auto v = static_cast<unsigned char>(level);
            unsigned char px[4] = {v, v, v, 0};
            curves.apply(px);
            qtzq::image_soft_light_ex_new(px, static_cast<unsigned char>(grey), kSoftLightOpacity);
            for (int c = 0; c < 3; ++c) table[(c * 256 + level) * 256 + grey] = px[c];
        }
    for_each_pixel(image, width, height, [&table](unsigned char* px) {
        const int grey = qtzq::grey_level(px);
        for (int c = 0; c < 3; ++c) px[c] = table[(c * 256 + px[c]) * 256 + grey];
    });
}
