// Qtzqeffect's two-step sharpening: blur once, then sharpen by any amount.
#include <algorithm>
#include <memory>

#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"
#include "qtzqeffect/facade.h"

namespace {

// The blur SharpProcess pairs with: radius 1 (a seven-tap kernel).
constexpr int kSharpenRadius = 1;
constexpr int kUnusedArgument = 7;

}  // namespace

unsigned char* Qtzqeffect::SharpInit(unsigned char* image, int width, int height) {
    if (!image) return nullptr;
    CSharp sharp;
    const std::size_t bytes = qtzq::pixel_count(width, height) * qtzq::kBytesPerPixel;
    // Starts as a copy so that the result carries the photo's alpha; the
    // blur then replaces every colour byte.
    std::unique_ptr<unsigned char[]> blurred(new unsigned char[bytes]);
    std::copy_n(image, bytes, blurred.get());
    sharp.GetBlur(image, blurred.get(), width, height, kSharpenRadius, kUnusedArgument, false);
    return blurred.release();
}

int Qtzqeffect::SharpProcess(unsigned char* image, unsigned char* blurred, int width, int height,
                             float amount) {
    if (!image || !blurred) return 0;
    CSharp sharp;
    sharp.SharpProcess(image, blurred, width, height, amount);
    return 1;
}
