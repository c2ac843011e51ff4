#include "runner.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <vector>

namespace qtzq_golden {

namespace {

using Clock = std::chrono::steady_clock;

// A case slower than this is named in the log (the emulated armhf run
// multiplies every time, and CI has a budget).
constexpr double kSlowCaseSeconds = 2.0;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void dump(const std::string& dir, const std::string& name, const std::vector<unsigned char>& raw) {
    const std::string path = dir + "/" + name + ".bin";
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(raw.data()), static_cast<std::streamsize>(raw.size()));
    if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace

bool selected(const std::string& name, const RunOptions& options) {
    return options.filter.empty() || name.find(options.filter) != std::string::npos;
}

DigestList run_cases(const CaseList& list, const RunOptions& options, std::ostream& log) {
    DigestList digests;
    const auto all_start = Clock::now();
    for (const GoldenCase& golden : list.cases()) {
        if (!selected(golden.name, options)) continue;
        std::vector<unsigned char> raw;
        Recorder out(options.dump_dir.empty() ? nullptr : &raw);
        std::srand(kCaseSeed);
        const auto start = Clock::now();
        golden.run(out);
        const double took = seconds_since(start);
        if (took > kSlowCaseSeconds) log << "slow case " << golden.name << ": " << took << " s\n";
        digests[golden.name] = out.hex_digest();
        if (!options.dump_dir.empty()) dump(options.dump_dir, golden.name, raw);
    }
    log << digests.size() << " golden cases run in " << seconds_since(all_start) << " s\n";
    return digests;
}

}  // namespace qtzq_golden
