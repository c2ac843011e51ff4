// The yardsticks: a memcpy of the photo is the fastest any one pass over it
// can be on this machine; three byte tables applied in a plain scalar loop
// are the least a per-channel tone effect has to do.
#include <array>
#include <cstring>
#include <vector>

#include "bench_image.h"
#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

void copy_photo(benchmark::State& state) {
    const BenchImage& photo = bench_image();
    std::vector<unsigned char> target(photo.bytes());
    for (auto _ : state) {
        std::memcpy(target.data(), photo.pixels(), photo.bytes());
        benchmark::ClobberMemory();
    }
    count_photo_passes(state);
}

using Table = std::array<unsigned char, 256>;

Table inverted_table(int offset) {
    Table table{};
    for (int i = 0; i < 256; ++i) table[std::size_t(i)] = static_cast<unsigned char>((255 - i + offset) & 255);
    return table;
}

void three_tables(BgraImage& photo) {
    static const Table blue = inverted_table(0), green = inverted_table(1), red = inverted_table(2);
    unsigned char* const end = photo.data() + photo.pixels.size();
    for (unsigned char* p = photo.data(); p != end; p += 4) {
        p[0] = blue[p[0]];
        p[1] = green[p[1]];
        p[2] = red[p[2]];
    }
}

}  // namespace

void register_baselines() {
    add_benchmark("baseline/memcpy", copy_photo);
    add_pass("baseline/three_tables", three_tables, "opencv/LUT");
}

}  // namespace qtzq_bench
