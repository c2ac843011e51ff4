// Drawing a tone curve through control points as cubic Bezier segments.
#ifndef QTZQ_CURVE_BEZIER_DRAWING_H
#define QTZQ_CURVE_BEZIER_DRAWING_H

#include "qtzqeffect/curve.h"

namespace qtzq {

constexpr int kToneCurveEntries = 256;

// Draws the curve through `count` points into `curve` (256 entries); see
// SFCurve::getBezierPoints for the exact result. Writes nothing outside the
// 256 entries whatever the points, and nothing at all for a null pointer or
// a count below 1.
void draw_bezier_curve(const _POINT* points, int count, unsigned char* curve);

}  // namespace qtzq

#endif  // QTZQ_CURVE_BEZIER_DRAWING_H
