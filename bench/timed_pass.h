// The one way every benchmark of the suite times its work: a pass over a
// working copy of the bench photo, restored (untimed) before each
// iteration so that every pass sees the same photo, whatever the previous
// pass did to it. Results carry the throughput in megapixels per second
// and, where asked, the peak scratch memory of one pass in images.
#ifndef QTZQ_BENCH_TIMED_PASS_H
#define QTZQ_BENCH_TIMED_PASS_H

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "qtzq_app/png_io.h"

namespace qtzq_bench {

using qtzq_app::BgraImage;

// One pass over a copy of the bench photo, in place.
using Pass = std::function<void(BgraImage& photo)>;

enum class Memory { Ignore, Measure };

// Times `pass` on a working copy of the photo. With Memory::Measure a last,
// untimed pass reports its peak extra memory as the counter "scratch"
// (1 = one more image of the photo's size).
void time_in_place(benchmark::State& state, const Pass& pass, Memory memory = Memory::Ignore);

// Sets the throughput counter of a benchmark that processed the photo once
// per iteration without time_in_place.
void count_photo_passes(benchmark::State& state);

// Registers a benchmark with the suite's settings (milliseconds, wall
// time). `anchor` names the OpenCV benchmark the report compares it with.
void add_benchmark(const std::string& name, std::function<void(benchmark::State&)> body,
                   const std::string& anchor = "");

// Shorthand: add_benchmark of a time_in_place pass.
void add_pass(const std::string& name, Pass pass, const std::string& anchor = "",
              Memory memory = Memory::Ignore);

// `pass` with the vector kernels and fast paths off: the scalar reference
// that a twin NAME/scalar times, for the report's speed-up column.
Pass on_scalar_path(Pass pass);

}  // namespace qtzq_bench

#endif  // QTZQ_BENCH_TIMED_PASS_H
