// cfreepuzzle: reading a "MZYPT" layout file and laying out its cells.
#include <cstdint>
#include <cstdlib>

#include "frame/byte_reader.h"
#include "frame/cell_index.h"
#include "frame/int_arith.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

namespace {

// Layout file.
constexpr int kShortestRefusedLength = 31;
constexpr std::int64_t kMagicOffset = 12;
constexpr char kMagic[] = "MZYPT";
constexpr std::int64_t kCountOffset = 36;
constexpr std::int64_t kRecordsOffset = 56;
constexpr std::int64_t kRecordBytes = 56;

// Fields of a record, relative to its start.
enum RecordField : std::int64_t {
    kBaseX = 0,
    kBaseY = 4,
    kNominalWidth = 8,
    kNominalHeight = 12,
    kLeastShiftX = 16,
    kGreatestShiftX = 20,
    kLeastShiftY = 24,
    kGreatestShiftY = 28,
    kLeastRotation = 32,
    kGreatestRotation = 36,
    kLeastScale = 40,
    kGreatestScale = 44,
};

// Every layout is drawn on a canvas of this size.
constexpr _tagCGSize kCanvas = {640, 896};

// The seed that AverageRandom restarts the generator with at every draw.
constexpr unsigned kLayoutSeed = 2147483647u;

// One laid-out cell.
struct CellPlacement {
    float rotation;
    int x, y, width, height;
};

// q(v): v truncated to an integer, then halved with truncation toward zero.
int half_of_truncated(float v) { return truncate_int(v) / 2; }

CellPlacement place_cell(cfreepuzzle& puzzle, const ByteReader& file, std::int64_t record) {
    const auto draw_int = [&](RecordField least, RecordField greatest) {
        return truncate_int(puzzle.AverageRandom(static_cast<float>(file.i32(record + least)),
                                                 static_cast<float>(file.i32(record + greatest))));
    };
    const int dx = draw_int(kLeastShiftX, kGreatestShiftX);
    const int dy = draw_int(kLeastShiftY, kGreatestShiftY);
    const float rotation = static_cast<float>(draw_int(kLeastRotation, kGreatestRotation));
    const float scale =
        puzzle.AverageRandom(file.f32(record + kLeastScale), file.f32(record + kGreatestScale));

    // Single precision throughout, as required.
    const float nominal_width = static_cast<float>(file.i32(record + kNominalWidth));
    const float nominal_height = static_cast<float>(file.i32(record + kNominalHeight));
    const float width = scale * nominal_width;
    const float height = scale * nominal_height;
    const int x = wrapping_add(wrapping_add(dx, file.i32(record + kBaseX)),
                               half_of_truncated(nominal_width - width));
    const int y = wrapping_add(wrapping_add(dy, file.i32(record + kBaseY)),
                               half_of_truncated(nominal_height - height));
    return {rotation, x, y, truncate_int(width), truncate_int(height)};
}

}  // namespace

float cfreepuzzle::AverageRandom(float least, float greatest) {
    const float kHundredths = 100.0f;  // two decimals, in single precision
    const int lo = truncate_int(least * kHundredths);
    const int hi = truncate_int(greatest * kHundredths);
    std::srand(kLayoutSeed);
    const int range = wrapping_sub(hi, lo);
    if (range == 0) return static_cast<float>(hi) / kHundredths;
    // rand() is never negative, so the remainder is defined for any range.
    return static_cast<float>(wrapping_add(std::rand() % range, lo)) / kHundredths;
}

int cfreepuzzle::ReadFrameFile(unsigned char* data, int length) {
    const ByteReader file(data, length);
    if (file.size() <= kShortestRefusedLength || !file.has_magic(kMagicOffset, kMagic) ||
        !file.contains(kCountOffset, 4))
        return 0;
    const int count = file.i32(kCountOffset);
    if (count > kCellCapacity) {
        m_count = count;  // a refused layout still leaves its count, on purpose
        return 0;
    }
    if (count > 0 && !file.contains(kRecordsOffset, count * kRecordBytes)) return 0;

    m_count = count;
    m_resultSize = kCanvas;
    for (int i = 0; i < count; ++i) {
        const CellPlacement placed = place_cell(*this, file, kRecordsOffset + i * kRecordBytes);
        Cell& cell = m_cell[i];
        cell.rotation = placed.rotation;
        cell.x = placed.x;
        cell.y = placed.y;
        cell.width = placed.width;
        cell.height = placed.height;
    }
    return 1;
}
