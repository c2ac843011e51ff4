// Which vector unit the kernels run on: picked once from the CPU, with an
// internal limit that can force a narrower unit or the scalar reference path
// (tests, benchmarks).
#ifndef QTZQ_SIMD_VECTOR_UNIT_H
#define QTZQ_SIMD_VECTOR_UNIT_H

namespace qtzq {

enum class VectorUnit { kScalar, kSse2, kAvx2 };

// The best unit this CPU offers that the library has kernels for: on x86-64
// SSE2 always and AVX2 when present; on every other CPU the scalar path.
// Asked of the CPU once; safe to call from any thread.
VectorUnit detected_vector_unit();

// The unit the kernels use now: the detected one, at most the current limit.
VectorUnit active_vector_unit();

// True while the limit is kScalar. The vector kernels follow
// active_vector_unit(); a fast path that is plain integer code and runs on
// every CPU, the ones without a vector unit included, asks this instead to
// know when to give way to its reference loop.
bool scalar_reference_forced();

// Limits the kernels, in every thread, to `limit` or a narrower unit for its
// lifetime (kScalar forces the scalar reference path), then restores the
// previous limit. Only tests and benchmarks use it.
class ScopedVectorUnitLimit {
public:
    explicit ScopedVectorUnitLimit(VectorUnit limit);
    ~ScopedVectorUnitLimit();
    ScopedVectorUnitLimit(const ScopedVectorUnitLimit&) = delete;
    ScopedVectorUnitLimit& operator=(const ScopedVectorUnitLimit&) = delete;

private:
    VectorUnit previous_;
};

}  // namespace qtzq

#endif  // QTZQ_SIMD_VECTOR_UNIT_H
