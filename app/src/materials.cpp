#include "qtzq_app/materials.h"

#include "material_kinds.h"

namespace qtzq_app {
namespace {

using Draw = void (*)(Canvas&, std::uint32_t);

struct KindEntry {
    MaterialKind kind;
    Draw draw;
};

const std::vector<KindEntry>& entries() {
    static const std::vector<KindEntry> list = {
        {{"vignette", "darkens toward the edges (Lomo looks, multiply or soft light)",
          MaterialBase::White},
         draw_vignette},
        {{"light-leak", "warm glows entering from the edges (screen)", MaterialBase::Black},
         draw_light_leak},
        {{"grain", "film grain with dust, hairs and scratches", MaterialBase::Grey}, draw_grain},
        {{"paper", "warm mottled paper with fibres and dust (old photo)", MaterialBase::White},
         draw_paper},
        {{"stars", "points of light, the bright ones with spikes (screen)", MaterialBase::Black},
         draw_stars},
        {{"snow", "soft snow flakes (screen)", MaterialBase::Black}, draw_snow},
    };
    return list;
}

}  // namespace

const std::vector<MaterialKind>& material_kinds() {
    static const std::vector<MaterialKind> kinds = [] {
        std::vector<MaterialKind> out;
        for (const auto& entry : entries()) out.push_back(entry.kind);
        return out;
    }();
    return kinds;
}

const MaterialKind* find_material_kind(const std::string& name) {
    for (const auto& kind : material_kinds())
        if (name == kind.name) return &kind;
    return nullptr;
}

const char* base_name(MaterialBase base) {
    switch (base) {
        case MaterialBase::Black: return "black";
        case MaterialBase::Grey: return "grey";
        case MaterialBase::White: return "white";
    }
    return "";
}

bool parse_base(const std::string& name, MaterialBase& base) {
    for (const MaterialBase b : {MaterialBase::Black, MaterialBase::Grey, MaterialBase::White})
        if (name == base_name(b)) {
            base = b;
            return true;
        }
    if (name == "gray") {
        base = MaterialBase::Grey;
        return true;
    }
    return false;
}

BgraImage make_material(const std::string& kind, int width, int height, std::uint32_t seed,
                        MaterialBase base) {
    Canvas canvas(width, height, base);
    for (const auto& entry : entries())
        if (kind == entry.kind.name) entry.draw(canvas, seed);
    return canvas.take();
}

}  // namespace qtzq_app
