// Blend table sets: three 256 x 256 byte maps in the layout the facade's
// blend-table overload reads. Map m starts at byte 4 + m * 65539; entry
// (a, b) is the byte at map start + a * 256 + b, where a is the photo's
// channel value and b the second operand. The 4 leading bytes and the 3
// bytes between maps are never read; they are written as 0.
#ifndef QTZQ_APP_BLEND_TABLES_H
#define QTZQ_APP_BLEND_TABLES_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "qtzq_app/blend_modes.h"

namespace qtzq_app {

constexpr std::size_t kTableSetSize = 196618;
constexpr std::array<std::size_t, 3> kMapOffsets = {4, 65543, 131082};

// A blend mode at an opacity: written "MODE" or "MODE:OPACITY".
struct TableMode {
    const BlendMode* mode = nullptr;
    double opacity = 1.0;
};

// Parses "screen", "SoftLightEx:0.6" ...; on failure returns false and sets
// `error` (mode.mode is left null when the name is no blend mode).
bool parse_table_mode(const std::string& text, TableMode& mode, std::string& error);

// One map: entry (a, b) is the mode applied to a grey base pixel a with a
// grey blend pixel b, read back from the blue byte.
std::vector<unsigned char> build_map(const TableMode& mode);

// The three maps in the facade's layout.
std::vector<unsigned char> build_table_set(const std::array<TableMode, 3>& modes);

// Reads entry (a, b) of map 0..2 of a table set.
inline unsigned char table_entry(const std::vector<unsigned char>& set, int map, int a, int b) {
    return set[kMapOffsets[std::size_t(map)] + std::size_t(a) * 256 + std::size_t(b)];
}

}  // namespace qtzq_app

#endif  // QTZQ_APP_BLEND_TABLES_H
