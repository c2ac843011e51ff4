// Exported blend modes: thin wrappers over the inline kernels that the
// presets' pixel loops use directly.
#include "qtzqeffect/pixel.h"

#include "pixel/blend_kernels.h"

using namespace qtzq;

// ---- Mixing ----

void NormalEx(unsigned char* base, unsigned char* blend, double opacity) {
    normal_ex(base, blend, opacity);
}

// A second exported name for the same cross-fade.
void ImageNormalEx(unsigned char* base, unsigned char* blend, double opacity) {
    normal_ex(base, blend, opacity);
}

void OverlayEx(unsigned char* base, unsigned char* blend, double opacity) {
    overlay_ex(base, blend, opacity);
}

void OverlayEx(unsigned char* base, unsigned char red, unsigned char green, unsigned char blue,
               double opacity) {
    overlay_ex(base, red, green, blue, opacity);
}

void SoftLightEx(unsigned char* base, unsigned char* blend, double opacity) {
    soft_light_ex(base, blend, opacity);
}

void ColorBurnEx(unsigned char* base, unsigned char* blend, double opacity) {
    color_burn_ex(base, blend, opacity);
}

// ---- Pre-scaled ----

void ImageScreenEx(unsigned char* base, unsigned char* blend, double opacity) {
    image_screen_ex(base, blend, opacity);
}

void ImageLightenEx(unsigned char* base, unsigned char* blend, double opacity) {
    image_lighten_ex(base, blend, opacity);
}

void ImageExclusionEx(unsigned char* base, unsigned char* blend, double opacity) {
    image_exclusion_ex(base, blend, opacity);
}

void ExclusionEx(unsigned char* base, unsigned char* blend, double opacity) {
    exclusion_ex(base, blend, opacity);
}

void ImageSoftLightEx(unsigned char* base, unsigned char* blend, double opacity) {
    image_soft_light_ex(base, blend, opacity);
}

void ImageSoftLightExNew(unsigned char* base, unsigned char value, double opacity) {
    image_soft_light_ex_new(base, value, opacity);
}

void CompositeColorEx(unsigned char* base, unsigned char* blend, double opacity) {
    composite_color_ex(base, blend, opacity);
}

// ---- Own opacity handling ----

void MultipleEx(unsigned char* base, unsigned char* blend, double opacity) {
    multiple_ex(base, blend, opacity);
}

void ImageAddEx(unsigned char* base, unsigned char* blend, double opacity) {
    image_add_ex(base, blend, opacity);
}

void ScreenEx(unsigned char* base, unsigned char* blend, double opacity) {
    screen_ex(base, blend, opacity);
}

void ImageDarkenEx(unsigned char* base, unsigned char* blend, double opacity) {
    image_darken_ex(base, blend, opacity);
}

// The opacity is accepted for the interface and ignored.
void ImageExclusionEx2(unsigned char* base, unsigned char* blend, double) {
    image_exclusion_ex2(base, blend);
}

void ImageColorBurnEx(unsigned char* base, unsigned char* blend) {
    image_color_burn_ex(base, blend);
}

void HardlightEx(unsigned char* base, unsigned char* blend, double opacity) {
    hardlight_ex(base, blend, opacity);
}

void HardlightEx_2(unsigned char* base, unsigned char* blend, double opacity) {
    hardlight_ex_2(base, blend, opacity);
}

// The opacity is accepted for the interface and ignored.
void SoftLightEx2(unsigned char* base, unsigned char* blend, double) {
    soft_light_ex2(base, blend);
}

void PinLightEx(unsigned char* base, unsigned char* blend) { pin_light_ex(base, blend); }

// PinLightEx2 and PinLightEx8: two exported names of one behaviour.
void PinLightEx2(unsigned char* base, unsigned char* blend, float opacity) {
    pin_light_ex_mixed(base, blend, opacity);
}

void PinLightEx8(unsigned char* base, unsigned char* blend, float opacity) {
    pin_light_ex_mixed(base, blend, opacity);
}

// ---- Colour ----

void ColorEx(unsigned char* base, unsigned char* blend, double opacity) {
    color_ex(base, blend, opacity);
}

void ColorHSBEx(unsigned char* base, unsigned char* blend, double opacity) {
    color_hsb_ex(base, blend, opacity);
}
