// The vector-unit limits under which the fast paths this CPU has run, for
// tests that hold each one to the scalar reference (limit kScalar).
#ifndef QTZQ_TESTS_SUPPORT_VECTOR_UNITS_H
#define QTZQ_TESTS_SUPPORT_VECTOR_UNITS_H

#include <vector>

#include "simd/vector_unit.h"

namespace qtzq_test {

// The units this CPU has: SSE2 and AVX2 where present, none elsewhere (the
// floating-point kernels run on x86-64 only).
inline std::vector<qtzq::VectorUnit> vector_unit_limits() {
    std::vector<qtzq::VectorUnit> limits;
    for (auto unit : {qtzq::VectorUnit::kSse2, qtzq::VectorUnit::kAvx2})
        if (unit <= qtzq::detected_vector_unit()) limits.push_back(unit);
    return limits;
}

// For the integer fast paths, which run on every CPU: the SSE2 limit (on
// other CPUs it selects their portable kernels), and AVX2 when present.
inline std::vector<qtzq::VectorUnit> fast_path_limits() {
    std::vector<qtzq::VectorUnit> limits{qtzq::VectorUnit::kSse2};
    if (qtzq::detected_vector_unit() >= qtzq::VectorUnit::kAvx2) limits.push_back(qtzq::VectorUnit::kAvx2);
    return limits;
}

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_SUPPORT_VECTOR_UNITS_H
