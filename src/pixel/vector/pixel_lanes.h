// Shared by the saturation kernel bodies: vector types of
// QTZQ_KERNEL_VECTOR_BYTES with one BGRA pixel per 32-bit lane, the split of
// a lane into its channels and back, and the walk over a span in blocks of
// one vector (a last, partial block goes through a small padded copy, so
// nothing past the span is read or written). Included inside the kernel's
// own anonymous namespace, so everything keeps internal linkage.
#if __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "the pixel lanes assume little-endian 32-bit loads (byte 0 = blue)"
#endif

typedef std::int32_t I32 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES)));
typedef std::uint32_t U32 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES)));

constexpr int kLanes = QTZQ_KERNEL_VECTOR_BYTES / 4;
constexpr std::size_t kBlockBytes = std::size_t(kLanes) * 4;

// Channel bytes of each lane's pixel, as integers 0..255.
struct Channels {
    I32 r, g, b;
    U32 alpha;  // the alpha byte in place, the rest zero
};

Channels split(const unsigned char* px) {
    U32 v;
    std::memcpy(&v, px, sizeof v);
    return {(I32)((v >> 16) & 0xFFu), (I32)((v >> 8) & 0xFFu), (I32)(v & 0xFFu), v & 0xFF000000u};
}

// Values already clamped to 0..255 back into the lanes' pixels.
void join(unsigned char* px, I32 r, I32 g, I32 b, U32 alpha) {
    const U32 v = alpha | ((U32)r << 16) | ((U32)g << 8) | (U32)b;
    std::memcpy(px, &v, sizeof v);
}

// Limits each lane to 0..255 as clamp_byte does.
I32 clamp_bytes(I32 v) {
    v &= (I32)(v > 0);
    const I32 over = (I32)(v > 255);
    return (v & ~over) | (over & 255);
}

// block(pointer) on every group of kLanes pixels of the span.
template <typename Block>
void for_each_block(unsigned char* px, std::size_t count, Block block) {
    const std::size_t whole = count - count % kLanes;
    for (std::size_t i = 0; i < whole; i += kLanes) block(px + i * 4);
    const std::size_t rest = count - whole;
    if (rest == 0) return;
    unsigned char padded[kBlockBytes] = {};
    std::memcpy(padded, px + whole * 4, rest * 4);
    block(padded);
    std::memcpy(px + whole * 4, padded, rest * 4);
}
