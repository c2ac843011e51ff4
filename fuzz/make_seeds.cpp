// Writes the fuzzers' seed corpus: valid files made by the tests' file
// builders, one folder per fuzz target.
//
//   qtzq-fuzz-seeds OUTPUT_DIR
#include <sys/stat.h>

#include <cstdio>
#include <string>

#include "frame/file_builders.h"
#include "fuzz_input.h"

namespace {

using qtzq_test::FileBytes;

class SeedWriter {
public:
    explicit SeedWriter(std::string root) : root_(std::move(root)) { ::mkdir(root_.c_str(), 0755); }

    bool write(const std::string& target, const FileBytes& bytes) {
        const std::string folder = root_ + "/" + target;
        ::mkdir(folder.c_str(), 0755);
        const std::string path = folder + "/seed-" + std::to_string(count_++);
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (file == nullptr) return false;
        const bool ok = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        return std::fclose(file) == 0 && ok;
    }

private:
    std::string root_;
    int count_ = 0;
};

qtzq_test::FrameFile framed(int inset) {
    qtzq_test::FrameFile file;
    for (int corner = 0; corner < 4; ++corner) file.inset(corner, inset, inset + corner);
    return file;
}

qtzq_test::FreeCell ranged_cell(int i) {
    return qtzq_test::FreeCell()
        .cell(20 * i, 30 * i, 200 + i, 150 - i)
        .shift_x(-10, 10 + i)
        .shift_y(-i, 5)
        .rotation(-15, 15)
        .scale(0.75f, 1.25f);
}

bool write_frame_seeds(SeedWriter& seeds) {
    bool ok = seeds.write("frame_file", framed(1).eight_present().bytes());
    ok &= seeds.write("frame_file",
                      framed(2).empty().present({}).empty(2).present({9, 8, 7}).bytes());
    ok &= seeds.write("frame_file", framed(0).present_declaring(-12, {}).present({1}).bytes());

    qtzq_fuzz::CompositeParameters p;
    p.photo_width = 12;
    p.photo_height = 10;
    const int widths[8] = {3, 3, 3, 3, 2, 2, 3, 3};
    const int heights[8] = {3, 3, 3, 3, 3, 3, 2, 2};
    for (int slot = 0; slot < 8; ++slot) {
        p.piece_width[slot] = widths[slot];
        p.piece_height[slot] = heights[slot];
    }
    const FileBytes frame = framed(1).eight_present().bytes();
    ok &= seeds.write("frame_composite", qtzq_fuzz::encode_composite(p, frame));
    p.photo_width = 13;  // spans with remainders
    p.scale = 2.0f;
    ok &= seeds.write("frame_composite", qtzq_fuzz::encode_composite(p, frame));
    p.decoded_slots = 0x0F;  // edges present but not decoded
    ok &= seeds.write("frame_composite", qtzq_fuzz::encode_composite(p, frame));
    FileBytes empties = framed(1).bytes();
    empties.resize(empties.size() + 32, 0);
    ok &= seeds.write("frame_composite", qtzq_fuzz::encode_composite(p, empties));
    return ok;
}

bool write_collage_seeds(SeedWriter& seeds) {
    bool ok = true;
    for (int cells : {1, 3, 9}) {
        qtzq_test::FreePuzzleFile free_file;
        qtzq_test::PuzzleFormatFile format_file;
        format_file.result_size(640, 896);
        for (int i = 0; i < cells; ++i) {
            free_file.cell(ranged_cell(i));
            format_file.cell({10 * i, 20 * i, 100 + i, 120 - i});
        }
        ok &= seeds.write("free_puzzle", free_file.bytes());
        ok &= seeds.write("puzzle_format", format_file.bytes());
    }
    ok &= seeds.write("free_puzzle", qtzq_test::FreePuzzleFile().count(10).bytes());
    ok &= seeds.write("puzzle_format",
                      qtzq_test::PuzzleFormatFile().count(0).result_size(5, 5).bytes());
    ok &= seeds.write("speech_bubble",
                      qtzq_test::BubbleFile().box(10, 20, 110, 70).color(12, 34, 56, 0).bytes());
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_DIR\n", argv[0]);
        return 2;
    }
    SeedWriter seeds(argv[1]);
    if (!write_frame_seeds(seeds) || !write_collage_seeds(seeds)) {
        std::fprintf(stderr, "%s: could not write the seed files\n", argv[0]);
        return 1;
    }
    return 0;
}
