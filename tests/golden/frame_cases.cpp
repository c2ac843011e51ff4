// Golden cases of frames, collages and speech bubbles, read from files built
// in the library's layouts: 32-bit little-endian integers, ASCII magics and
// raw blocks at fixed offsets.
#include <cstring>

#include "golden.h"
#include "qtzqeffect/frame.h"

namespace qtzq_golden {

namespace {

class FileBuilder {
   public:
    FileBuilder& u32(std::uint32_t value) {
        for (int i = 0; i < 4; ++i) data.push_back(static_cast<unsigned char>(value >> (8 * i)));
        return *this;
    }
    FileBuilder& i32(std::int32_t value) { return u32(static_cast<std::uint32_t>(value)); }
    FileBuilder& f32(float value) {
        std::uint32_t bits;
        std::memcpy(&bits, &value, 4);
        return u32(bits);
    }
    FileBuilder& ascii(const std::string& text) { return bytes(Bytes(text.begin(), text.end())); }
    FileBuilder& bytes(const Bytes& block) {
        data.insert(data.end(), block.begin(), block.end());
        return *this;
    }
    FileBuilder& pad_to(std::size_t offset) {  // zero bytes; no-op when already past it
        if (data.size() < offset) data.resize(offset, 0);
        return *this;
    }
    int size() const { return static_cast<int>(data.size()); }
    Bytes data;
};

void record_rect(Recorder& out, const _tagCGRect& r) {
    for (const int v : {r.x, r.y, r.width, r.height}) out.i32(v);
}

void record_size(Recorder& out, const _tagCGSize& s) {
    out.i32(s.width);
    out.i32(s.height);
}

// Piece sizes of the eight frame slots: corners top-left, bottom-left,
// top-right, bottom-right, then edges top, bottom, left, right.
constexpr int kPieceSizes[8][2] = {{6, 5}, {6, 7}, {8, 5}, {8, 7}, {4, 3}, {4, 3}, {3, 5}, {3, 5}};

// Reads a frame file with corner insets and eight present records (record k
// carries k + 3 bytes), records the raw blocks, and gives every slot its
// decoded piece (materials with varying alpha, so blending shows).
void load_frame(cframe& frame, Recorder& out) {
    FileBuilder file;
    file.pad_to(44);
    for (const int inset : {3, 2, 3, 4, 5, 2, 5, 4}) file.i32(inset);
    file.pad_to(80);
    for (int slot = 0; slot < 8; ++slot) {
        file.bytes({1, 0xEE, 0xEE, 0xEE}).u32(0xEEEEEEEEu).i32(slot + 3);
        for (int i = 0; i < slot + 3; ++i) file.bytes({static_cast<unsigned char>(16 * slot + i)});
    }
    out.i32(frame.ReadFrameFile(file.data.data(), file.size()));
    for (int slot = 0; slot < 8; ++slot) {
        int length = -1;
        const unsigned char* block = frame.GetFrameImage(slot, length);
        out.i32(length);
        if (block && length > 0) out.bytes(block, static_cast<std::size_t>(length));
        const int w = kPieceSizes[slot][0], h = kPieceSizes[slot][1];
        Bytes piece = material_image(w, h, 1 + slot % 3);
        frame.SetFrameImageData(slot, piece.data(), w, h);
    }
}

void record_framed(Recorder& out, float scale) {
    for (const Scene& s : scenes()) {
        cframe frame;
        load_frame(frame, out);
        Bytes photo_copy = s.photo;
        int width = -1, height = -1;
        const unsigned char* framed =
            frame.GetCompositeImage(photo_copy.data(), s.width, s.height, scale, &width, &height);
        out.i32(framed != nullptr);
        if (framed) out.image(framed, width, height);
        record_read_only(out, photo_copy, s.photo);
    }
}

void draw_pieces(Recorder& out, Scene& s) {
    Bytes piece = material_image(5, 4, 2);
    for (const auto& [x, y] : {std::pair{-2, -1}, {0, 0}, {s.width - 3, s.height - 2}, {1, 1}})
        draw(s.photo.data(), s.width, s.height, x, y, piece.data(), 5, 4);
    out.image(s.photo, s.width, s.height);
}

void draw_rects(Scene& s) {
    const ZQ2DRect regions[] = {
        {0, 0, s.width, s.height}, {1, 1, 4, 3}, {-2, -2, 3, 3}, {2, 5, 1, 4}, {0, 3, 9, 3}};
    for (int shift = 0; shift < 5; ++shift)
        drawRect(s.photo.data(), s.width, s.height, s.material2.data(), s.width, s.height,
                 shift - 1, shift / 2, regions[shift]);
}

// A "ZQPTM" puzzle format file with count cells (magic replaceable).
FileBuilder puzzle_format_file(int count, const std::string& magic = "ZQPTM") {
    FileBuilder file;
    file.pad_to(12).ascii(magic).pad_to(36).i32(count).i32(640).i32(896).pad_to(56);
    for (int i = 0; i < count; ++i)
        file.i32(10 + 70 * i).i32(20 + 90 * i).i32(300 - i).i32(200 + 3 * i);
    return file;
}

void record_puzzle_format(Recorder& out, cpuzzleformat& format) {
    out.i32(format.GetPuzzleFormatCount());
    record_size(out, format.GetPuzzleResultSize());
    for (int i = -1; i <= 9; ++i) record_rect(out, format.GetPuzzleRectWithIndex(i));
}

void record_puzzle_formats(Recorder& out) {
    cpuzzleformat format;
    for (const int count : {4, 9, 0, 10, -3}) {
        FileBuilder file = puzzle_format_file(count);
        out.i32(format.ReadPuzzleFormatFile(file.data.data(), file.size()));
        record_puzzle_format(out, format);
    }
    FileBuilder wrong = puzzle_format_file(2, "ZQPTX");
    out.i32(format.ReadPuzzleFormatFile(wrong.data.data(), wrong.size()));
    format.SetPuzzleRectWithIndex(3, {-1, -2, 3, 4});
    format.SetPuzzleRectWithIndex(12, {5, 6, 7, 8});
    record_puzzle_format(out, format);
}

// Reads into the process-wide table; nothing else in the golden cases
// depends on it.
void record_template_puzzle(Recorder& out) {
    ctemplatepuzzle puzzle;
    FileBuilder file = puzzle_format_file(5);
    out.i32(puzzle.ReadPuzzleFormatFile(file.data.data(), file.size()));
    out.i32(puzzle.GetFormatCount());
    for (int i = -1; i <= 9; ++i) record_rect(out, puzzle.GetFormatRectWithIndex(i));
}

// "MZYPT" free collage layouts with count cell records.
void record_free_puzzles(Recorder& out) {
    for (const int count : {9, 3, 0, 10}) {
        FileBuilder file;
        file.pad_to(12).ascii("MZYPT").pad_to(36).i32(count).pad_to(56);
        for (int i = 0; i < count; ++i) {
            file.i32(20 + 60 * i).i32(30 + 80 * i).i32(240 + 5 * i).i32(320 - 7 * i);
            file.i32(-10 - i).i32(15 + 2 * i).i32(-5).i32(5 + i).i32(-12 + i).i32(12);
            file.f32(0.7f + 0.05f * i).f32(1.0f + 0.1f * (i % 3)).u32(0).u32(0);
        }
        cfreepuzzle puzzle;
        out.i32(puzzle.ReadFrameFile(file.data.data(), file.size()));
        out.i32(puzzle.GetCount());
        record_size(out, puzzle.GetResultSize());
        for (int i = -1; i <= 9; ++i) {
            out.f32(puzzle.GetRotationWithIndex(i));
            record_rect(out, puzzle.GetMaxRectWithIndex(i));
            record_rect(out, puzzle.GetViewRectWithIndex(i, {2000, 1000}));
            record_rect(out, puzzle.GetViewRectWithIndex(i, {97, 61}));
        }
    }
}

void record_bubbles(Recorder& out) {
    FileBuilder file;
    file.pad_to(187).i32(40).i32(25).pad_to(211).i32(300).i32(-10).pad_to(220).bytes(
        {12, 200, 99, 7});
    for (const std::size_t length : {file.data.size(), std::size_t(223)}) {
        csbubble bubble;
        Bytes bytes(file.data.begin(), file.data.begin() + length);
        out.i32(bubble.ReadFrameFile(bytes.data(), static_cast<int>(bytes.size())));
        record_rect(out, bubble.GetTextDrawRect());
        for (int i = -1; i <= 4; ++i) out.i32(bubble.GetTextColorWithIndex(i));
    }
}

}  // namespace

Cases frame_cases() {
    return {
        sweep({1.0f, 0.5f, 2.0f},
              [](float scale) {
                  return custom(named("frame.cframe::GetCompositeImage", scale),
                                [=](Recorder& out) { record_framed(out, scale); });
              }),
        custom("frame.draw",
               [](Recorder& out) {
                   for (Scene s : scenes()) draw_pieces(out, s);
               }),
        scene("frame.drawRect", [](Recorder&, Scene& s) { draw_rects(s); }),
        custom("frame.cpuzzleformat", record_puzzle_formats),
        custom("frame.ctemplatepuzzle", record_template_puzzle),
        custom("frame.cfreepuzzle", record_free_puzzles, Needs::rand),
        custom(
            "frame.cfreepuzzle::AverageRandom",
            [](Recorder& out) {
                cfreepuzzle puzzle;
                for (const auto& [low, high] :
                     {std::pair{0.5f, 0.5f}, {-10, 15}, {0.7f, 1.3f}, {-12, 12}, {3, -3}})
                    out.f32(puzzle.AverageRandom(low, high));
            },
            Needs::rand),
        custom("frame.cfreepuzzle::ChangeRectWithMaxRect",
               [](Recorder& out) {
                   cfreepuzzle puzzle;
                   for (const _tagCGSize photo :
                        {_tagCGSize{2000, 1000}, {100, 100}, {1, 1}, {97, 61}, {0, 5}}) {
                       for (const _tagCGRect cell :
                            {_tagCGRect{100, 50, 400, 400}, {-7, 3, 33, 1}, {0, 0, 640, 896}})
                           record_rect(out, puzzle.ChangeRectWithMaxRect(photo, cell));
                   }
               }),
        custom("frame.csbubble", record_bubbles),
    };
}

}  // namespace qtzq_golden
