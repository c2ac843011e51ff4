// Golden cases of the single-pixel blend modes, each over every pair of byte
// values in every channel and at every opacity of kBlendOpacities.
#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/pixel.h"

namespace qtzq_golden {

void add_blend_cases(CaseList& list) {
    blend_case(list, "pixel.NormalEx", NormalEx);
    blend_case(list, "pixel.ImageNormalEx", ImageNormalEx);
    blend_case(list, "pixel.MultipleEx", MultipleEx);
    blend_case(list, "pixel.ImageAddEx", ImageAddEx);
    blend_case(list, "pixel.ScreenEx", ScreenEx);
    blend_case(list, "pixel.ImageScreenEx", ImageScreenEx);
    blend_case(list, "pixel.ImageLightenEx", ImageLightenEx);
    blend_case(list, "pixel.ImageDarkenEx", ImageDarkenEx);
    blend_case(list, "pixel.ImageExclusionEx", ImageExclusionEx);
    blend_case(list, "pixel.ImageExclusionEx2", ImageExclusionEx2);
    blend_case(list, "pixel.ExclusionEx", ExclusionEx);
    blend_case(list, "pixel.ColorBurnEx", ColorBurnEx);
    blend_case(list, "pixel.HardlightEx", HardlightEx);
    blend_case(list, "pixel.HardlightEx_2", HardlightEx_2);
    blend_case(list, "pixel.SoftLightEx", SoftLightEx);
    blend_case(list, "pixel.SoftLightEx2", SoftLightEx2);
    blend_case(list, "pixel.ImageSoftLightEx", ImageSoftLightEx);
    blend_case(list, "pixel.CompositeColorEx", CompositeColorEx);
    blend_case(list, "pixel.ColorEx", ColorEx);
    blend_case(list, "pixel.ColorHSBEx", ColorHSBEx);
    blend_case(list, "pixel.OverlayEx",
               [](unsigned char* a, unsigned char* b, double op) { OverlayEx(a, b, op); });
    // The blend colour as three bytes: red, green, blue = blend bytes 2, 1, 0.
    blend_case(list, "pixel.OverlayEx.rgb", [](unsigned char* a, unsigned char* b, double op) {
        OverlayEx(a, b[2], b[1], b[0], op);
    });
    // One blend value for all three channels: the blend's blue byte.
    blend_case(
        list, "pixel.ImageSoftLightExNew",
        [](unsigned char* a, unsigned char* b, double op) { ImageSoftLightExNew(a, b[0], op); });
    // Single-precision opacity.
    blend_case(list, "pixel.PinLightEx2", [](unsigned char* a, unsigned char* b, double op) {
        PinLightEx2(a, b, static_cast<float>(op));
    });
    blend_case(list, "pixel.PinLightEx8", [](unsigned char* a, unsigned char* b, double op) {
        PinLightEx8(a, b, static_cast<float>(op));
    });
    // No opacity at all: the same pass at every opacity.
    blend_case(list, "pixel.ImageColorBurnEx",
               [](unsigned char* a, unsigned char* b, double) { ImageColorBurnEx(a, b); });
    blend_case(list, "pixel.PinLightEx",
               [](unsigned char* a, unsigned char* b, double) { PinLightEx(a, b); });
}

}  // namespace qtzq_golden
