// The two things the applications change in a photo's EXIF data: the
// orientation, which they apply to the pixels, and the embedded thumbnail,
// which would no longer match them.
#ifndef QTZQ_APP_EXIF_H
#define QTZQ_APP_EXIF_H

#include <vector>

namespace qtzq_app {

// The orientation (1..8) that EXIF data (a TIFF structure starting "II*\0"
// or "MM\0*") records in its first directory; 1 when it records none or
// the data is malformed.
int exif_orientation(const std::vector<unsigned char>& exif);

// The EXIF data to write beside pixels that are already upright: the
// orientation set to 1, the thumbnail directory unlinked and its image cut
// off when it ends the data. Malformed data is dropped (empty result).
std::vector<unsigned char> exif_for_output(std::vector<unsigned char> exif);

}  // namespace qtzq_app

#endif  // QTZQ_APP_EXIF_H
