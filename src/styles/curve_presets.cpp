// Presets made of nothing but per-pixel tone curves or a fixed grey formula.
#include "qtzqeffect/styles.h"

#include "pixel/image_walk.h"
#include "styles/look.h"
#include "styles/rgb_curves.h"

using qtzq::Look;
using qtzq::RgbCurves;
using qtzq::for_each_pixel;

namespace {

// Store curves of the curve presets, red, green, blue.
constexpr int kFilmCurves[3] = {1, 2, 3};
constexpr int kXiaoQingXinCurves[3] = {4, 5, 6};
constexpr int kJapaneseCurves[3] = {7, 8, 9};

void apply_store_curves(unsigned char* image, int width, int height, const int (&numbers)[3]) {
    Look().curves(RgbCurves::from_store(numbers[0], numbers[1], numbers[2])).run(image, width, height);
}

}  // namespace

void StyleFilm(unsigned char* image, int width, int height) {
    apply_store_curves(image, width, height, kFilmCurves);
}

void StyleJapanese(unsigned char* image, int width, int height) {
    apply_store_curves(image, width, height, kJapaneseCurves);
}

void StyleXiaoQingXin(unsigned char* image, int width, int height) {
    // The look keeps 20 % of the original, but the weight is the double
    // 1 - 0.8, not the double nearest 0.2. The two products are added
    // unfused, original first; truncation then depends on every last bit.
    constexpr double kCurveWeight = 0.8;
    constexpr double kOriginalWeight = 1.0 - kCurveWeight;
    static_assert(kOriginalWeight == 0.19999999999999996, "weight must stay 1 - 0.8 in double");

    const RgbCurves curves = RgbCurves::from_store(kXiaoQingXinCurves[0], kXiaoQingXinCurves[1],
                                                   kXiaoQingXinCurves[2]);
    const auto mix = [](unsigned char original, unsigned char curved) {
        const double kept = original * kOriginalWeight;
        const double moved = curved * kCurveWeight;
        return static_cast<unsigned char>(static_cast<unsigned int>(kept + moved));
    };
    Look()
        .blend_self([&](unsigned char* px, const unsigned char*) {
            px[0] = mix(px[0], curves.blue[px[0]]);
            px[1] = mix(px[1], curves.green[px[1]]);
            px[2] = mix(px[2], curves.red[px[2]]);
        })
        .run(image, width, height);
}

void StyleGray(unsigned char* image, int width, int height) {
    // Its own weights, in percent; not the 306/601/117 luma of the toolkit.
    for_each_pixel(image, width, height, [](unsigned char* px) {
        const unsigned int grey = (11u * px[0] + 59u * px[1] + 30u * px[2]) / 100u;
        px[0] = px[1] = px[2] = static_cast<unsigned char>(grey);
    });
}
