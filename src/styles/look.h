// A look as a recipe: its steps declared once, in order, and run by a small
// engine that folds what can be folded and sweeps the photo once.
//
//   Look()
//       .curves(RgbCurves::from_store(36, 37, 38))
//       .blend_material(0, [](unsigned char* px, const unsigned char* m) { multiple_ex(px, m, 1.0); })
//       .run(image, width, height, {material1});
//
// What a step may be, and how the engine treats it:
// - maps (curves, tone tables): three byte maps; consecutive maps fold into
//   one.
// - a channel blend: a blend in which each output channel depends only on
//   the same channel of the pixel and of the second operand (a constant
//   colour, the pixel itself, or a material). The engine tabulates it by
//   calling it on probe pixels: against a constant or the pixel itself it
//   becomes maps; against a material, a 256 x 256 table per channel into
//   which the maps just before and after it fold. Blends that mix channels
//   (the colour modes, anything reading alpha) are not channel blends.
//   A material blend may also read the material's alpha: then it gets a
//   table for each alpha that enough pixels of the material hold.
//   A material blend may come with a span kernel that gives its bytes
//   (tested to); the sweep then runs the kernel instead of a table.
// - a span step: anything else, run on a strip of pixels at a time.
// Tables are filled by the steps' own functions, so the folded recipe gives
// the bytes of the steps run one after the other. The photo is swept once,
// in strips that stay in cache, every strip going through all steps in
// order. With the scalar reference path forced (tests, benchmarks) the
// steps run one after the other over the whole photo, nothing folded.
#ifndef QTZQ_STYLES_LOOK_H
#define QTZQ_STYLES_LOOK_H

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <vector>

#include "pixel/image_walk.h"
#include "styles/channel_maps.h"

namespace qtzq {

// pixel = blend of (pixel, operand pixel); only blue, green and red change.
using ChannelBlend = std::function<void(unsigned char* pixel, const unsigned char* operand)>;

// Works on `count` pixels from `pixels` (a strip of at most a few thousand);
// materials[k] points at the same pixel of material k.
using SpanStep =
    std::function<void(unsigned char* pixels, const unsigned char* const* materials, std::size_t count)>;

// pixels[i] = blend of (pixels[i], material[i]) for `count` pixels.
using MaterialKernel = void (*)(unsigned char* pixels, const unsigned char* material, std::size_t count);

// fn(pixel) for every pixel of a span.
template <typename Fn>
SpanStep each_pixel(Fn fn) {
    return [fn](unsigned char* pixels, const unsigned char* const*, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) fn(pixels + i * kBytesPerPixel);
    };
}

// fn(pixel, pixel of material k) for every pixel of a span.
template <typename Fn>
SpanStep each_pixel_with(int material, Fn fn) {
    return [fn, material](unsigned char* pixels, const unsigned char* const* materials,
                          std::size_t count) {
        const unsigned char* m = materials[material];
        for (std::size_t i = 0; i < count; ++i)
            fn(pixels + i * kBytesPerPixel, m + i * kBytesPerPixel);
    };
}

// The maps of a per-pixel step in which each output channel depends only
// on the same channel's level, read off by running it on the grey levels.
ChannelMaps channel_maps_of(const std::function<void(unsigned char* pixel)>& step);

class Look {
public:
    static constexpr int kMaxMaterials = 3;

    Look& maps(const ChannelMaps& maps);
    Look& curves(const RgbCurves& curves) { return maps(ChannelMaps::of(curves)); }
    // `colour` is a BGRA pixel that outlives the look.
    Look& blend_constant(const unsigned char* colour, ChannelBlend blend);
    Look& blend_self(ChannelBlend blend);
    Look& blend_material(int material, ChannelBlend blend);
    // A blend of the channels that also reads the material pixel's alpha.
    Look& blend_material_by_alpha(int material, ChannelBlend blend);
    // The blend, with a kernel that gives its bytes on whole spans.
    Look& blend_material(int material, ChannelBlend blend, MaterialKernel kernel);
    Look& span(SpanStep step);

    // Photos of at least this many pixels get material blends as tables
    // (192 KB each, 65536 calls of the blend to fill); smaller ones call the
    // blend pixel by pixel, which is cheaper there and keeps the scratch
    // memory below the photo's size. Tests lower it to reach the tables on
    // small images.
    static constexpr std::size_t kPairTablesFrom = std::size_t(1) << 18;
    Look& pair_tables_from(std::size_t pixels) {
        pair_tables_from_ = pixels;
        return *this;
    }

    // Runs the recipe on the photo (width * height BGRA pixels, rows packed)
    // with the materials the steps name, each of the photo's size.
    void run(unsigned char* image, int width, int height,
             std::initializer_list<const unsigned char*> materials = {}) const;

private:
    enum class Operand { kNone, kConstant, kSelf, kMaterial };
    struct Step {
        ChannelMaps maps{};  // maps steps
        Operand operand = Operand::kNone;
        const unsigned char* colour = nullptr;
        int material = 0;
        ChannelBlend blend;
        MaterialKernel kernel = nullptr;
        bool by_alpha = false;  // the blend reads the material's alpha
        SpanStep span;
    };
    struct Compiled;

    Look& add_blend(Operand operand, const unsigned char* colour, int material, ChannelBlend blend);
    void run_step_by_step(unsigned char* image, std::size_t count,
                          const unsigned char* const* materials) const;
    void run_folded(unsigned char* image, std::size_t count, const unsigned char* const* materials) const;

    std::vector<Step> steps_;
    std::size_t pair_tables_from_ = kPairTablesFrom;
};

}  // namespace qtzq

#endif  // QTZQ_STYLES_LOOK_H
