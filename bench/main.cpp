// qtzq-bench: registers every family, records what the numbers were
// measured on, and runs Google Benchmark with the command-line options it
// was given (see scripts/bench.sh for the options the report uses).
#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "bench_image.h"
#include "peak_memory.h"
#include "suites.h"

#if QTZQ_BENCH_OPENCV
#include <opencv2/core/version.hpp>
#endif

namespace {

std::string cpu_model() {
    std::ifstream cpuinfo("/proc/cpuinfo");
    std::string line;
    while (std::getline(cpuinfo, line)) {
        // x86 names the processor "model name"; 32-bit ARM kernels often
        // give only "Hardware" or "Processor".
        for (const char* key : {"model name", "Processor", "Hardware"}) {
            if (line.rfind(key, 0) == 0) {
                const std::size_t colon = line.find(':');
                if (colon != std::string::npos) return line.substr(colon + 2);
            }
        }
    }
    return "unknown";
}

std::string compiler() {
#if defined(__clang__)
    return "clang " __clang_version__;
#elif defined(__GNUC__)
    return "gcc " __VERSION__;
#else
    return "unknown";
#endif
}

void describe_run() {
    const qtzq_bench::BenchImage& photo = qtzq_bench::bench_image();
    benchmark::AddCustomContext("cpu_model", cpu_model());
    benchmark::AddCustomContext("compiler", compiler());
    benchmark::AddCustomContext("build_type", QTZQ_BENCH_BUILD_TYPE);
    benchmark::AddCustomContext("photo", photo.origin);
    benchmark::AddCustomContext("image_width", std::to_string(photo.width()));
    benchmark::AddCustomContext("image_height", std::to_string(photo.height()));
#if QTZQ_BENCH_OPENCV
    benchmark::AddCustomContext("opencv", CV_VERSION);
#else
    benchmark::AddCustomContext("opencv", "not built in");
#endif
}

void register_suites() {
    qtzq_bench::register_baselines();
    qtzq_bench::register_effects();
    qtzq_bench::register_blend_modes();
    qtzq_bench::register_colour_spaces();
    qtzq_bench::register_tone();
    qtzq_bench::register_blurs();
    qtzq_bench::register_files();
    qtzq_bench::register_opencv_anchors();
}

}  // namespace

int main(int argc, char** argv) {
    qtzq_bench::prepare_peak_memory_probe();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    describe_run();
    register_suites();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
