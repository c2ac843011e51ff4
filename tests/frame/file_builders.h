// Builders that write valid frame, collage and bubble files field by field.
// Used by the frame tests and by the fuzzers' seed corpus generator.
#ifndef QTZQ_TESTS_FRAME_FILE_BUILDERS_H
#define QTZQ_TESTS_FRAME_FILE_BUILDERS_H

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace qtzq_test {

using FileBytes = std::vector<unsigned char>;

// Writes little-endian fields at fixed offsets, growing the file with zero
// bytes as needed.
class FieldWriter {
public:
    explicit FieldWriter(std::size_t size = 0) : bytes_(size, 0) {}

    FieldWriter& i32(std::size_t offset, std::int32_t value) {
        std::uint32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return u32(offset, bits);
    }
    FieldWriter& f32(std::size_t offset, float value) {
        std::uint32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return u32(offset, bits);
    }
    FieldWriter& raw(std::size_t offset, const void* data, std::size_t count) {
        grow(offset + count);
        if (count > 0) std::memcpy(bytes_.data() + offset, data, count);
        return *this;
    }
    FieldWriter& text(std::size_t offset, const std::string& s) {
        return raw(offset, s.data(), s.size());
    }
    FieldWriter& u8(std::size_t offset, unsigned char value) { return raw(offset, &value, 1); }

    std::size_t size() const { return bytes_.size(); }
    const FileBytes& bytes() const { return bytes_; }

private:
    FieldWriter& u32(std::size_t offset, std::uint32_t bits) {
        const unsigned char le[4] = {
            static_cast<unsigned char>(bits), static_cast<unsigned char>(bits >> 8),
            static_cast<unsigned char>(bits >> 16), static_cast<unsigned char>(bits >> 24)};
        return raw(offset, le, sizeof le);
    }
    void grow(std::size_t size) {
        if (bytes_.size() < size) bytes_.resize(size, 0);
    }

    FileBytes bytes_;
};

// A frame file: an 80-byte header with the corner insets, then one record
// per slot, appended in slot order.
class FrameFile {
public:
    FrameFile() : file_(80) {}

    FrameFile& inset(int corner, int x, int y) {
        file_.i32(44 + 8 * corner, x).i32(48 + 8 * corner, y);
        return *this;
    }
    // An empty record: the flag byte and three spare bytes.
    FrameFile& empty(unsigned char flag = 0) {
        const std::size_t at = file_.size();
        file_.u8(at, flag).u8(at + 3, 0);
        return *this;
    }
    // A present record carrying `data`.
    FrameFile& present(const FileBytes& data) {
        return present_declaring(static_cast<std::int32_t>(data.size()), data);
    }
    // A present record whose length field says `length` whatever it carries.
    FrameFile& present_declaring(std::int32_t length, const FileBytes& data) {
        const std::size_t at = file_.size();
        file_.u8(at, 1).i32(at + 8, length).raw(at + 12, data.data(), data.size());
        return *this;
    }
    FrameFile& eight_present(unsigned char seed = 1) {
        for (int slot = 0; slot < 8; ++slot)
            present(FileBytes(slot + 1, static_cast<unsigned char>(seed + slot)));
        return *this;
    }

    std::size_t size() const { return file_.size(); }
    FileBytes bytes() const { return file_.bytes(); }

private:
    FieldWriter file_;
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
    FreeCell& shift_x(int least, int greatest) {
        least_shift_x = least, greatest_shift_x = greatest;
        return *this;
    }
    FreeCell& shift_y(int least, int greatest) {
        least_shift_y = least, greatest_shift_y = greatest;
        return *this;
    }
    FreeCell& rotation(int least, int greatest) {
        least_rotation = least, greatest_rotation = greatest;
        return *this;
    }
    FreeCell& scale(float least, float greatest) {
        least_scale = least, greatest_scale = greatest;
        return *this;
    }
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

    void write_header(FieldWriter& file, std::size_t cells) const {
        file.text(12, magic_).i32(36, has_count_ ? count_ : static_cast<std::int32_t>(cells));
    }

private:
    std::string magic_;
    std::int32_t count_ = 0;
    bool has_count_ = false;
};

// A "MZYPT" free collage layout file.
class FreePuzzleFile : public CollageFile<FreePuzzleFile> {
public:
    FreePuzzleFile() : CollageFile("MZYPT") {}

    FreePuzzleFile& cell(const FreeCell& c) {
        cells_.push_back(c);
        return *this;
    }

    FileBytes bytes() const {
        FieldWriter file(56 + 56 * cells_.size());
        write_header(file, cells_.size());
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            const FreeCell& c = cells_[i];
            const std::size_t at = 56 + 56 * i;
            file.i32(at, c.base_x)
                .i32(at + 4, c.base_y)
                .i32(at + 8, c.width)
                .i32(at + 12, c.height);
            file.i32(at + 16, c.least_shift_x).i32(at + 20, c.greatest_shift_x);
            file.i32(at + 24, c.least_shift_y).i32(at + 28, c.greatest_shift_y);
            file.i32(at + 32, c.least_rotation).i32(at + 36, c.greatest_rotation);
            file.f32(at + 40, c.least_scale).f32(at + 44, c.greatest_scale);
        }
        return file.bytes();
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
        FieldWriter file(56 + 16 * cells_.size());
        write_header(file, cells_.size());
        file.i32(40, width_).i32(44, height_);
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            const std::size_t at = 56 + 16 * i;
            file.i32(at, cells_[i].x).i32(at + 4, cells_[i].y);
            file.i32(at + 8, cells_[i].width).i32(at + 12, cells_[i].height);
        }
        return file.bytes();
    }

private:
    std::vector<Rect> cells_;
    int width_ = 0, height_ = 0;
};

// A speech bubble file: the text box corners and colour, the rest zero.
class BubbleFile {
public:
    BubbleFile& box(int left, int top, int right, int bottom) {
        file_.i32(187, left).i32(191, top).i32(211, right).i32(215, bottom);
        return *this;
    }
    BubbleFile& color(unsigned char b0, unsigned char b1, unsigned char b2, unsigned char b3) {
        file_.u8(220, b0).u8(221, b1).u8(222, b2).u8(223, b3);
        return *this;
    }
    FileBytes bytes() const { return file_.bytes(); }

private:
    FieldWriter file_{224};
};

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_FRAME_FILE_BUILDERS_H
