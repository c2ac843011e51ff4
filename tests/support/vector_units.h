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
    const qtzq::VectorUnit detected = qtzq::detected_vector_unit();
    std::vector<qtzq::VectorUnit> limits;
    if (detected == qtzq::VectorUnit::kNeon) return limits;
    for (auto unit : {qtzq::VectorUnit::kSse2, qtzq::VectorUnit::kAvx2})
        if (unit <= detected) limits.push_back(unit);
    return limits;
}

// For the integer fast paths, which run on every CPU: the SSE2 limit (on
// other CPUs it selects their portable kernels), and the wider unit the CPU
// has (AVX2 on x86-64, NEON on 32-bit ARM).
inline std::vector<qtzq::VectorUnit> fast_path_limits() {
    std::vector<qtzq::VectorUnit> limits{qtzq::VectorUnit::kSse2};
    const qtzq::VectorUnit detected = qtzq::detected_vector_unit();
    if (detected > qtzq::VectorUnit::kSse2) limits.push_back(detected);
    return limits;
}

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_SUPPORT_VECTOR_UNITS_H
