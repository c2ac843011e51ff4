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

using M = Mapping;

EffectInfo single(int id, const char* preset, const char* look, Mapping mapping,
                  bool serialised = false) {
    return {id, preset, look, Overload::Image, {}, {}, serialised, mapping};
}

std::vector<EffectInfo> build_catalogue() {
    return {
        {1018, "StyleJinDian", "classic", Overload::TwoMaterials,
         {composited("vignette"), composited("paper")}, {}, false, M::Material},
        single(1019, "StyleElegant", "elegant", M::ColourMap),
        single(1020, "StyleFilm", "film", M::ColourMap),
        single(1021, "StyleRetro", "retro grain", M::Noise, true),
        single(1022, "StyleCinnamon", "cinnamon", M::ColourMap),
        single(1023, "StyleJapanese", "Japanese", M::ColourMap),
        {1026, "StyleOldPhoto", "old photo", Overload::OneMaterial, {screened("paper")}, {}, false,
         M::Material},
        single(1027, "StyleImpression", "impression", M::ColourMap),
        single(1028, "StyleBaoColor", "vivid colour", M::ColourMap, true),
        {1030, "StyleBrightRed", "bright red", Overload::OneMaterial, {screened("light-leak")}, {},
         false, M::Material},
        {1031, "StyleNiuPiZhi", "kraft paper", Overload::Tables,
         {table_operand("paper", B::White), table_operand("vignette", B::Grey)},
         {"exclusion:0.5", "multiply", "softlight"}, false, M::Material},
        {1032, "StyleXuanCai", "dazzling colour", Overload::Tables,
         {table_operand("light-leak", B::Black), table_operand("vignette", B::Grey)},
         {"softlight", "screen", "softlight"}, false, M::Material},
        single(1033, "StyleLomoHDRJinDian", "classic lomo HDR", M::Neighbourhood),
        single(1034, "StyleHeiBai", "black and white", M::ColourMap),
        single(1035, "StyleLomoHDR", "lomo HDR", M::Neighbourhood),
        {1038, "StyleFanHuang", "yellowed", Overload::Tables,
         {table_operand("paper", B::White), table_operand("vignette", B::White)},
         {"multiply", "multiply", "screen"}, false, M::Material},
        single(1039, "StyleLiuJin", "gilded grain", M::Noise, true),
        single(1040, "StyleXiaoQingXin", "fresh", M::ColourMap),
        {1041, "StyleWarm", "warm", Overload::TwoMaterials,
         {multiplied("vignette"), soft_lit("light-leak")}, {}, false, M::Material},
        {1042, "StyleLomoChristmas", "lomo Christmas", Overload::OneMaterial,
         {screened("stars")}, {}, false, M::Material},
        {1043, "StyleLomoSnow", "lomo snow", Overload::OneMaterial, {screened("snow")}, {}, false,
         M::Material},
        {1044, "StyleLomoNight", "lomo night", Overload::OneMaterial, {screened("stars")}, {},
         false, M::Material},
        {1045, "StyleLomoHalo", "lomo halo", Overload::OneMaterial, {screened("light-leak")}, {},
         false, M::Material},
        {1046, "StyleLomoStar", "lomo star", Overload::OneMaterial, {soft_lit("stars")}, {},
         false, M::Material},
        {1047, "StyleReverse", "reversal", Overload::OneMaterial,
         {{"soft light, opacity from its alpha", {"vignette", B::Grey}}}, {}, false,
         M::Material},
        {1048, "StyleFenHongJiaRen", "pink beauty", Overload::ThreeMaterials,
         {composited("vignette"), composited("light-leak"), composited("grain")}, {}, false,
         M::Material},
        single(1101, "StyleGray", "grey", M::ColourMap),
        {1102, "StyleRiguanghaian", "sunlit shore", Overload::OneMaterial,
         {screened("light-leak")}, {}, false, M::Material},
        // The recipe is the library's own choice; the material is screened
        // in the other sunlight presets, so a light leak is the default.
        {1104, "StyleYiZhou", "YiZhou", Overload::OneMaterial,
         {{"blended by the preset", {"light-leak", B::Black}}}, {}, true, M::Material},
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

std::string lut_refusal(const EffectInfo& info) {
    const std::string name = std::to_string(info.id) + " " + info.preset;
    switch (info.mapping) {
        case Mapping::ColourMap: return "";
        case Mapping::Material:
            return name + " blends material images over the photo, so the result depends on "
                          "where a pixel is, not only on its colour";
        case Mapping::Noise:
            return name + " adds random grain, so one colour does not always give the same result";
        case Mapping::Neighbourhood:
            return name + " looks at other pixels (levels of the whole image, sharpening), so "
                          "the result depends on more than a pixel's colour";
    }
    return "";
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
