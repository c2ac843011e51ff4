// The blurred image that CSharp keeps between preview calls: a malloc'd
// block that remembers its own size, so that a later call on a larger image
// never reads past it.
#ifndef QTZQ_BLUR_PREVIEW_CACHE_H
#define QTZQ_BLUR_PREVIEW_CACHE_H

#include <cstddef>

namespace qtzq {

// A new cache of `bytes` bytes (contents unspecified); the pointer is to
// the first byte.
unsigned char* preview_cache_create(std::size_t bytes);

// The byte count a cache was created with.
std::size_t preview_cache_size(const unsigned char* cache);

// Releases a cache; null is ignored.
void preview_cache_release(unsigned char* cache);

}  // namespace qtzq

#endif  // QTZQ_BLUR_PREVIEW_CACHE_H
