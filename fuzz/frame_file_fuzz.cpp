// Frame file reader: any bytes, read twice into one object (the second read
// must release what it replaces), every block read back in full.
#include <cstdint>

#include "fuzz_input.h"
#include "qtzqeffect/frame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qtzq_fuzz::Bytes file = qtzq_fuzz::copy_input(data, size);
    cframe frame;
    for (int pass = 0; pass < 2; ++pass) {
        frame.ReadFrameFile(file.data(), static_cast<int>(size));
        unsigned sum = 0;
        for (int slot = -1; slot <= 8; ++slot) {
            int length = 0;
            const unsigned char* block = frame.GetFrameImage(slot, length);
            for (int i = 0; block != nullptr && i < length; ++i) sum += block[i];
        }
        (void)sum;
    }
    frame.DecodeFrameFile(file.data(), static_cast<int>(size / 2));
    return 0;
}
