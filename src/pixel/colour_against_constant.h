// The colour blend mode (color_ex) against one constant colour, precomputed.
//
// color_ex takes hue and saturation from the blend colour and only the
// lightness, (max + min + 1) >> 1, from the pixel, then mixes each channel
// with the pixel's own level. Against a constant the effect colour is
// therefore a function of the lightness alone, and the mix a function of
// (level, effect level): 256 effect colours and one 256 x 256 mix table,
// filled by the same conversions and the same mixing rule, replace two HSL
// conversions per pixel.
#ifndef QTZQ_PIXEL_COLOUR_AGAINST_CONSTANT_H
#define QTZQ_PIXEL_COLOUR_AGAINST_CONSTANT_H

#include <vector>

#include "pixel/blend_common.h"
#include "pixel/hsl_kernels.h"

namespace qtzq {

class ColourAgainstConstant {
public:
    // `colour` is a BGRA pixel; alpha is not read.
    ColourAgainstConstant(const unsigned char* colour, double opacity) : mix_(256 * 256) {
        unsigned char hue, saturation, lightness;
        rgb_to_hsl2(colour[2], colour[1], colour[0], hue, saturation, lightness);
        for (int l = 0; l < 256; ++l) {
            unsigned char r, g, b;
            hsl2_to_rgb(hue, saturation, static_cast<unsigned char>(l), r, g, b);
            effect_[l][0] = b;
            effect_[l][1] = g;
            effect_[l][2] = r;
        }
        for (int level = 0; level < 256; ++level)
            for (int effect = 0; effect < 256; ++effect)
                mix_[level * 256 + effect] = mix_level(effect, level, opacity);
    }

    // color_ex(pixel, colour, opacity).
    void apply(unsigned char* pixel) const {
        const unsigned char* effect = effect_[byte_hsl_start(pixel[2], pixel[1], pixel[0]).lightness];
        for (int c = 0; c < 3; ++c) pixel[c] = mix_[pixel[c] * 256 + effect[c]];
    }

private:
    unsigned char effect_[256][3];  // blue, green, red for each lightness
    std::vector<unsigned char> mix_;
};

}  // namespace qtzq

#endif  // QTZQ_PIXEL_COLOUR_AGAINST_CONSTANT_H
