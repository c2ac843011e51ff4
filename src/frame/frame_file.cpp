// cframe: reading a frame file into corner insets and piece data blocks.
#include <cstdint>
#include <cstring>

#include "frame/byte_reader.h"
#include "frame/frame_slots.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

namespace {

// Frame file layout.
constexpr std::int64_t kInsetsOffset = 44;  // x, y of corner 0, then 1, 2, 3
constexpr std::int64_t kInsetPairBytes = 8;
constexpr std::int64_t kRecordsOffset = 80;  // one record per slot
constexpr std::int64_t kFlagBytes = 4;       // flag byte and 3 spare bytes
constexpr std::int64_t kLengthOffset = 8;    // in a present record, after 4 spare bytes
constexpr std::int64_t kDataOffset = 12;     // in a present record

// Reads the corner insets in file order, stopping at the first value that
// lies outside the file. Returns true when all eight were read.
bool read_insets(const ByteReader& file, int (&inset_x)[kFrameCorners],
                 int (&inset_y)[kFrameCorners]) {
    for (int corner = 0; corner < kFrameCorners; ++corner) {
        const std::int64_t x_offset = kInsetsOffset + corner * kInsetPairBytes;
        if (!file.contains(x_offset, 4)) return false;
        inset_x[corner] = file.i32(x_offset);
        if (!file.contains(x_offset + 4, 4)) return false;
        inset_y[corner] = file.i32(x_offset + 4);
    }
    return true;
}

}  // namespace

int cframe::ReadFrameFile(unsigned char* data, int length) {
    if (data == nullptr || length < 1) return 0;
    DecodeFrameFile(data, length);
    return 1;
}

int cframe::DecodeFrameFile(unsigned char* data, int length) {
    const ByteReader file(data, length);
    if (!read_insets(file, m_insetX, m_insetY)) return 1;

    const int slots = m_pieceCount < kFrameSlots ? m_pieceCount : kFrameSlots;
    std::int64_t cursor = kRecordsOffset;
    for (int slot = 0; slot < slots; ++slot) {
        if (!file.contains(cursor, 1)) break;
        if (file.u8(cursor) != kSlotPresent) {
            m_present[slot] = 0;
            delete[] m_pieceData[slot];
            m_pieceData[slot] = nullptr;
            cursor += kFlagBytes;
            continue;
        }
        if (!file.contains(cursor + kLengthOffset, 4)) break;
        const int data_length = file.i32(cursor + kLengthOffset);
        const std::int64_t data_start = cursor + kDataOffset;
        if (data_length > 0) {
            if (!file.contains(data_start, data_length)) break;
            unsigned char* block = new unsigned char[data_length];
            std::memcpy(block, file.at(data_start), static_cast<std::size_t>(data_length));
            delete[] m_pieceData[slot];
            m_pieceData[slot] = block;
            m_pieceLength[slot] = data_length;
            // The block holds file data now, not pixels of the old size.
            m_pieceSize[slot] = {0, 0};
            m_present[slot] = kSlotPresent;
        } else {
            // An empty block: the slot counts as absent and keeps its block.
            m_present[slot] = 0;
        }
        cursor = data_start + data_length;
        if (cursor >= file.size()) break;
    }
    return 1;
}
