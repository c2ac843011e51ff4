// Comparing presets that reseed rand() from the clock with a recomputation
// seeded the same way: both must see the same second.
#ifndef QTZQ_TESTS_SUPPORT_CLOCK_SEEDED_H
#define QTZQ_TESTS_SUPPORT_CLOCK_SEEDED_H

#include <cstdlib>
#include <ctime>
#include <optional>
#include <utility>

namespace qtzq_test {

// Runs `actual()` and returns its result together with `expected()` run
// right after srand(the second `actual` ran in). Retries when the clock
// ticked during `actual`; empty only if it ticked on every attempt.
template <typename Actual, typename Expected>
auto within_one_second(Actual actual, Expected expected)
    -> std::optional<std::pair<decltype(actual()), decltype(actual())>> {
    for (int attempt = 0; attempt < 10; ++attempt) {
        const std::time_t before = std::time(nullptr);
        auto result = actual();
        if (std::time(nullptr) != before) continue;
        std::srand(static_cast<unsigned>(before));
        return std::make_pair(std::move(result), expected());
    }
    return std::nullopt;
}

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_SUPPORT_CLOCK_SEEDED_H
