// Turning pixels upright by an EXIF orientation.
#ifndef QTZQ_APP_ORIENTATION_H
#define QTZQ_APP_ORIENTATION_H

#include "qtzq_app/png_io.h"

namespace qtzq_app {

// The image as it is meant to be seen when stored with EXIF `orientation`:
// 1 as stored, 2 mirrored left-right, 3 turned half round, 4 mirrored
// top-bottom, 5 transposed, 6 turned a quarter clockwise, 7 transverse,
// 8 turned a quarter anticlockwise. Orientations 5 to 8 swap width and
// height; values outside 1..8 count as 1.
BgraImage upright(const BgraImage& stored, int orientation);

}  // namespace qtzq_app

#endif  // QTZQ_APP_ORIENTATION_H
