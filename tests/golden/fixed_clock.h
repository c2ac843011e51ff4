// A fixed clock for the golden program. The program is linked with
// -Wl,--wrap=time, so every call to time() made by the library's code or the
// cases returns kFixedClock: presets that reseed rand() from the clock then
// draw the same sequence on every run and every platform.
#ifndef QTZQ_TESTS_GOLDEN_FIXED_CLOCK_H
#define QTZQ_TESTS_GOLDEN_FIXED_CLOCK_H

#include <ctime>

namespace qtzq_golden {

// 2010-01-01 00:00:00 UTC; fits a 32-bit time_t.
constexpr std::time_t kFixedClock = 1262304000;

// True when time() really is the fixed clock (the link option took effect).
bool clock_is_fixed();

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_FIXED_CLOCK_H
