// The effect catalogue: one table per Qtzqeffect::effect overload, mapping an
// effect id to the preset that overload calls with it.
//
// Adding a preset to the facade is one line in the table of its overload.
// An id missing from a table selects nothing for that overload.
#ifndef QTZQ_FACADE_EFFECT_CATALOGUE_H
#define QTZQ_FACADE_EFFECT_CATALOGUE_H

#include <array>
#include <cstddef>

#include "qtzqeffect/styles.h"

namespace qtzq {

using SingleImagePreset = void (*)(unsigned char* image, int width, int height);
using OneMaterialPreset = void (*)(unsigned char* image, unsigned char* material, int width,
                                   int height);
using TwoMaterialPreset = void (*)(unsigned char* image, unsigned char* material1,
                                   unsigned char* material2, int width, int height);
using ThreeMaterialPreset = void (*)(unsigned char* image, unsigned char* material1,
                                     unsigned char* material2, unsigned char* material3, int width,
                                     int height);
using BlendTablePreset = void (*)(unsigned char* image, unsigned char* material1,
                                  unsigned char* material2, int width, int height,
                                  unsigned char* tables);

template <typename Preset>
struct CatalogueEntry {
    int id;
    Preset preset;
};

// Table A: effect(id, image, width, height).
inline constexpr std::array kSingleImageEffects{
    CatalogueEntry<SingleImagePreset>{1019, StyleElegant},
    CatalogueEntry<SingleImagePreset>{1020, StyleFilm},
    CatalogueEntry<SingleImagePreset>{1021, StyleRetro},
    CatalogueEntry<SingleImagePreset>{1022, StyleCinnamon},
    CatalogueEntry<SingleImagePreset>{1023, StyleJapanese},
    CatalogueEntry<SingleImagePreset>{1027, StyleImpression},
    CatalogueEntry<SingleImagePreset>{1028, StyleBaoColor},
    CatalogueEntry<SingleImagePreset>{1033, StyleLomoHDRJinDian},
    CatalogueEntry<SingleImagePreset>{1034, StyleHeiBai},
    CatalogueEntry<SingleImagePreset>{1035, StyleLomoHDR},
    CatalogueEntry<SingleImagePreset>{1039, StyleLiuJin},
    CatalogueEntry<SingleImagePreset>{1040, StyleXiaoQingXin},
    CatalogueEntry<SingleImagePreset>{1101, StyleGray},
};

// Table B: effect(id, image, material, width, height).
inline constexpr std::array kOneMaterialEffects{
    CatalogueEntry<OneMaterialPreset>{1026, StyleOldPhoto},
    CatalogueEntry<OneMaterialPreset>{1030, StyleBrightRed},
    CatalogueEntry<OneMaterialPreset>{1042, StyleLomoChristmas},
    CatalogueEntry<OneMaterialPreset>{1043, StyleLomoSnow},
    CatalogueEntry<OneMaterialPreset>{1044, StyleLomoNight},
    CatalogueEntry<OneMaterialPreset>{1045, StyleLomoHalo},
    CatalogueEntry<OneMaterialPreset>{1046, StyleLomoStar},
    CatalogueEntry<OneMaterialPreset>{1047, StyleReverse},
    CatalogueEntry<OneMaterialPreset>{1102, StyleRiguanghaian},
    CatalogueEntry<OneMaterialPreset>{1104, StyleYiZhou},
};

// Table C: effect(id, image, material1, material2, width, height).
inline constexpr std::array kTwoMaterialEffects{
    CatalogueEntry<TwoMaterialPreset>{1018, StyleJinDian},
    CatalogueEntry<TwoMaterialPreset>{1041, StyleWarm},
};

// Table D: effect(id, image, material1, material2, material3, width, height).
inline constexpr std::array kThreeMaterialEffects{
    CatalogueEntry<ThreeMaterialPreset>{1048, StyleFenHongJiaRen},
};

// Table E: effect(id, image, material1, material2, width, height, tables, reserved).
inline constexpr std::array kBlendTableEffects{
    CatalogueEntry<BlendTablePreset>{1031, StyleNiuPiZhi},
    CatalogueEntry<BlendTablePreset>{1032, StyleXuanCai},
    CatalogueEntry<BlendTablePreset>{1038, StyleFanHuang},
};

// The preset registered for id, or null when the table has none.
template <typename Preset, std::size_t N>
constexpr Preset find_preset(const std::array<CatalogueEntry<Preset>, N>& table, int id) {
    for (const auto& entry : table) {
        if (entry.id == id) return entry.preset;
    }
    return nullptr;
}

}  // namespace qtzq

#endif  // QTZQ_FACADE_EFFECT_CATALOGUE_H
