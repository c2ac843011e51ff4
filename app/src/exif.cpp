#include "qtzq_app/exif.h"

#include <cstddef>
#include <cstdint>

namespace qtzq_app {
namespace {

constexpr std::uint16_t kOrientationTag = 0x0112;
constexpr std::uint16_t kThumbnailOffsetTag = 0x0201;
constexpr std::uint16_t kThumbnailLengthTag = 0x0202;
constexpr std::size_t kEntrySize = 12;

// Bounds-checked reads and writes of a TIFF structure in its byte order.
class TiffBytes {
public:
    explicit TiffBytes(std::vector<unsigned char>& bytes) : bytes_(bytes) {
        valid_ = bytes.size() >= 8 &&
                 ((bytes[0] == 'I' && bytes[1] == 'I' && bytes[2] == 42 && bytes[3] == 0) ||
                  (bytes[0] == 'M' && bytes[1] == 'M' && bytes[2] == 0 && bytes[3] == 42));
        little_ = valid_ && bytes[0] == 'I';
    }
    bool valid() const { return valid_; }
    bool has(std::size_t at, std::size_t count) const {
        return at <= bytes_.size() && count <= bytes_.size() - at;
    }
    std::uint32_t get(std::size_t at, int width) const {
        std::uint32_t value = 0;
        for (int i = 0; i < width; ++i)
            value |= std::uint32_t(bytes_[at + (little_ ? i : width - 1 - i)]) << (8 * i);
        return value;
    }
    void put(std::size_t at, int width, std::uint32_t value) {
        for (int i = 0; i < width; ++i)
            bytes_[at + (little_ ? i : width - 1 - i)] = static_cast<unsigned char>(value >> (8 * i));
    }
    // The offset of the entry with `tag` in the directory at `ifd`, or 0.
    std::size_t find(std::size_t ifd, std::uint16_t tag) const {
        const std::size_t count = get(ifd, 2);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t entry = ifd + 2 + i * kEntrySize;
            if (get(entry, 2) == tag) return entry;
        }
        return 0;
    }
    // True when a whole directory (count, entries, next offset) lies at `ifd`.
    bool directory_at(std::size_t ifd) const {
        return ifd >= 8 && has(ifd, 2) && has(ifd, 2 + get(ifd, 2) * kEntrySize + 4);
    }
    std::size_t next_link(std::size_t ifd) const { return ifd + 2 + get(ifd, 2) * kEntrySize; }

private:
    std::vector<unsigned char>& bytes_;
    bool valid_ = false;
    bool little_ = true;
};

}  // namespace

int exif_orientation(const std::vector<unsigned char>& exif) {
    std::vector<unsigned char> copy = exif;
    TiffBytes tiff(copy);
    if (!tiff.valid() || !tiff.directory_at(tiff.get(4, 4))) return 1;
    const std::size_t entry = tiff.find(tiff.get(4, 4), kOrientationTag);
    if (entry == 0 || tiff.get(entry + 2, 2) != 3) return 1;  // SHORT
    const std::uint32_t value = tiff.get(entry + 8, 2);
    return value >= 1 && value <= 8 ? int(value) : 1;
}

std::vector<unsigned char> exif_for_output(std::vector<unsigned char> exif) {
    TiffBytes tiff(exif);
    const std::size_t ifd0 = tiff.valid() ? tiff.get(4, 4) : 0;
    if (!tiff.valid() || !tiff.directory_at(ifd0)) return {};
    const std::size_t orientation = tiff.find(ifd0, kOrientationTag);
    if (orientation != 0 && tiff.get(orientation + 2, 2) == 3) tiff.put(orientation + 8, 2, 1);
    const std::size_t link = tiff.next_link(ifd0);
    const std::size_t ifd1 = tiff.get(link, 4);
    tiff.put(link, 4, 0);
    if (ifd1 == 0 || !tiff.directory_at(ifd1)) return exif;
    const std::size_t start = tiff.find(ifd1, kThumbnailOffsetTag);
    const std::size_t length = tiff.find(ifd1, kThumbnailLengthTag);
    if (start == 0 || length == 0) return exif;
    const std::size_t at = tiff.get(start + 8, 4), size = tiff.get(length + 8, 4);
    if (at >= 8 && tiff.has(at, size) && at + size == exif.size()) exif.resize(at);
    return exif;
}

}  // namespace qtzq_app
