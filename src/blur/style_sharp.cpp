// StyleSharp: one-call sharpening.
#include "qtzqeffect/blur.h"

void StyleSharp(unsigned char* buffer, int width, int height, int radius, float amount) {
    CSharp sharp;
    sharp.useEffect(buffer, width, height, radius, amount);
}
