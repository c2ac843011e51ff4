// Image sizes as CSharp stores them.
#ifndef QTZQ_BLUR_CSHARP_SIZE_H
#define QTZQ_BLUR_CSHARP_SIZE_H

#include <climits>

#include "pixel/image_walk.h"

namespace qtzq {

// Row stride in bytes, width * 4, computed without signed overflow.
inline int row_stride(int width) {
    return static_cast<int>(static_cast<unsigned>(width) * static_cast<unsigned>(kBytesPerPixel));
}

// A long side length kept in an int field: clamped to the int range.
inline int stored_dimension(long value) {
    if (value > INT_MAX) return INT_MAX;
    if (value < INT_MIN) return INT_MIN;
    return static_cast<int>(value);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_CSHARP_SIZE_H
