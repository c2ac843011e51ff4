// Free collage reader: any bytes, then every getter over and beyond the
// nine cells, the fit rule and the random draw with values from the input.
#include <cstdint>

#include "fuzz_input.h"
#include "qtzqeffect/frame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qtzq_fuzz;
    Bytes file = copy_input(data, size);
    cfreepuzzle puzzle;
    puzzle.ReadFrameFile(file.data(), static_cast<int>(size));
    const _tagCGSize photo = {int_at(file, 0), int_at(file, 4)};
    for (int index = -1; index <= 10; ++index) {
        puzzle.GetRotationWithIndex(index);
        puzzle.GetMaxRectWithIndex(index);
        puzzle.GetViewRectWithIndex(index, photo);
    }
    puzzle.GetResultSize();
    puzzle.GetCount();
    puzzle.ChangeRectWithMaxRect(
        photo, {int_at(file, 8), int_at(file, 12), int_at(file, 16), int_at(file, 20)});
    puzzle.AverageRandom(float_at(file, 24), float_at(file, 28));
    return 0;
}
