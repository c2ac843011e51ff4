// Each single-pixel blend mode of the library applied once per pixel of the
// photo, with a generated light-leak layer of the same size as the blend
// pixels, the way presets use them.
#include <qtzqeffect/pixel.h>

#include <string>
#include <vector>

#include "qtzq_app/blend_modes.h"
#include "qtzq_app/materials.h"

#include "bench_image.h"
#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

// One blend function called the uniform way: base pixel, blend pixel, opacity.
using BlendFunction = void (*)(unsigned char* base, unsigned char* layer, double opacity);

struct BlendCase {
    std::string name;  // the library function
    BlendFunction blend;
};

// Every mode the tool knows (with its adapters for other signatures), and
// the single-pixel forms it does not offer as modes: the second name of
// the normal blend, overlay with a constant colour and soft light with one
// level, both taken from the layer pixel.
std::vector<BlendCase> blend_cases() {
    std::vector<BlendCase> cases;
    for (const qtzq_app::BlendMode* mode : qtzq_app::all_blend_modes())
        cases.push_back({mode->function, mode->apply});
    cases.push_back({"ImageNormalEx", ImageNormalEx});
    cases.push_back({"OverlayEx_colour", [](unsigned char* b, unsigned char* l, double o) {
                         OverlayEx(b, l[2], l[1], l[0], o);
                     }});
    cases.push_back({"ImageSoftLightExNew", [](unsigned char* b, unsigned char* l, double o) {
                         ImageSoftLightExNew(b, l[1], o);
                     }});
    return cases;
}

const BgraImage& blend_layer() {
    static const BgraImage layer = qtzq_app::make_material(
        "light-leak", bench_image().width(), bench_image().height(), 7, qtzq_app::MaterialBase::Grey);
    return layer;
}

void blend_photo(BlendFunction blend_pixel, BgraImage& photo) {
    const BgraImage& layer = blend_layer();
    // The library reads the blend pixel only; its parameter is not const.
    auto* blend = const_cast<unsigned char*>(layer.pixels.data());
    unsigned char* const end = photo.data() + photo.pixels.size();
    for (unsigned char* base = photo.data(); base != end; base += 4, blend += 4)
        blend_pixel(base, blend, 0.7);
}

}  // namespace

void register_blend_modes() {
    for (const BlendCase& mode : blend_cases()) {
        add_pass("blend/" + mode.name,
                 [blend = mode.blend](BgraImage& photo) { blend_photo(blend, photo); },
                 mode.name == "NormalEx" ? "opencv/addWeighted" : "");
    }
}

}  // namespace qtzq_bench
