// Single-image presets built on grain, grey or a constant tint colour.
#include <cstdlib>
#include <ctime>

#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "pixel/tone_kernels.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"
#include "styles/rgb_curves.h"

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

    Saturateconst(image, width, height, kDesaturate, kHslMode);
    reseed_from_clock();
    for_each_pixel(image, width, height, [](unsigned char* px) {
        qtzq::shift_rgb(px, kRedAdd, kGreenAdd, kBlueAdd);
        qtzq::add_noise(px, kGrainAmount);
    });
}

void StyleRetro(unsigned char* image, int width, int height) {
    const RgbCurves curves = RgbCurves::from_store(51, 52, 53);
    reseed_from_clock();  // before the size is looked at: an empty image still reseeds
    for_each_pixel(image, width, height, [&curves](unsigned char* px) {
        curves.apply(px);
        qtzq::add_noise(px, kGrainAmount);
    });
}

void StyleHeiBai(unsigned char* image, int width, int height) {
    // Colour first, curves second: curves 39 and 40 are equal and 41 is
    // darker in the low tones, which leaves a slightly warm monochrome.
    static constexpr unsigned char kTint[4] = {56, 47, 47, 0};  // B, G, R, A
    constexpr double kTintOpacity = 0.8;
    const RgbCurves curves = RgbCurves::from_store(39, 40, 41);
    for_each_pixel(image, width, height, [&curves](unsigned char* px) {
        qtzq::color_ex(px, kTint, kTintOpacity);
        curves.apply(px);
    });
}

void StyleCinnamon(unsigned char* image, int width, int height) {
    static constexpr unsigned char kTint[4] = {185, 118, 93, 0};  // B, G, R, A
    // The pin-light blend takes its opacity in single precision.
    constexpr float kTintOpacity = 0.8f;
    for_each_pixel(image, width, height, [](unsigned char* px) {
        qtzq::soft_light_ex2(px, px);  // the pixel soft-lit with itself, fixed half strength
        qtzq::pin_light_ex_mixed(px, kTint, kTintOpacity);
    });
}

void StyleElegant(unsigned char* image, int width, int height) {
    // Each pixel is soft-lit with the grey value it had before the curves.
    // The grey of one pixel is needed only while that pixel is worked on,
    // so it lives in a local instead of a whole-image plane.
    constexpr double kSoftLightOpacity = 1.0;
    const RgbCurves curves = RgbCurves::from_store(42, 43, 44);
    for_each_pixel(image, width, height, [&curves](unsigned char* px) {
        const unsigned char grey = qtzq::grey_level(px);
        curves.apply(px);
        qtzq::image_soft_light_ex_new(px, grey, kSoftLightOpacity);
    });
}
