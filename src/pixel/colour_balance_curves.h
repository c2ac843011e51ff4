// The three tone curves of a colour-balance shift.
//
// Header-only so that the table generator (tools/tablegen) builds the fixed
// variants' curves with exactly this code.
#ifndef QTZQ_PIXEL_COLOUR_BALANCE_CURVES_H
#define QTZQ_PIXEL_COLOUR_BALANCE_CURVES_H

#include "pixel/numeric.h"
#include "styles/rgb_curves.h"

namespace qtzq {

// Tone regions, indexing the per-axis amount arrays.
constexpr int kShadows = 0;
constexpr int kMidtones = 1;
constexpr int kHighlights = 2;
constexpr int kToneRegionCount = 3;

// One colour-balance setting: the region and the shifts along the axes
// cyan-red, magenta-green and yellow-blue.
struct ColourBalanceSetting {
    int region;
    int red;
    int green;
    int blue;
};

// The fixed settings of the three variants, in table order.
constexpr ColourBalanceSetting kColourBalanceVariants[3] = {
    {kShadows, 13, 0, 21},    // CColorBalance_0_13_0_21
    {kMidtones, 2, 0, 8},     // CColorBalance_1_2_0_8
    {kHighlights, 0, 0, -13}, // CColorBalance_2_0_0_s13
};

// Weight of a shift at each level, per tone region. Computed in single
// precision with single-precision constants and only then widened (H[0] is
// float(1.075) - 1, slightly above 0.075); required as written.
struct ColourBalanceWeights {
    double highlight[256];  // H[i] = 1.075 - 1 / (1 + i / 16)
    double shadow[256];     // S[i] = H[255 - i]
    double midtone[256];    // M[i] = 0.667 (1 - ((i - 127) / 127)^2)

    ColourBalanceWeights() {
        const float kHighlightTop = 1.075f;
        const float kHighlightStep = 0.0625f;
        const float kMidtoneCentre = 127.0f;
        const float kMidtonePeak = 0.667f;
        for (int i = 0; i < 256; ++i) {
            highlight[i] = kHighlightTop - 1.0f / (1.0f + static_cast<float>(i) * kHighlightStep);
            const float x = static_cast<float>(i) - kMidtoneCentre;
            midtone[i] = kMidtonePeak * (1.0f + (x / kMidtoneCentre) * (x / -kMidtoneCentre));
        }
        for (int i = 0; i < 256; ++i) shadow[i] = highlight[255 - i];
    }
};

// level + trunc(amount * weight), limited to 0..255.
inline int shift_level(int level, int amount, const double* weights) {
    const long long moved =
        static_cast<long long>(level) + truncate_int(static_cast<double>(amount) * weights[level]);
    return clamp_byte(moved);
}

// One channel's curve from its amounts per region: shadows (M for a
// positive amount, else S), then midtones (M), then highlights (H for a
// positive amount, else M), each step acting on the previous step's level.
inline void colour_balance_channel(const int (&amounts)[kToneRegionCount],
                                   const ColourBalanceWeights& w, unsigned char* curve) {
    const int shadows = amounts[kShadows];
    const int midtones = amounts[kMidtones];
    const int highlights = amounts[kHighlights];
    for (int i = 0; i < 256; ++i) {
        const int t1 = shift_level(i, shadows, shadows > 0 ? w.midtone : w.shadow);
        const int t2 = shift_level(t1, midtones, w.midtone);
        const int t3 = shift_level(t2, highlights, highlights > 0 ? w.highlight : w.midtone);
        curve[i] = static_cast<unsigned char>(t3);
    }
}

// The red, green and blue curves that shift `region` by the setting's
// amounts. A region outside 0..2 shifts nothing (identity curves).
inline RgbCurves colour_balance_curves(const ColourBalanceSetting& setting) {
    int red[kToneRegionCount] = {0, 0, 0};
    int green[kToneRegionCount] = {0, 0, 0};
    int blue[kToneRegionCount] = {0, 0, 0};
    if (setting.region >= 0 && setting.region < kToneRegionCount) {
        red[setting.region] = setting.red;
        green[setting.region] = setting.green;
        blue[setting.region] = setting.blue;
    }
    const ColourBalanceWeights weights;
    RgbCurves curves;
    colour_balance_channel(red, weights, curves.red);
    colour_balance_channel(green, weights, curves.green);
    colour_balance_channel(blue, weights, curves.blue);
    return curves;
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_COLOUR_BALANCE_CURVES_H
