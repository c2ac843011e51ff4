// Peak memory of one call: the highest resident set size the process
// reaches during the call, above what it held when the probe started. The
// kernel's peak counter (VmHWM) is reset at the start, after free heap
// memory has been handed back, so the figure counts every page the call
// touches (heap, malloc and stack alike) and nothing an earlier call left.
#ifndef QTZQ_BENCH_PEAK_MEMORY_H
#define QTZQ_BENCH_PEAK_MEMORY_H

namespace qtzq_bench {

// Call once at start-up: large blocks then always come straight from the
// kernel and go back to it when freed, so one call's scratch never hides
// in memory a previous call left resident.
void prepare_peak_memory_probe();

class PeakMemoryProbe {
public:
    PeakMemoryProbe();  // resets the peak

    // False where the kernel offers no resettable peak (then extra_bytes()
    // means nothing).
    bool available() const { return available_; }

    // Bytes of resident memory the process held at its peak since the
    // probe started, above the resident size at the start.
    double extra_bytes() const;

private:
    bool available_ = false;
    double start_resident_ = 0;
};

}  // namespace qtzq_bench

#endif  // QTZQ_BENCH_PEAK_MEMORY_H
