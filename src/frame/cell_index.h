// The nine cells of the collage tables.
#ifndef QTZQ_FRAME_CELL_INDEX_H
#define QTZQ_FRAME_CELL_INDEX_H

namespace qtzq {

// Every collage table (puzzle format, free collage) has room for nine cells.
constexpr int kCellCapacity = 9;

// True when `index` names one of the first `count` cells of a table (count
// clipped to the table's nine); a count of 0 or less names none.
inline bool is_stored_cell(int index, int count = kCellCapacity) {
    const int stored = count < kCellCapacity ? count : kCellCapacity;
    return index >= 0 && index < stored;
}

}  // namespace qtzq

#endif  // QTZQ_FRAME_CELL_INDEX_H
