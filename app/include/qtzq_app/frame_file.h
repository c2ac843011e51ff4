// Frame files as the library's cframe reads them: 44 unused bytes, the
// insets x, y of corners 0..3 alternating at bytes 44..75, 4 unused bytes,
// then from byte 80 one record per piece slot 0..7: a flag byte (1 = data
// follows) and 3 spare bytes; for a present piece 4 spare bytes, a 32-bit
// little-endian length n and n bytes of data (PNG files, as qtzq make-frame
// writes them).
// Slots are the piece roles: 0 top-left, 1 bottom-left, 2 top-right,
// 3 bottom-right corner, 4 top, 5 bottom, 6 left, 7 right edge.
#ifndef QTZQ_APP_FRAME_FILE_H
#define QTZQ_APP_FRAME_FILE_H

#include <array>
#include <string>
#include <vector>

namespace qtzq_app {

constexpr int kFrameSlots = 8;

// "top-left", "bottom-left", ..., "right" for slots 0..7.
const char* frame_slot_name(int slot);

struct FrameFile {
    std::array<int, 4> inset_x{};
    std::array<int, 4> inset_y{};
    // An empty block means the slot carries no piece.
    std::array<std::vector<unsigned char>, kFrameSlots> pieces;
};

std::vector<unsigned char> encode_frame_file(const FrameFile& frame);

// Checks that every field and record lies inside the file before the
// library reads it (the library trusts the file's lengths) and returns the
// contents. A present record with length 0 counts as an empty slot, as the
// library treats it; a negative length or a record that runs past the end
// is an error. On failure returns false and sets `error` (without a file
// name).
bool parse_frame_file(const std::vector<unsigned char>& bytes, FrameFile& frame,
                      std::string& error);

}  // namespace qtzq_app

#endif  // QTZQ_APP_FRAME_FILE_H
