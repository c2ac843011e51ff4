#include "qtzq_app/effect_defaults.h"

#include <array>
#include <stdexcept>

#include "qtzq_app/blend_tables.h"

namespace qtzq_app {

BgraImage default_material(const EffectInfo& info, int slot, int width, int height) {
    const MaterialChoice& choice = info.materials[std::size_t(slot)].fallback;
    return make_material(choice.kind, width, height, std::uint32_t(info.id * 10 + slot), choice.base);
}

std::vector<unsigned char> default_table_set(const EffectInfo& info) {
    std::array<TableMode, 3> modes;
    for (std::size_t m = 0; m < 3; ++m) {
        std::string error;
        // The catalogue names only known modes: a failure here is a bug.
        if (!parse_table_mode(info.table_modes[m], modes[m], error)) throw std::logic_error(error);
    }
    return build_table_set(modes);
}

}  // namespace qtzq_app
