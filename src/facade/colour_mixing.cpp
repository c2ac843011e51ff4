// Qtzqeffect::ColorMixing: brightness/contrast, then matrix saturation.
#include "qtzqeffect/facade.h"
#include "qtzqeffect/pixel.h"

int Qtzqeffect::ColorMixing(unsigned char* image, int width, int height, int a, int b,
                            int saturation) {
    if (image == nullptr) return 0;
    Light(image, width, height, a, b);
    Saturateconst(image, width, height, saturation);
    return 1;
}
