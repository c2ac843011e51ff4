// The effect catalogue as the applications know it: every effect id of the
// library's facade, the preset behind it, the `effect` overload that
// reaches it, and the materials or blend tables it needs, with the
// generated defaults the applications use when the user gives none.
#ifndef QTZQ_APP_CATALOGUE_H
#define QTZQ_APP_CATALOGUE_H

#include <string>
#include <vector>

#include "qtzq_app/materials.h"

namespace qtzq_app {

// Which Qtzqeffect::effect overload an id belongs to.
enum class Overload {
    Image,           // effect(id, image, width, height)
    OneMaterial,     // effect(id, image, material, width, height)
    TwoMaterials,    // effect(id, image, material1, material2, width, height)
    ThreeMaterials,  // effect(id, image, material1, material2, material3, width, height)
    Tables,          // effect(id, image, material1, material2, width, height, tables, 0)
};

// A material slot: what the preset does with it and the generated default.
struct MaterialNeed {
    const char* use;  // e.g. "screened over the photo"
    MaterialChoice fallback;
};

// What a look does to a pixel besides looking at the pixel itself. Only
// colour maps can be exported as a 3D lookup table.
enum class Mapping {
    ColourMap,      // each output pixel is a fixed function of its input colour
    Material,       // blends material images (or their tables) over the photo
    Noise,          // adds random grain
    Neighbourhood,  // reads other pixels: sharpening, blur, whole-image levels
};

struct EffectInfo {
    int id;
    const char* preset;  // the library's function name, e.g. "StyleFilm"
    const char* look;    // a short English name, e.g. "film"
    Overload overload;
    std::vector<MaterialNeed> materials;  // one per material argument, in order
    // Default blend modes of the three maps of the table set (Tables only).
    std::vector<const char*> table_modes;
    // The preset touches process-wide state of the library (the rand()
    // generator it reseeds from the clock, or a recipe left open that may
    // use the shared blur): the effect runner never runs two of these at once.
    bool serialised;
    Mapping mapping;
};

// Every effect id, in id order.
const std::vector<EffectInfo>& catalogue();

// Finds an effect by id ("1020"), preset name ("StyleFilm"), preset name
// without "Style" ("film") or look ("old photo"); case, spaces, dashes and
// underscores do not matter. Null when nothing matches.
const EffectInfo* find_effect(const std::string& name);

// The default blend modes of a blend-table effect, joined by `separator`
// ("" for other effects).
std::string table_modes_text(const EffectInfo& info, const std::string& separator);

// Empty for a colour map; otherwise why the look has no lookup table.
std::string lut_refusal(const EffectInfo& info);

int material_count(Overload overload);
bool needs_tables(Overload overload);
// "image", "1 material", "2 materials", "3 materials", "2 materials + tables".
std::string overload_text(Overload overload);
// The C++ signature of the overload, for --help and the listing.
const char* overload_signature(Overload overload);

}  // namespace qtzq_app

#endif  // QTZQ_APP_CATALOGUE_H
