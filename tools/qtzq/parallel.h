// Runs independent tasks on worker threads.
#ifndef QTZQ_CLI_PARALLEL_H
#define QTZQ_CLI_PARALLEL_H

#include <cstddef>
#include <functional>

namespace qtzq_cli {

// The default number of workers: the machine's hardware threads (at least 1).
unsigned default_jobs();

// Calls task(i) for every i in [0, count) on up to `jobs` threads; returns
// when all are done. Tasks must not throw.
void run_parallel(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& task);

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_PARALLEL_H
