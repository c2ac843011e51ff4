// Presets that start from automatic levels: the HDR looks (levels, contrast
// curves, hard sharpening) and the sunlit-coast look (levels, curves,
// screened material).
#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"
#include "styles/curve_pass.h"
#include "styles/look.h"

using qtzq::RgbCurves;

namespace {

// The presets pass false: the levels then keep the colours as they are.
// Required as it stands; the presets' look is tuned to it.
constexpr bool kAnalyseLevels = false;

// Levels, the three curves, then an unsharp mask of radius 3 and amount 0.5
// (single precision). The sharpening sets every alpha byte to 255.
void lomo_hdr(unsigned char* image, int width, int height, const RgbCurves& curves) {
    constexpr int kSharpenRadius = 3;
    constexpr float kSharpenAmount = 0.5f;
    AutoColorLevel(image, width, height, kAnalyseLevels);
    qtzq::apply_curves(image, width, height, curves);
    CSharp sharpen;
    sharpen.useEffect(image, width, height, kSharpenRadius, kSharpenAmount);
}

}  // namespace

void StyleLomoHDR(unsigned char* image, int width, int height) {
    lomo_hdr(image, width, height, RgbCurves::from_store(30, 31, 32));
}

void StyleLomoHDRJinDian(unsigned char* image, int width, int height) {
    static constexpr unsigned char kWash[4] = {58, 2, 14, 0};  // B, G, R, A
    constexpr double kWashOpacity = 1.0;
    // Curves 45..47 hold the same values as 30..32 in slots of their own.
    lomo_hdr(image, width, height, RgbCurves::from_store(45, 46, 47));
    qtzq::Look()
        .blend_constant(kWash, [](unsigned char* px, const unsigned char* wash) {
            qtzq::exclusion_ex(px, wash, kWashOpacity);
        })
        .run(image, width, height);
}

void StyleRiguanghaian(unsigned char* image, unsigned char* material, int width, int height) {
    constexpr double kScreenOpacity = 1.0;
    AutoColorLevel(image, width, height, kAnalyseLevels);
    qtzq::Look()
        .curves(RgbCurves::from_store(27, 28, 29))
        .blend_material(0, [](unsigned char* px, const unsigned char* m) {
            qtzq::screen_ex(px, m, kScreenOpacity);
        })
        .run(image, width, height, {material});
}
