// Bezier tone curves (SFCurve).
#ifndef QTZQEFFECT_CURVE_H
#define QTZQEFFECT_CURVE_H

#include "qtzqeffect/export.h"

#endif  // QTZQEFFECT_CURVE_H
