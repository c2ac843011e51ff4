#include "qtzq_app/blend_tables.h"

#include <algorithm>

#include "qtzq_app/number_text.h"

namespace qtzq_app {

bool parse_table_mode(const std::string& text, TableMode& mode, std::string& error) {
    const std::size_t colon = text.find(':');
    const std::string name = text.substr(0, colon);
    mode.mode = find_blend_mode(name);
    if (!mode.mode) {
        error = "unknown blend mode '" + name + "'";
        return false;
    }
    mode.opacity = 1.0;
    if (colon != std::string::npos) {
        double opacity = 0;
        if (!parse_double(text.substr(colon + 1), opacity) || opacity < 0.0 || opacity > 1.0) {
            error = "opacity of '" + text + "' must be a number from 0 to 1";
            return false;
        }
        mode.opacity = opacity;
    }
    return true;
}

std::vector<unsigned char> build_map(const TableMode& mode) {
    std::vector<unsigned char> map(256 * 256);
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            unsigned char base[4] = {static_cast<unsigned char>(a), static_cast<unsigned char>(a),
                                     static_cast<unsigned char>(a), 255};
            unsigned char blend[4] = {static_cast<unsigned char>(b), static_cast<unsigned char>(b),
                                      static_cast<unsigned char>(b), 255};
            mode.mode->apply(base, blend, mode.opacity);
            map[std::size_t(a) * 256 + std::size_t(b)] = base[0];
        }
    return map;
}

std::vector<unsigned char> build_table_set(const std::array<TableMode, 3>& modes) {
    std::vector<unsigned char> set(kTableSetSize, 0);
    for (std::size_t m = 0; m < 3; ++m) {
        const std::vector<unsigned char> map = build_map(modes[m]);
        std::copy(map.begin(), map.end(), set.begin() + std::ptrdiff_t(kMapOffsets[m]));
    }
    return set;
}

}  // namespace qtzq_app
