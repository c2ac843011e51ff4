// The size limit on pixel buffers handed to and from frame objects.
//
// Offsets into a buffer are computed in size_t, which is 32 bits on the
// library's ARM target; keeping every buffer within the int range keeps
// those offsets exact there and keeps sizes representable in the int
// arguments of the interface.
#ifndef QTZQ_FRAME_BUFFER_SIZE_H
#define QTZQ_FRAME_BUFFER_SIZE_H

#include <cstddef>
#include <cstdint>
#include <limits>

namespace qtzq {

constexpr std::int64_t kMaxBufferBytes = std::numeric_limits<int>::max();

// Stores width * height * 4 in `bytes` and returns true when both sides are
// 0 or more and the buffer is at most kMaxBufferBytes; otherwise false.
inline bool pixel_buffer_bytes(std::int64_t width, std::int64_t height, std::size_t& bytes) {
    constexpr std::int64_t kBytesPerPixel = 4;
    if (width < 0 || height < 0) return false;
    if (width > 0 && height > kMaxBufferBytes / kBytesPerPixel / width) return false;
    bytes = static_cast<std::size_t>(width * height * kBytesPerPixel);
    return true;
}

}  // namespace qtzq

#endif  // QTZQ_FRAME_BUFFER_SIZE_H
