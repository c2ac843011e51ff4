// Builders that write valid frame, collage and bubble files field by field.
// Used by the frame tests and by the fuzzers' seed corpus generator.
#ifndef QTZQ_TESTS_FRAME_FILE_BUILDERS_H
#define QTZQ_TESTS_FRAME_FILE_BUILDERS_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace qtzq_test {

using FileBytes = std::vector<unsigned char>;

// The first `length` bytes of a file in a heap block of exactly that size.
inline FileBytes prefix(const FileBytes& file, std::size_t length) {
    return FileBytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
}

// Writes `count` bytes at `offset`, growing the file with zero bytes as needed.
inline void put(FileBytes& file, std::size_t offset, const void* data, std::size_t count) {
    if (file.size() < offset + count) file.resize(offset + count, 0);
    if (count > 0) std::memcpy(file.data() + offset, data, count);
}

// A 32-bit integer or float, lowest byte first.
template <typename T>
void put32(FileBytes& file, std::size_t offset, T value) {
    static_assert(sizeof(T) == 4, "a 32-bit field");
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const unsigned char le[4] = {
        static_cast<unsigned char>(bits), static_cast<unsigned char>(bits >> 8),
        static_cast<unsigned char>(bits >> 16), static_cast<unsigned char>(bits >> 24)};
    put(file, offset, le, sizeof le);
}

// A frame file: an 80-byte header with the corner insets, then one record
// per slot, appended in slot order.
class FrameFile {
public:
    FrameFile() : file_(80, 0) {}

    FrameFile& inset(int corner, int x, int y) {
        put32(file_, 44 + 8 * corner, x);
        put32(file_, 48 + 8 * corner, y);
        return *this;
    }
    // An empty record: the flag byte and three spare bytes.
    FrameFile& empty(unsigned char flag = 0) {
        file_.insert(file_.end(), {flag, 0, 0, 0});
        return *this;
    }
    // A present record carrying `data`.
    FrameFile& present(const FileBytes& data) {
        return present_declaring(static_cast<std::int32_t>(data.size()), data);
    }
    // A present record whose length field says `length` whatever it carries.
    FrameFile& present_declaring(std::int32_t length, const FileBytes& data) {
        const std::size_t at = file_.size();
        file_.resize(at + 12, 0);
        file_[at] = 1;
        put32(file_, at + 8, length);
        file_.insert(file_.end(), data.begin(), data.end());
        return *this;
    }
    // Slot k carries k + 1 bytes of seed + k.
    FrameFile& eight_present(unsigned char seed = 1) {
        for (int slot = 0; slot < 8; ++slot)
            present(FileBytes(slot + 1, static_cast<unsigned char>(seed + slot)));
        return *this;
    }

    std::size_t size() const { return file_.size(); }
    FileBytes bytes() const { return file_; }

private:
    FileBytes file_;
};

// A cell record of a "MZYPT" layout file: nominal cell, ranges of shift,
// rotation and scale. Set fields by name or with the chainable setters.
struct FreeCell {
    int base_x = 0, base_y = 0, width = 0, height = 0;
    int least_shift_x = 0, greatest_shift_x = 0;
    int least_shift_y = 0, greatest_shift_y = 0;
    int least_rotation = 0, greatest_rotation = 0;
    float least_scale = 1.0f, greatest_scale = 1.0f;

    FreeCell& cell(int x, int y, int w, int h) {
        base_x = x, base_y = y, width = w, height = h;
        return *this;
    }
    FreeCell& shift_x(int lo, int hi) { return least_shift_x = lo, greatest_shift_x = hi, *this; }
    FreeCell& shift_y(int lo, int hi) { return least_shift_y = lo, greatest_shift_y = hi, *this; }
    FreeCell& rotation(int lo, int hi) {
        return least_rotation = lo, greatest_rotation = hi, *this;
    }
    FreeCell& scale(float lo, float hi) { return least_scale = lo, greatest_scale = hi, *this; }
};

// What both collage files start with: a five-byte magic at 12 and a cell
// count at 36 (the number of cells unless set otherwise).
template <typename File>
class CollageFile {
public:
    File& count(std::int32_t n) {
        count_ = n;
        has_count_ = true;
        return static_cast<File&>(*this);
    }
    File& magic(const std::string& m) {
        magic_ = m;
        return static_cast<File&>(*this);
    }

protected:
    explicit CollageFile(std::string magic) : magic_(std::move(magic)) {}

    void write_header(FileBytes& file, std::size_t cells) const {
        put(file, 12, magic_.data(), magic_.size());
        put32(file, 36, has_count_ ? count_ : static_cast<std::int32_t>(cells));
    }

private:
    std::string magic_;
    std::int32_t count_ = 0;
    bool has_count_ = false;
};

// A "MZYPT" free collage layout file: 56-byte records after the header.
class FreePuzzleFile : public CollageFile<FreePuzzleFile> {
public:
    FreePuzzleFile() : CollageFile("MZYPT") {}

    FreePuzzleFile& cell(const FreeCell& c) {
        cells_.push_back(c);
        return *this;
    }

    FileBytes bytes() const {
        FileBytes file(56 + 56 * cells_.size(), 0);
        write_header(file, cells_.size());
        std::size_t at = 56;
        for (const FreeCell& c : cells_) {
            const int fields[10] = {c.base_x, c.base_y, c.width, c.height,
                                    c.least_shift_x, c.greatest_shift_x, c.least_shift_y,
                                    c.greatest_shift_y, c.least_rotation, c.greatest_rotation};
            for (int f = 0; f < 10; ++f) put32(file, at + 4 * f, fields[f]);
            put32(file, at + 40, c.least_scale);
            put32(file, at + 44, c.greatest_scale);
            at += 56;
        }
        return file;
    }

private:
    std::vector<FreeCell> cells_;
};

// A "ZQPTM" puzzle format file with cells of x, y, width, height.
class PuzzleFormatFile : public CollageFile<PuzzleFormatFile> {
public:
    struct Rect {
        int x, y, width, height;
    };

    PuzzleFormatFile() : CollageFile("ZQPTM") {}

    PuzzleFormatFile& result_size(int width, int height) {
        width_ = width;
        height_ = height;
        return *this;
    }
    PuzzleFormatFile& cell(Rect r) {
        cells_.push_back(r);
        return *this;
    }

    FileBytes bytes() const {
        FileBytes file(56 + 16 * cells_.size(), 0);
        write_header(file, cells_.size());
        put32(file, 40, width_);
        put32(file, 44, height_);
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            const int fields[4] = {cells_[i].x, cells_[i].y, cells_[i].width, cells_[i].height};
            for (int f = 0; f < 4; ++f) put32(file, 56 + 16 * i + 4 * f, fields[f]);
        }
        return file;
    }

private:
    std::vector<Rect> cells_;
    int width_ = 0, height_ = 0;
};

// A speech bubble file: the text box corners and colour, the rest zero.
class BubbleFile {
public:
    BubbleFile& box(int left, int top, int right, int bottom) {
        put32(file_, 187, left);
        put32(file_, 191, top);
        put32(file_, 211, right);
        put32(file_, 215, bottom);
        return *this;
    }
    BubbleFile& color(unsigned char b0, unsigned char b1, unsigned char b2, unsigned char b3) {
        file_[220] = b0, file_[221] = b1, file_[222] = b2, file_[223] = b3;
        return *this;
    }
    FileBytes bytes() const { return file_; }

private:
    FileBytes file_ = FileBytes(224, 0);
};

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_FRAME_FILE_BUILDERS_H
