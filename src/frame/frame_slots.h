// Constants shared by the frame object's files: its eight piece slots.
#ifndef QTZQ_FRAME_FRAME_SLOTS_H
#define QTZQ_FRAME_FRAME_SLOTS_H

namespace qtzq {

constexpr int kFrameSlots = 8;    // four corners, then four edges
constexpr int kFrameCorners = 4;  // slots 0..3 carry corner insets

// Value of a slot's present flag when the file carried data for it.
constexpr int kSlotPresent = 1;

inline bool is_frame_slot(int slot) { return slot >= 0 && slot < kFrameSlots; }

}  // namespace qtzq

#endif  // QTZQ_FRAME_FRAME_SLOTS_H
