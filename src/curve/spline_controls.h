// Control levels of the cubic B-spline that passes through a list of points.
#ifndef QTZQ_CURVE_SPLINE_CONTROLS_H
#define QTZQ_CURVE_SPLINE_CONTROLS_H

#include <vector>

#include "qtzqeffect/curve.h"

namespace qtzq {

// The y coordinates of the spline's control points D_0 .. D_(count-1) for
// `count` >= 2 points P: D_0 = P_0, D_(count-1) = P_(count-1), and the inner
// ones solve D_(i-1) + 4 D_i + D_(i+1) = 6 P_i, each truncated toward zero
// (three points: floor((6 P_1 - P_0 - P_2) / 4) in integers). Two points
// have no inner control point.
std::vector<int> spline_control_levels(const _POINT* points, int count);

}  // namespace qtzq

#endif  // QTZQ_CURVE_SPLINE_CONTROLS_H
