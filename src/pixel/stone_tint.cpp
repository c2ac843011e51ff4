// DanyaUseStone: a colour-balance shift with lightness kept, then
// automatic levels.
#include "qtzqeffect/pixel.h"

namespace {

// Midtones and highlights pass; every other value means shadows.
_TONE_REGION reduced_region(int region) {
    if (region == TONE_REGION_MIDTONES || region == TONE_REGION_HIGHLIGHTS)
        return static_cast<_TONE_REGION>(region);
    return TONE_REGION_SHADOWS;
}

}  // namespace

void DanyaUseStone(unsigned char* pixels, int width, int height, int region, int a, int b, int c) {
    CColorBalance(true, reduced_region(region), a, b, c, pixels, width, height);
    AutoColorLevel(pixels, width, height, true);
}
