#include "blur/preview_cache.h"

#include <cstdlib>
#include <cstring>

namespace qtzq {
namespace {

// The size is kept in front of the bytes handed out.
constexpr std::size_t kHeader = sizeof(std::size_t);

}  // namespace

unsigned char* preview_cache_create(std::size_t bytes) {
    auto* block = static_cast<unsigned char*>(std::malloc(kHeader + bytes));
    if (!block) return nullptr;
    std::memcpy(block, &bytes, kHeader);
    return block + kHeader;
}

std::size_t preview_cache_size(const unsigned char* cache) {
    std::size_t bytes;
    std::memcpy(&bytes, cache - kHeader, kHeader);
    return bytes;
}

void preview_cache_release(unsigned char* cache) {
    if (cache) std::free(cache - kHeader);
}

}  // namespace qtzq
