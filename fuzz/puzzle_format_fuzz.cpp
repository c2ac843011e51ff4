// Puzzle format reader: any bytes into a table of its own and, through a
// template collage with fuzzed layout offsets, into the global one.
#include <cstdint>

#include "fuzz_input.h"
#include "qtzqeffect/frame.h"

namespace {

class OffsetTemplate : public ctemplatepuzzle {
public:
    OffsetTemplate(int x, int y) {
        m_layoutOffsetX = x;
        m_layoutOffsetY = y;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qtzq_fuzz;
    Bytes file = copy_input(data, size);
    cpuzzleformat format;
    format.ReadPuzzleFormatFile(file.data(), static_cast<int>(size));
    OffsetTemplate collage(int_at(file, 0), int_at(file, 4));
    collage.ReadPuzzleFormatFile(file.data(), static_cast<int>(size));
    for (int index = -1; index <= 10; ++index) {
        format.GetPuzzleRectWithIndex(index);
        collage.GetFormatRectWithIndex(index);
        format.SetPuzzleRectWithIndex(index, {1, 2, 3, 4});
    }
    format.GetPuzzleFormatCount();
    format.GetPuzzleResultSize();
    collage.GetFormatCount();
    return 0;
}
