// Speech bubble reader: any bytes, then every colour index around 0..3.
#include <cstdint>
#include <cstdlib>

#include "fuzz_input.h"
#include "qtzqeffect/frame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qtzq_fuzz::Bytes file = qtzq_fuzz::copy_input(data, size);
    csbubble bubble;
    if (bubble.ReadFrameFile(file.data(), static_cast<int>(size)) != 383) std::abort();
    bubble.GetTextDrawRect();
    for (int index = -1; index <= 4; ++index) bubble.GetTextColorWithIndex(index);
    return 0;
}
