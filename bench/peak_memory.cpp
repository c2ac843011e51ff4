#include "peak_memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace qtzq_bench {
namespace {

// A "VmRSS:" or "VmHWM:" line of /proc/self/status, in bytes; -1 when absent.
double status_bytes(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, field.size(), field) == 0) {
            return std::stod(line.substr(field.size())) * 1024.0;  // the kernel reports kB
        }
    }
    return -1;
}

bool reset_peak_resident() {
    std::ofstream clear("/proc/self/clear_refs");
    clear << "5";  // 5: reset the peak resident set size to the current one
    clear.flush();
    return static_cast<bool>(clear);
}

}  // namespace

void prepare_peak_memory_probe() {
    mallopt(M_MMAP_THRESHOLD, 256 * 1024);
}

PeakMemoryProbe::PeakMemoryProbe() {
    malloc_trim(0);
    available_ = reset_peak_resident();
    start_resident_ = status_bytes("VmRSS:");
    available_ = available_ && start_resident_ >= 0;
}

double PeakMemoryProbe::extra_bytes() const {
    const double peak = status_bytes("VmHWM:");
    return peak > start_resident_ ? peak - start_resident_ : 0.0;
}

}  // namespace qtzq_bench
