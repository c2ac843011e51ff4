// Comparing and printing the collage geometry records in test assertions.
#ifndef QTZQ_TESTS_FRAME_RECTS_H
#define QTZQ_TESTS_FRAME_RECTS_H

#include <ostream>

#include "qtzqeffect/frame.h"

inline bool operator==(const _tagCGRect& a, const _tagCGRect& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

inline std::ostream& operator<<(std::ostream& out, const _tagCGRect& r) {
    return out << "(" << r.x << ", " << r.y << ", " << r.width << ", " << r.height << ")";
}

#endif  // QTZQ_TESTS_FRAME_RECTS_H
