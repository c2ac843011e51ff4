// Effect strength: the original photo mixed with the effect's result.
#ifndef QTZQ_APP_STRENGTH_H
#define QTZQ_APP_STRENGTH_H

#include <cstddef>

namespace qtzq_app {

// Mixes `original` into `result` (both `pixels` BGRA pixels) at `percent`
// (0..100) strength: each colour channel becomes
// (original * (100 - percent) + result * percent + 50) / 100 in integers;
// alpha stays the result's. 100 leaves `result` as it is, 0 restores the
// original colours.
void mix_strength(const unsigned char* original, unsigned char* result, std::size_t pixels,
                  int percent);

}  // namespace qtzq_app

#endif  // QTZQ_APP_STRENGTH_H
