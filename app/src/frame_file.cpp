#include "qtzq_app/frame_file.h"

#include <cstdint>

namespace qtzq_app {
namespace {

constexpr std::size_t kInsetsOffset = 44;
constexpr std::size_t kRecordsOffset = 80;

void put_int(std::vector<unsigned char>& out, std::size_t at, std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i) out[at + std::size_t(i)] = static_cast<unsigned char>(bits >> (8 * i));
}

std::int32_t get_int(const std::vector<unsigned char>& in, std::size_t at) {
    std::uint32_t bits = 0;
    for (int i = 0; i < 4; ++i) bits |= std::uint32_t(in[at + std::size_t(i)]) << (8 * i);
    // Two's complement without relying on an out-of-range conversion.
    return bits <= 0x7FFFFFFFu ? std::int32_t(bits)
                               : -std::int32_t(~bits) - 1;
}

}  // namespace

const char* frame_slot_name(int slot) {
    static const char* const names[kFrameSlots] = {"top-left", "bottom-left", "top-right",
                                                   "bottom-right", "top", "bottom", "left",
                                                   "right"};
    return slot >= 0 && slot < kFrameSlots ? names[slot] : "?";
}

std::vector<unsigned char> encode_frame_file(const FrameFile& frame) {
    std::vector<unsigned char> out(kRecordsOffset, 0);
    for (std::size_t corner = 0; corner < 4; ++corner) {
        put_int(out, kInsetsOffset + corner * 8, frame.inset_x[corner]);
        put_int(out, kInsetsOffset + corner * 8 + 4, frame.inset_y[corner]);
    }
    for (const auto& piece : frame.pieces) {
        const std::size_t start = out.size();
        if (piece.empty()) {
            out.resize(start + 4, 0);
            continue;
        }
        out.resize(start + 12, 0);
        out[start] = 1;
        put_int(out, start + 8, std::int32_t(piece.size()));
        out.insert(out.end(), piece.begin(), piece.end());
    }
    return out;
}

bool parse_frame_file(const std::vector<unsigned char>& bytes, FrameFile& frame,
                      std::string& error) {
    if (bytes.size() < kRecordsOffset) {
        error = std::to_string(bytes.size()) + " bytes, too short for a frame file (at least " +
                std::to_string(kRecordsOffset) + ")";
        return false;
    }
    FrameFile parsed;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        parsed.inset_x[corner] = get_int(bytes, kInsetsOffset + corner * 8);
        parsed.inset_y[corner] = get_int(bytes, kInsetsOffset + corner * 8 + 4);
    }
    std::size_t cursor = kRecordsOffset;
    for (int slot = 0; slot < kFrameSlots; ++slot) {
        const std::string where = std::string("record of the ") + frame_slot_name(slot) + " piece";
        if (cursor + 4 > bytes.size()) {
            error = "the file ends before the " + where;
            return false;
        }
        if (bytes[cursor] != 1) {
            cursor += 4;
            continue;
        }
        if (cursor + 12 > bytes.size()) {
            error = "the " + where + " is cut off";
            return false;
        }
        const std::int32_t length = get_int(bytes, cursor + 8);
        const std::size_t data = cursor + 12;
        if (length < 0 || std::size_t(length) > bytes.size() - data) {
            error = "the " + where + " announces " + std::to_string(length) +
                    " bytes of data but " + std::to_string(bytes.size() - data) + " follow";
            return false;
        }
        parsed.pieces[std::size_t(slot)].assign(bytes.begin() + std::ptrdiff_t(data),
                                                bytes.begin() + std::ptrdiff_t(data + std::size_t(length)));
        cursor = data + std::size_t(length);
        if (cursor >= bytes.size()) break;  // the library stops reading here too
    }
    frame = std::move(parsed);
    return true;
}

}  // namespace qtzq_app
