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
    CatalogueEntry<SingleImagePreset>{1020, StyleFilm},
    CatalogueEntry<SingleImagePreset>{1023, StyleJapanese},
    CatalogueEntry<SingleImagePreset>{1040, StyleXiaoQingXin},
    CatalogueEntry<SingleImagePreset>{1101, StyleGray},
};

// Table B: effect(id, image, material, width, height).
inline constexpr std::array<CatalogueEntry<OneMaterialPreset>, 0> kOneMaterialEffects{};

// Table C: effect(id, image, material1, material2, width, height).
inline constexpr std::array<CatalogueEntry<TwoMaterialPreset>, 0> kTwoMaterialEffects{};

// Table D: effect(id, image, material1, material2, material3, width, height).
inline constexpr std::array<CatalogueEntry<ThreeMaterialPreset>, 0> kThreeMaterialEffects{};

// Table E: effect(id, image, material1, material2, width, height, tables, reserved).
inline constexpr std::array<CatalogueEntry<BlendTablePreset>, 0> kBlendTableEffects{};

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
