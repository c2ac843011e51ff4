// Procedural material images of the kinds the presets blend into a photo:
// vignette masks, light leaks, film grain with dust, paper texture, stars
// and snow. Each is drawn over a neutral base colour that suits the blend
// the preset uses (black for screen, mid-grey for soft light and composite
// colour, white for multiply). The same kind, size, base and seed always
// give the same bytes, on every machine (no maths-library calls whose
// results may vary).
#ifndef QTZQ_APP_MATERIALS_H
#define QTZQ_APP_MATERIALS_H

#include <cstdint>
#include <string>
#include <vector>

#include "qtzq_app/png_io.h"

namespace qtzq_app {

enum class MaterialBase { Black, Grey, White };

struct MaterialChoice {
    const char* kind;
    MaterialBase base;
};

struct MaterialKind {
    const char* name;
    const char* description;
    MaterialBase default_base;
};

// Every kind, in the order `qtzq material --help` lists them.
const std::vector<MaterialKind>& material_kinds();
const MaterialKind* find_material_kind(const std::string& name);

const char* base_name(MaterialBase base);
bool parse_base(const std::string& name, MaterialBase& base);

// Draws a material of the given kind (a name from material_kinds()) and
// size. Alpha is 255 everywhere.
BgraImage make_material(const std::string& kind, int width, int height, std::uint32_t seed,
                        MaterialBase base);

}  // namespace qtzq_app

#endif  // QTZQ_APP_MATERIALS_H
