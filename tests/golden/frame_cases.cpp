// Golden cases of frames, collages and speech bubbles, read from files built
// in the library's layouts: 32-bit little-endian integers, ASCII magics and
// raw blocks at fixed offsets.
#include "golden.h"
#include "qtzqeffect/frame.h"

namespace qtzq_golden {

namespace {

// Appends 32-bit little-endian words to a file after zero padding up to
// offset `at` (none when already past it).
Bytes& put(Bytes& file, std::size_t at, std::initializer_list<std::int64_t> words) {
    if (file.size() < at) file.resize(at, 0);
    for (const std::int64_t word : words) {
        for (int i = 0; i < 4; ++i) file.push_back(std::uint8_t(std::uint64_t(word) >> (8 * i)));
    }
    return file;
}

// The start of a collage file: its five-letter magic at offset 12.
Bytes magic_file(const char* magic) {
    const std::string header = std::string(12, '\0') + magic;
    return Bytes(header.begin(), header.end());
}

void record_rect(Recorder& out, const _tagCGRect& r) {
    for (const int v : {r.x, r.y, r.width, r.height}) out.i32(v);
}

void record_size(Recorder& out, const _tagCGSize& s) {
    for (const int v : {s.width, s.height}) out.i32(v);
}

// Piece sizes of the eight frame slots: corners top-left, bottom-left,
// top-right, bottom-right, then edges top, bottom, left, right.
constexpr int kPieceSizes[8][2] = {{6, 5}, {6, 7}, {8, 5}, {8, 7}, {4, 3}, {4, 3}, {3, 5}, {3, 5}};

// Reads a frame file with corner insets and eight present records (record k
// carries k + 3 bytes) and records the raw blocks; then frames every scene's
// photo with decoded pieces (materials with varying alpha, so blending shows).
void record_framed(Recorder& out, float scale) {
    for (const Scene& s : scenes()) {
        Bytes file;
        put(put(file, 44, {3, 2, 3, 4, 5, 2, 5, 4}), 80, {});
        for (int slot = 0; slot < 8; ++slot) {
            file.insert(file.end(), {1, 0xEE, 0xEE, 0xEE});
            put(file, 0, {0xEEEEEEEE, slot + 3});
            for (int i = 0; i < slot + 3; ++i) file.push_back(std::uint8_t(16 * slot + i));
        }
        cframe frame;
        out.i32(frame.ReadFrameFile(file.data(), int(file.size())));
        for (int slot = 0; slot < 8; ++slot) {
            int length = -1;
            const unsigned char* block = frame.GetFrameImage(slot, length);
            out.i32(length);
            if (block && length > 0) out.bytes(block, std::size_t(length));
            const int w = kPieceSizes[slot][0], h = kPieceSizes[slot][1];
            Bytes piece = material_image(w, h, 1 + slot % 3);
            frame.SetFrameImageData(slot, piece.data(), w, h);
        }
        Bytes photo = s.photo;
        int width = -1, height = -1;
        const unsigned char* framed =
            frame.GetCompositeImage(photo.data(), s.width, s.height, scale, &width, &height);
        out.i32(framed != nullptr);
        if (framed) out.image(framed, width, height);
        record_read_only(out, photo, s.photo);
    }
}

// A "ZQPTM" puzzle format file with count cells (magic replaceable).
Bytes puzzle_format_file(int count, const char* magic = "ZQPTM") {
    Bytes file = magic_file(magic);
    put(put(file, 36, {count, 640, 896}), 56, {});
    for (int i = 0; i < count; ++i) put(file, 0, {10 + 70 * i, 20 + 90 * i, 300 - i, 200 + 3 * i});
    return file;
}

void record_puzzle_formats(Recorder& out) {
    cpuzzleformat format;
    const auto record = [&] {
        out.i32(format.GetPuzzleFormatCount());
        record_size(out, format.GetPuzzleResultSize());
        for (int i = -1; i <= 9; ++i) record_rect(out, format.GetPuzzleRectWithIndex(i));
    };
    for (const int count : {4, 9, 0, 10, -3}) {
        Bytes file = puzzle_format_file(count);
        out.i32(format.ReadPuzzleFormatFile(file.data(), int(file.size())));
        record();
    }
    Bytes wrong = puzzle_format_file(2, "ZQPTX");
    out.i32(format.ReadPuzzleFormatFile(wrong.data(), int(wrong.size())));
    format.SetPuzzleRectWithIndex(3, {-1, -2, 3, 4});
    format.SetPuzzleRectWithIndex(12, {5, 6, 7, 8});
    record();
}

// Reads into the process-wide table; nothing else in the golden cases
// depends on it.
void record_template_puzzle(Recorder& out) {
    ctemplatepuzzle puzzle;
    Bytes file = puzzle_format_file(5);
    out.i32(puzzle.ReadPuzzleFormatFile(file.data(), int(file.size())));
    out.i32(puzzle.GetFormatCount());
    for (int i = -1; i <= 9; ++i) record_rect(out, puzzle.GetFormatRectWithIndex(i));
}

// "MZYPT" free collage layouts with count cell records.
void record_free_puzzles(Recorder& out) {
    for (const int count : {9, 3, 0, 10}) {
        Bytes file = magic_file("MZYPT");
        put(put(file, 36, {count}), 56, {});
        for (int i = 0; i < count; ++i) {
            put(file, 0,
                {20 + 60 * i, 30 + 80 * i, 240 + 5 * i, 320 - 7 * i, -10 - i, 15 + 2 * i, -5, 5 + i,
                 -12 + i, 12, Recorder::bits<std::uint32_t>(0.7f + 0.05f * i),
                 Recorder::bits<std::uint32_t>(1.0f + 0.1f * (i % 3)), 0, 0});
        }
        cfreepuzzle puzzle;
        out.i32(puzzle.ReadFrameFile(file.data(), int(file.size())));
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
    Bytes file;
    put(put(put(file, 187, {40, 25}), 211, {300, -10}), 220, {});
    file.insert(file.end(), {12, 200, 99, 7});
    for (const std::size_t length : {file.size(), std::size_t(223)}) {
        csbubble bubble;
        Bytes bytes(file.begin(), file.begin() + length);
        out.i32(bubble.ReadFrameFile(bytes.data(), int(bytes.size())));
        record_rect(out, bubble.GetTextDrawRect());
        for (int i = -1; i <= 4; ++i) out.i32(bubble.GetTextColorWithIndex(i));
    }
}

}  // namespace

Cases frame_cases() {
    return {
        sweep("frame.cframe::GetCompositeImage", {1.0f, 0.5f, 2.0f},
              [](std::string name, float scale) {
                  return custom(name, [=](Recorder& out) { record_framed(out, scale); });
              }),
        custom("frame.draw",
               [](Recorder& out) {
                   Bytes piece = material_image(5, 4, 2);
                   for (Scene s : scenes()) {
                       for (const auto& [x, y] :
                            {std::pair{-2, -1}, {0, 0}, {s.width - 3, s.height - 2}, {1, 1}})
                           draw(s.p(), s.width, s.height, x, y, piece.data(), 5, 4);
                       out.image(s.photo, s.width, s.height);
                   }
               }),
        scene("frame.drawRect",
              [](Recorder&, Scene& s) {
                  const ZQ2DRect regions[] = {{0, 0, s.width, s.height},
                                              {1, 1, 4, 3},
                                              {-2, -2, 3, 3},
                                              {2, 5, 1, 4},
                                              {0, 3, 9, 3}};
                  for (int k = 0; k < 5; ++k)
                      drawRect(s.p(), s.width, s.height, s.m2(), s.width, s.height, k - 1, k / 2,
                               regions[k]);
              }),
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
