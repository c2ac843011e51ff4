#include "qtzq_app/orientation.h"

#include <cstring>

namespace qtzq_app {

BgraImage upright(const BgraImage& stored, int orientation) {
    if (orientation < 2 || orientation > 8) return stored;
    const int w = stored.width, h = stored.height;
    const bool swaps = orientation >= 5;
    BgraImage out(swaps ? h : w, swaps ? w : h);
    for (int y = 0; y < out.height; ++y)
        for (int x = 0; x < out.width; ++x) {
            int sx = x, sy = y;
            switch (orientation) {
                case 2: sx = w - 1 - x; break;
                case 3: sx = w - 1 - x; sy = h - 1 - y; break;
                case 4: sy = h - 1 - y; break;
                case 5: sx = y; sy = x; break;
                case 6: sx = y; sy = h - 1 - x; break;
                case 7: sx = w - 1 - y; sy = h - 1 - x; break;
                case 8: sx = w - 1 - y; sy = x; break;
            }
            std::memcpy(out.at(x, y), stored.at(sx, sy), 4);
        }
    return out;
}

}  // namespace qtzq_app
