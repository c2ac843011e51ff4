// Each single-pixel blend mode of the library applied once per pixel of the
// photo, with a generated light-leak layer of the same size as the blend
// pixels, the way presets use them.
#include <qtzqeffect/pixel.h>

#include <string>
#include <vector>

#include "bench_image.h"
#include "materials.h"
#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

// One blend mode called the uniform way: base pixel, blend pixel, opacity.
struct BlendCase {
    const char* name;
    void (*blend)(unsigned char* base, unsigned char* layer, double opacity);
};

// Every mode of the library; the few whose signatures differ are adapted
// (a constant colour or a single level taken from the layer pixel, a
// float opacity, no opacity).
const std::vector<BlendCase>& blend_cases() {
    static const std::vector<BlendCase> cases = {
        {"NormalEx", NormalEx},
        {"ImageNormalEx", ImageNormalEx},
        {"MultipleEx", MultipleEx},
        {"ImageAddEx", ImageAddEx},
        {"ScreenEx", ScreenEx},
        {"ImageScreenEx", ImageScreenEx},
        {"ImageLightenEx", ImageLightenEx},
        {"ImageDarkenEx", ImageDarkenEx},
        {"ImageExclusionEx", ImageExclusionEx},
        {"ImageExclusionEx2", ImageExclusionEx2},
        {"ExclusionEx", ExclusionEx},
        {"ImageColorBurnEx", [](unsigned char* b, unsigned char* l, double) { ImageColorBurnEx(b, l); }},
        {"ColorBurnEx", ColorBurnEx},
        {"HardlightEx", HardlightEx},
        {"HardlightEx_2", HardlightEx_2},
        {"OverlayEx", [](unsigned char* b, unsigned char* l, double o) { OverlayEx(b, l, o); }},
        {"OverlayEx_colour",
         [](unsigned char* b, unsigned char* l, double o) { OverlayEx(b, l[2], l[1], l[0], o); }},
        {"SoftLightEx", SoftLightEx},
        {"SoftLightEx2", SoftLightEx2},
        {"ImageSoftLightEx", ImageSoftLightEx},
        {"ImageSoftLightExNew",
         [](unsigned char* b, unsigned char* l, double o) { ImageSoftLightExNew(b, l[1], o); }},
        {"CompositeColorEx", CompositeColorEx},
        {"PinLightEx", [](unsigned char* b, unsigned char* l, double) { PinLightEx(b, l); }},
        {"PinLightEx2",
         [](unsigned char* b, unsigned char* l, double o) { PinLightEx2(b, l, float(o)); }},
        {"ColorEx", ColorEx},
        {"ColorHSBEx", ColorHSBEx},
    };
    return cases;
}

const BgraImage& blend_layer() {
    static const BgraImage layer = qtzq_cli::make_material(
        "light-leak", bench_image().width(), bench_image().height(), 7, qtzq_cli::MaterialBase::Grey);
    return layer;
}

void blend_photo(const BlendCase& mode, BgraImage& photo) {
    const BgraImage& layer = blend_layer();
    // The library reads the blend pixel only; its parameter is not const.
    auto* blend = const_cast<unsigned char*>(layer.pixels.data());
    unsigned char* const end = photo.data() + photo.pixels.size();
    for (unsigned char* base = photo.data(); base != end; base += 4, blend += 4)
        mode.blend(base, blend, 0.7);
}

}  // namespace

void register_blend_modes() {
    for (const BlendCase& mode : blend_cases()) {
        const bool cross_fade = std::string(mode.name) == "NormalEx";
        add_pass(std::string("blend/") + mode.name,
                 [&mode](BgraImage& photo) { blend_photo(mode, photo); },
                 cross_fade ? "opencv/addWeighted" : "");
    }
}

}  // namespace qtzq_bench
