// Pixel toolkit: tone adjustments, saturation, blend modes, colour-space conversions,
// colour balance, histogram and automatic levels.
#ifndef QTZQEFFECT_PIXEL_H
#define QTZQEFFECT_PIXEL_H

#include "qtzqeffect/export.h"

#endif  // QTZQEFFECT_PIXEL_H
