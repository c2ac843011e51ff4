#include "qtzq_app/blend_modes.h"

#include <algorithm>
#include <cctype>

#include <qtzqeffect/pixel.h>

namespace qtzq_app {
namespace {

// Adapters for the modes whose signature differs from (base, blend, double).
void color_burn_plain(unsigned char* base, unsigned char* blend, double) {
    ImageColorBurnEx(base, blend);
}
void pin_light_plain(unsigned char* base, unsigned char* blend, double) { PinLightEx(base, blend); }
void pin_light_mixed(unsigned char* base, unsigned char* blend, double opacity) {
    PinLightEx2(base, blend, static_cast<float>(opacity));
}
void overlay(unsigned char* base, unsigned char* blend, double opacity) {
    OverlayEx(base, blend, opacity);  // the pixel form of the overloaded name
}

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return text;
}

}  // namespace

const std::vector<BlendMode>& blend_modes() {
    static const std::vector<BlendMode> modes = {
        {"normal", "NormalEx", "the blend itself, cross-faded", true, NormalEx},
        {"multiply", "MultipleEx", "multiply (255 x 255 gives 254)", true, MultipleEx},
        {"image-add", "ImageAddEx", "a multiply despite its name", true, ImageAddEx},
        {"screen", "ScreenEx", "screen, capped at 255", true, ScreenEx},
        {"image-screen", "ImageScreenEx", "screen with the blend pre-scaled", true, ImageScreenEx},
        {"lighten", "ImageLightenEx", "the larger value", true, ImageLightenEx},
        {"darken", "ImageDarkenEx", "the smaller value, scaled toward black", true,
         ImageDarkenEx},
        {"exclusion", "ImageExclusionEx", "exclusion, low 8 bits", true, ImageExclusionEx},
        {"half-exclusion", "ImageExclusionEx2", "exclusion with the blend halved", false,
         ImageExclusionEx2},
        {"double-exclusion", "ExclusionEx", "exclusion applied twice", true, ExclusionEx},
        {"colorburn", "ColorBurnEx", "colour burn, cross-faded", true, ColorBurnEx},
        {"image-colorburn", "ImageColorBurnEx", "colour burn", false, color_burn_plain},
        {"hardlight", "HardlightEx", "hard light", true, HardlightEx},
        {"overlay", "OverlayEx", "overlay", true, overlay},
        {"softlight", "SoftLightEx", "soft light", true, SoftLightEx},
        {"half-softlight", "SoftLightEx2", "soft light averaged with the base", false,
         SoftLightEx2},
        {"image-softlight", "ImageSoftLightEx", "soft light with the blend pre-scaled", true,
         ImageSoftLightEx},
        {"composite", "CompositeColorEx", "soft light over the scaled base", true,
         CompositeColorEx},
        {"pinlight", "PinLightEx", "pin light", false, pin_light_plain},
        {"pinlight-mix", "PinLightEx2", "pin light, cross-faded", true, pin_light_mixed},
    };
    return modes;
}

const std::vector<BlendMode>& channel_mixing_modes() {
    static const std::vector<BlendMode> modes = {
        {"color", "ColorEx", "blend hue and saturation with base lightness (byte HSL)", true,
         ColorEx},
        {"color-hsb", "ColorHSBEx", "blend hue and saturation with base brightness (HSB)", true,
         ColorHSBEx},
        {"half-hardlight", "HardlightEx_2",
         "hard light averaged with the base; the opacity acts on the dark branch only", true,
         HardlightEx_2},
    };
    return modes;
}

std::vector<const BlendMode*> all_blend_modes() {
    std::vector<const BlendMode*> modes;
    for (const auto& mode : blend_modes()) modes.push_back(&mode);
    for (const auto& mode : channel_mixing_modes()) modes.push_back(&mode);
    return modes;
}

const BlendMode* find_blend_mode(const std::string& name) {
    const std::string wanted = lower(name);
    for (const auto& mode : blend_modes())
        if (wanted == mode.name || wanted == lower(mode.function)) return &mode;
    return nullptr;
}

const BlendMode* find_any_blend_mode(const std::string& name) {
    const std::string wanted = lower(name);
    for (const BlendMode* mode : all_blend_modes())
        if (wanted == mode->name || wanted == lower(mode->function)) return mode;
    return nullptr;
}

}  // namespace qtzq_app
