#include "timed_pass.h"

#include <cstring>
#include <utility>

#include "bench_image.h"
#include "peak_memory.h"
#include "simd/vector_unit.h"

namespace qtzq_bench {

void count_photo_passes(benchmark::State& state) {
    const double pixels = double(bench_image().pixel_count());
    state.counters["MP/s"] =
        benchmark::Counter(pixels * double(state.iterations()) / 1e6, benchmark::Counter::kIsRate);
}

void time_in_place(benchmark::State& state, const Pass& pass, Memory memory) {
    const BenchImage& photo = bench_image();
    BgraImage work = photo.image;
    for (auto _ : state) {
        state.PauseTiming();
        std::memcpy(work.data(), photo.pixels(), photo.bytes());
        state.ResumeTiming();
        pass(work);
        benchmark::ClobberMemory();
    }
    count_photo_passes(state);

    if (memory == Memory::Measure) {
        std::memcpy(work.data(), photo.pixels(), photo.bytes());
        const PeakMemoryProbe probe;
        pass(work);
        if (probe.available()) state.counters["scratch"] = probe.extra_bytes() / double(photo.bytes());
    }
}

void add_benchmark(const std::string& name, std::function<void(benchmark::State&)> body,
                   const std::string& anchor) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [body = std::move(body), anchor](benchmark::State& state) {
                                     body(state);
                                     if (!anchor.empty()) state.SetLabel("anchor=" + anchor);
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

void add_pass(const std::string& name, Pass pass, const std::string& anchor, Memory memory) {
    add_benchmark(
        name, [pass = std::move(pass), memory](benchmark::State& state) { time_in_place(state, pass, memory); },
        anchor);
}

Pass on_scalar_path(Pass pass) {
    return [pass = std::move(pass)](BgraImage& photo) {
        qtzq::ScopedVectorUnitLimit scalar(qtzq::VectorUnit::kScalar);
        pass(photo);
    };
}

}  // namespace qtzq_bench
