// Style presets: fixed recipes behind the effect ids of Qtzqeffect.
//
// Every preset works in place on a BGRA pixel buffer of width x height
// pixels (width * 4 bytes per row) and never touches the alpha byte unless
// its comment says so. A width or height below 1 processes no pixel.
// Presets check no pointer: passing null or undersized buffers is the
// caller's fault. The fixed tone curves they use come from the library's
// constant curve store.
#ifndef QTZQEFFECT_STYLES_H
#define QTZQEFFECT_STYLES_H

#include "qtzqeffect/export.h"

// --- Curve presets ------------------------------------------------------------

// Film look: red, green and blue each through their own tone curve (id 1020).
QTZQ_API void StyleFilm(unsigned char* image, int width, int height);

// Japanese look: three tone curves (id 1023).
QTZQ_API void StyleJapanese(unsigned char* image, int width, int height);

// Fresh look: 80 % tone curve, 20 % original, per channel (id 1040).
QTZQ_API void StyleXiaoQingXin(unsigned char* image, int width, int height);

// Grey (11 B + 59 G + 30 R) / 100 into all three colour channels (id 1101).
QTZQ_API void StyleGray(unsigned char* image, int width, int height);

#endif  // QTZQEFFECT_STYLES_H
