// Presets that blend through the application's blend table set instead of
// blend-mode functions: each step replaces blue, green and red by an entry
// of one map, the channel's current value as the first index.
//
// The three photo presets use the maps in the order 0, 1, 2 and differ in
// what they feed them (the pixel itself, a material, a constant colour);
// alpha is never read or written by a map step.
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

#include "pixel/image_walk.h"
#include "styles/blend_tables.h"
#include "styles/look_steps.h"
#include "styles/rgb_curves.h"

using qtzq::BlendTables;
using qtzq::Look;
using qtzq::RgbCurves;
using qtzq::for_each_pixel;

namespace {

// Constant second operands, laid out as BGRA pixels (alpha is not read).
constexpr unsigned char kFanHuangWarmth[4] = {8, 8, 48, 0};
constexpr unsigned char kNiuPiZhiTint[4] = {100, 10, 14, 0};

// Saturation shifts in the HSL saturation mode of Saturateconst.
constexpr long kHslSaturationShift = 1;
constexpr long kFanHuangSaturation = -30;
constexpr long kNiuPiZhiSaturation = -35;

}  // namespace

namespace {

// Each channel through map `map`, the second index from the operand: a
// channel blend.
qtzq::ChannelBlend through(const BlendTables& maps, int map) {
    return [maps, map](unsigned char* px, const unsigned char* second) { maps.apply(map, px, second); };
}

}  // namespace

void StyleXuanCai(unsigned char* image, unsigned char* material1, unsigned char* material2,
                  int width, int height, unsigned char* tables) {
    const BlendTables maps(tables);
    Look()
        .blend_self(through(maps, 0))
        .blend_material(0, through(maps, 1))
        .blend_material(1, through(maps, 2))
        .curves(RgbCurves::from_store(0))
        .run(image, width, height, {material1, material2});
}

void StyleFanHuang(unsigned char* image, unsigned char* material1, unsigned char* material2,
                   int width, int height, unsigned char* tables) {
    const BlendTables maps(tables);
    Look()
        .span(qtzq::saturation_step(kFanHuangSaturation, kHslSaturationShift))
        .curves(RgbCurves::from_store(24, 25, 26))
        .blend_material(0, through(maps, 0))
        .blend_material(1, through(maps, 1))
        .blend_constant(kFanHuangWarmth, through(maps, 2))
        .run(image, width, height, {material1, material2});
}

void StyleNiuPiZhi(unsigned char* image, unsigned char* material1, unsigned char* material2,
                   int width, int height, unsigned char* tables) {
    const BlendTables maps(tables);
    Look()
        .span(qtzq::saturation_step(kNiuPiZhiSaturation, kHslSaturationShift))
        .blend_constant(kNiuPiZhiTint, through(maps, 0))
        .blend_material(0, through(maps, 1))
        .blend_material(1, through(maps, 2))
        .run(image, width, height, {material1, material2});
}

void StyleRouguang(unsigned char* image, unsigned char* material, int width, int height,
                   unsigned char* tables) {
    // The curved material is written back into the caller's buffer: a
    // deliberate side effect, documented in the header.
    const BlendTables maps(tables);
    const RgbCurves curve = RgbCurves::from_store(10);
    for_each_pixel(image, material, width, height, [&](unsigned char* px, unsigned char* m) {
        curve.apply(m);
        // One map per channel, the material value selecting the row.
        px[2] = maps.lookup(0, m[2], px[2]);
        px[1] = maps.lookup(1, m[1], px[1]);
        px[0] = maps.lookup(2, m[0], px[0]);
    });
}
