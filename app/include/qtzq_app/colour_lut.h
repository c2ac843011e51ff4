// Lookup tables of the looks that are pure colour maps, in the two forms
// other programs read: a Hald CLUT image and a .cube 3D table. Both are
// made by running the look itself on an image that holds the colours to
// look up, so they hold exactly what the look does to those colours.
#ifndef QTZQ_APP_COLOUR_LUT_H
#define QTZQ_APP_COLOUR_LUT_H

#include <ostream>
#include <string>
#include <vector>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/png_io.h"

namespace qtzq_app {

constexpr int kHaldLevelMin = 2, kHaldLevelMax = 16;
constexpr int kCubeSizeMin = 2, kCubeSizeMax = 256;

// The identity Hald image of `level` (2..16): a square of level^3 pixels
// holding level^2 steps of each channel, red fastest, then green, then
// blue; step i of n is the byte (i * 255 + (n - 1) / 2) / (n - 1). Level 16
// holds each of the 2^24 colours once, in the order of their value.
BgraImage hald_identity(int level);

// The look applied to the identity Hald image of `level`: its Hald CLUT.
// Throws RequestError with lut_refusal()'s reason for looks that are not
// colour maps.
BgraImage hald_clut(const EffectInfo& info, int level);

// The colour the level-16 Hald CLUT `full` gives to (red, green, blue).
inline const unsigned char* lookup(const BgraImage& full, int red, int green, int blue) {
    return full.pixels.data() + ((std::size_t(blue) << 16) + (green << 8) + red) * 4;
}

// A size^3 table sampled from the level-16 Hald CLUT `full`: entry (r, g, b)
// (r fastest) is the colour at input (r, g, b) * 255 / (size - 1) as red,
// green and blue in 0..1, interpolated linearly between the neighbouring
// bytes when the input falls between them (exact for size 256 and 2).
std::vector<float> cube_table(const BgraImage& full, int size);

// Writes the table in the .cube text format (LUT_3D_SIZE, red fastest).
void write_cube(std::ostream& out, const std::vector<float>& table, int size,
                const std::string& title);

}  // namespace qtzq_app

#endif  // QTZQ_APP_COLOUR_LUT_H
