// cpuzzleformat: the "ZQPTM" template layout table, and the global m_format.
#include <cstdint>

#include "frame/byte_reader.h"
#include "frame/cell_index.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

namespace {

// Puzzle format file layout.
constexpr std::int64_t kMagicOffset = 12;
constexpr char kMagic[] = "ZQPTM";
constexpr std::int64_t kCountOffset = 36;
constexpr std::int64_t kResultWidthOffset = 40;
constexpr std::int64_t kResultHeightOffset = 44;
constexpr std::int64_t kHeaderBytes = 48;
constexpr std::int64_t kCellsOffset = 56;
constexpr std::int64_t kCellBytes = 16;  // x, y, width, height

_tagCGRect read_rect(const ByteReader& file, std::int64_t offset) {
    return {file.i32(offset), file.i32(offset + 4), file.i32(offset + 8), file.i32(offset + 12)};
}

}  // namespace

// The one process-wide format table, shared by every template collage.
cpuzzleformat m_format;

cpuzzleformat::cpuzzleformat() : m_formatCount(0), m_resultSize(), m_cellRect() {}

cpuzzleformat::~cpuzzleformat() {}

int cpuzzleformat::ReadPuzzleFormatFile(unsigned char* data, int length) {
    const ByteReader file(data, length);
    if (!file.has_magic(kMagicOffset, kMagic) || !file.contains(0, kHeaderBytes)) return 0;
    const int count = file.i32(kCountOffset);
    if (count > kCellCapacity) return 0;
    if (count > 0 && !file.contains(kCellsOffset, count * kCellBytes)) return 0;

    m_formatCount = count;
    m_resultSize = {file.i32(kResultWidthOffset), file.i32(kResultHeightOffset)};
    for (int cell = 0; cell < count; ++cell)
        m_cellRect[cell] = read_rect(file, kCellsOffset + cell * kCellBytes);
    return 1;
}

int cpuzzleformat::GetPuzzleFormatCount() { return m_formatCount; }

_tagCGSize cpuzzleformat::GetPuzzleResultSize() { return m_resultSize; }

_tagCGRect cpuzzleformat::GetPuzzleRectWithIndex(int index) {
    if (!is_stored_cell(index)) return {0, 0, 0, 0};
    return m_cellRect[index];
}

void cpuzzleformat::SetPuzzleRectWithIndex(int index, _tagCGRect rect) {
    if (is_stored_cell(index)) m_cellRect[index] = rect;
}
