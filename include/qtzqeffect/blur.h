// Blur and sharpen: recursive Gaussian blur, unsharp mask, IIR blur brush,
// radial zoom blur and resampling, soft glow.
#ifndef QTZQEFFECT_BLUR_H
#define QTZQEFFECT_BLUR_H

#include "qtzqeffect/export.h"

#endif  // QTZQEFFECT_BLUR_H
