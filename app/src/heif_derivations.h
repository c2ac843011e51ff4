// The derived images of a HEIF file (grids, overlays, identity transforms:
// the 'dimg' references of its 'iref' box), checked before libheif decodes
// them: it follows them recursively, so a file whose images derive from
// each other in a loop would recurse without end.
#ifndef QTZQ_APP_SRC_HEIF_DERIVATIONS_H
#define QTZQ_APP_SRC_HEIF_DERIVATIONS_H

#include <cstddef>

namespace qtzq_app {

// Real files derive at most a couple of levels deep (an overlay of grids of
// tiles).
constexpr int kMostDerivationLevels = 8;

// True when every chain of derivations in the file is at most
// kMostDerivationLevels long (so none loops), or the file has no item
// references; false for longer chains, loops, or a malformed 'meta' or
// 'iref' box.
bool heif_derivations_bounded(const unsigned char* bytes, std::size_t size);

}  // namespace qtzq_app

#endif  // QTZQ_APP_SRC_HEIF_DERIVATIONS_H
