// Which vector unit the kernels run on: picked once from the CPU, with an
// internal limit that can force a narrower unit or the scalar reference path
// (tests, benchmarks).
#ifndef QTZQ_SIMD_VECTOR_UNIT_H
#define QTZQ_SIMD_VECTOR_UNIT_H

namespace qtzq {

// Ordered by rank: a limit admits its own unit and those before it. kSse2
// also stands for the baseline of any build (the portable integer kernels,
// whatever the compiler makes of them without further instruction sets).
// NEON ranks between SSE2 and AVX2 and is only ever detected on 32-bit ARM,
// where it runs the integer kernels alone (its float unit flushes
// denormals, so floating-point kernels stay scalar there).
enum class VectorUnit { kScalar, kSse2, kNeon, kAvx2 };

// The best unit this CPU offers that the library has kernels for: on x86-64
// SSE2 always and AVX2 when present; on 32-bit ARM NEON when the CPU
// reports it; otherwise the scalar path.
// Asked of the CPU once; safe to call from any thread.
VectorUnit detected_vector_unit();

// The unit the kernels use now: the detected one, at most the current limit.
VectorUnit active_vector_unit();

// Whether the integer fast paths may run: plain C++ that the compiler
// vectorises for whatever CPU it builds for (so on every CPU, 32-bit ARM
// included). False only while a limit forces the scalar reference path.
bool integer_fast_paths_enabled();

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
