#include "qtzq_app/catalogue.h"

#include <cctype>

namespace qtzq_app {
namespace {

using B = MaterialBase;

MaterialNeed screened(const char* kind) { return {"screened over the photo", {kind, B::Black}}; }
MaterialNeed soft_lit(const char* kind) { return {"soft light over the photo", {kind, B::Grey}}; }
MaterialNeed composited(const char* kind) { return {"composite colour blend", {kind, B::Grey}}; }
MaterialNeed multiplied(const char* kind) { return {"multiplied into the photo", {kind, B::White}}; }
MaterialNeed table_operand(const char* kind, B base) { return {"second operand of a map", {kind, base}}; }

EffectInfo single(int id, const char* preset, const char* look, bool serialised = false) {
    return {id, preset, look, Overload::Image, {}, {}, serialised};
}

std::vector<EffectInfo> build_catalogue() {
    return {
        {1018, "StyleJinDian", "classic", Overload::TwoMaterials,
         {composited("vignette"), composited("paper")}, {}, false},
        single(1019, "StyleElegant", "elegant"),
        single(1020, "StyleFilm", "film"),
        single(1021, "StyleRetro", "retro grain", true),
        single(1022, "StyleCinnamon", "cinnamon"),
        single(1023, "StyleJapanese", "Japanese"),
        {1026, "StyleOldPhoto", "old photo", Overload::OneMaterial, {screened("paper")}, {}, false},
        single(1027, "StyleImpression", "impression"),
        single(1028, "StyleBaoColor", "vivid colour", true),
        {1030, "StyleBrightRed", "bright red", Overload::OneMaterial, {screened("light-leak")}, {},
         false},
        {1031, "StyleNiuPiZhi", "kraft paper", Overload::Tables,
         {table_operand("paper", B::White), table_operand("vignette", B::Grey)},
         {"exclusion:0.5", "multiply", "softlight"}, false},
        {1032, "StyleXuanCai", "dazzling colour", Overload::Tables,
         {table_operand("light-leak", B::Black), table_operand("vignette", B::Grey)},
         {"softlight", "screen", "softlight"}, false},
        single(1033, "StyleLomoHDRJinDian", "classic lomo HDR"),
        single(1034, "StyleHeiBai", "black and white"),
        single(1035, "StyleLomoHDR", "lomo HDR"),
        {1038, "StyleFanHuang", "yellowed", Overload::Tables,
         {table_operand("paper", B::White), table_operand("vignette", B::White)},
         {"multiply", "multiply", "screen"}, false},
        single(1039, "StyleLiuJin", "gilded grain", true),
        single(1040, "StyleXiaoQingXin", "fresh"),
        {1041, "StyleWarm", "warm", Overload::TwoMaterials,
         {multiplied("vignette"), soft_lit("light-leak")}, {}, false},
        {1042, "StyleLomoChristmas", "lomo Christmas", Overload::OneMaterial,
         {screened("stars")}, {}, false},
        {1043, "StyleLomoSnow", "lomo snow", Overload::OneMaterial, {screened("snow")}, {}, false},
        {1044, "StyleLomoNight", "lomo night", Overload::OneMaterial, {screened("stars")}, {},
         false},
        {1045, "StyleLomoHalo", "lomo halo", Overload::OneMaterial, {screened("light-leak")}, {},
         false},
        {1046, "StyleLomoStar", "lomo star", Overload::OneMaterial, {soft_lit("stars")}, {},
         false},
        {1047, "StyleReverse", "reversal", Overload::OneMaterial,
         {{"soft light, opacity from its alpha", {"vignette", B::Grey}}}, {}, false},
        {1048, "StyleFenHongJiaRen", "pink beauty", Overload::ThreeMaterials,
         {composited("vignette"), composited("light-leak"), composited("grain")}, {}, false},
        single(1101, "StyleGray", "grey"),
        {1102, "StyleRiguanghaian", "sunlit shore", Overload::OneMaterial,
         {screened("light-leak")}, {}, false},
        // The recipe is the library's own choice; the material is screened
        // in the other sunlight presets, so a light leak is the default.
        {1104, "StyleYiZhou", "YiZhou", Overload::OneMaterial,
         {{"blended by the preset", {"light-leak", B::Black}}}, {}, true},
    };
}

std::string normalised(const std::string& text) {
    std::string out;
    for (const char c : text)
        if (std::isalnum(static_cast<unsigned char>(c)))
            out += char(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace

const std::vector<EffectInfo>& catalogue() {
    static const std::vector<EffectInfo> entries = build_catalogue();
    return entries;
}

const EffectInfo* find_effect(const std::string& name) {
    const std::string wanted = normalised(name);
    if (wanted.empty()) return nullptr;
    for (const auto& entry : catalogue()) {
        const std::string preset = normalised(entry.preset);
        if (wanted == std::to_string(entry.id) || wanted == preset ||
            wanted == preset.substr(5) || wanted == normalised(entry.look))
            return &entry;
    }
    return nullptr;
}

std::string table_modes_text(const EffectInfo& info, const std::string& separator) {
    std::string text;
    for (const char* mode : info.table_modes) text += (text.empty() ? "" : separator) + mode;
    return text;
}

int material_count(Overload overload) {
    switch (overload) {
        case Overload::Image: return 0;
        case Overload::OneMaterial: return 1;
        case Overload::TwoMaterials: return 2;
        case Overload::ThreeMaterials: return 3;
        case Overload::Tables: return 2;
    }
    return 0;
}

bool needs_tables(Overload overload) { return overload == Overload::Tables; }

std::string overload_text(Overload overload) {
    const int count = material_count(overload);
    std::string text = count == 0 ? "image"
                                  : std::to_string(count) + (count == 1 ? " material" : " materials");
    if (needs_tables(overload)) text += " + tables";
    return text;
}

const char* overload_signature(Overload overload) {
    switch (overload) {
        case Overload::Image: return "effect(id, image, w, h)";
        case Overload::OneMaterial: return "effect(id, image, m, w, h)";
        case Overload::TwoMaterials: return "effect(id, image, m1, m2, w, h)";
        case Overload::ThreeMaterials: return "effect(id, image, m1, m2, m3, w, h)";
        case Overload::Tables: return "effect(id, image, m1, m2, w, h, tables, 0)";
    }
    return "";
}

}  // namespace qtzq_app
