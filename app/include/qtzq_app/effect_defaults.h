// The generated inputs an effect gets when the user gives none: material
// images drawn to the photo's size and blend table sets built from the
// catalogue's modes. Kept apart from the file-reading EffectInputs so that
// builds without image files (the WebAssembly module) share them.
#ifndef QTZQ_APP_EFFECT_DEFAULTS_H
#define QTZQ_APP_EFFECT_DEFAULTS_H

#include <vector>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/png_io.h"

namespace qtzq_app {

// The generated default material of a slot, at a photo's size; the seed is
// the effect id plus the slot, so every run draws the same material.
BgraImage default_material(const EffectInfo& info, int slot, int width, int height);

// The default table set of a blend-table effect.
std::vector<unsigned char> default_table_set(const EffectInfo& info);

}  // namespace qtzq_app

#endif  // QTZQ_APP_EFFECT_DEFAULTS_H
