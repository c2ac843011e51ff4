// Golden cases of the Bezier tone curves (SFCurve); curve_point_lists()
// of inputs.h has the control points.
#include "all_cases.h"
#include "families.h"

namespace qtzq_golden {

void add_curve_cases(CaseList& /*list*/) {}

}  // namespace qtzq_golden
