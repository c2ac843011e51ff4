#include "parallel.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace qtzq_cli {

unsigned default_jobs() { return std::max(1u, std::thread::hardware_concurrency()); }

void run_parallel(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& task) {
    std::atomic<std::size_t> next{0};
    auto worker = [&] {
        for (std::size_t i = next++; i < count; i = next++) task(i);
    };
    const std::size_t threads = std::min<std::size_t>(std::max(1u, jobs), count);
    if (threads <= 1) {
        worker();
        return;
    }
    std::vector<std::thread> pool;
    for (std::size_t t = 0; t < threads; ++t) pool.emplace_back(worker);
    for (auto& thread : pool) thread.join();
}

}  // namespace qtzq_cli
