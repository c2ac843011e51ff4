// The colourful frame: a material of the photo's size laid over the whole
// photo by screen (kinds 1 and 2) or soft light (kinds 3 and 4) at full
// strength. The two kinds of a pair are the same on purpose.
#include "qtzqeffect/facade.h"

#include "pixel/blend_kernels.h"
#include "styles/material_blend.h"

namespace {

constexpr double kFullOpacity = 1.0;

enum class FrameBlend { None, Screen, SoftLight };

FrameBlend frame_blend(int kind) {
    switch (kind) {
        case 1:
        case 2:
            return FrameBlend::Screen;
        case 3:
        case 4:
            return FrameBlend::SoftLight;
        default:
            return FrameBlend::None;
    }
}

}  // namespace

void FrameXCBK(unsigned char* image, unsigned char* material, int width, int height, int kind) {
    switch (frame_blend(kind)) {
        case FrameBlend::Screen:
            qtzq::blend_material(image, material, width, height, qtzq::screen_ex, kFullOpacity);
            break;
        case FrameBlend::SoftLight:
            qtzq::blend_material(image, material, width, height, qtzq::soft_light_ex, kFullOpacity);
            break;
        case FrameBlend::None:
            break;
    }
}

int Qtzqeffect::ColorfulFrame(unsigned char* image, unsigned char* material, int width, int height,
                              int kind) {
    if (image == nullptr || material == nullptr) return 0;
    FrameXCBK(image, material, width, height, kind);
    return 1;
}
