#include "fixed_clock.h"

// The linker sends every reference to time() here (--wrap=time).
extern "C" std::time_t __wrap_time(std::time_t* out) {
    if (out) *out = qtzq_golden::kFixedClock;
    return qtzq_golden::kFixedClock;
}

namespace qtzq_golden {

bool clock_is_fixed() { return std::time(nullptr) == kFixedClock; }

}  // namespace qtzq_golden
