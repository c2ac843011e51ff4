#include "simd/vector_unit.h"

#include <atomic>

#if defined(QTZQ_NEON_KERNELS)
#include <asm/hwcap.h>
#include <sys/auxv.h>
#endif

namespace qtzq {
namespace {

std::atomic<VectorUnit> unit_limit{VectorUnit::kAvx2};

VectorUnit ask_cpu() {
#if defined(QTZQ_X86_KERNELS)
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") ? VectorUnit::kAvx2 : VectorUnit::kSse2;
#elif defined(QTZQ_NEON_KERNELS)
    return (getauxval(AT_HWCAP) & HWCAP_NEON) != 0 ? VectorUnit::kNeon : VectorUnit::kScalar;
#else
    return VectorUnit::kScalar;
#endif
}

}  // namespace

VectorUnit detected_vector_unit() {
    static const VectorUnit unit = ask_cpu();  // initialised once, thread-safe
    return unit;
}

VectorUnit active_vector_unit() {
    const VectorUnit limit = unit_limit.load(std::memory_order_relaxed);
    const VectorUnit detected = detected_vector_unit();
    return limit < detected ? limit : detected;
}

bool integer_fast_paths_enabled() {
    return unit_limit.load(std::memory_order_relaxed) != VectorUnit::kScalar;
}

ScopedVectorUnitLimit::ScopedVectorUnitLimit(VectorUnit limit)
    : previous_(unit_limit.exchange(limit)) {}

ScopedVectorUnitLimit::~ScopedVectorUnitLimit() { unit_limit.store(previous_); }

}  // namespace qtzq
