// Golden cases of frames, collages and speech bubbles, on files built with
// FileBuilder.
#include <cstring>
#include <string>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/frame.h"

namespace qtzq_golden {

namespace {

void record_rect(Recorder& out, const _tagCGRect& r) {
    out.i32(r.x);
    out.i32(r.y);
    out.i32(r.width);
    out.i32(r.height);
}

void record_size(Recorder& out, const _tagCGSize& s) {
    out.i32(s.width);
    out.i32(s.height);
}

// Piece sizes of the eight frame slots: corners top-left, bottom-left,
// top-right, bottom-right, then edges top, bottom, left, right.
constexpr int kPieceSizes[8][2] = {{6, 5}, {6, 7}, {8, 5}, {8, 7}, {4, 3}, {4, 3}, {3, 5}, {3, 5}};

// A frame file with corner insets and eight present records, record k
// carrying k + 3 bytes of data.
Bytes frame_file() {
    FileBuilder file;
    file.pad_to(44);
    for (const int inset : {3, 2, 3, 4, 5, 2, 5, 4}) file.i32(inset);
    file.pad_to(80);
    for (int slot = 0; slot < 8; ++slot) {
        file.bytes({1, 0xEE, 0xEE, 0xEE}).u32(0xEEEEEEEEu).i32(slot + 3);
        for (int i = 0; i < slot + 3; ++i) file.bytes({static_cast<unsigned char>(16 * slot + i)});
    }
    return file.data();
}

// Reads the frame file, records the raw blocks, and gives every slot its
// decoded piece (materials with varying alpha, so blending shows).
void load_frame(cframe& frame, Recorder& out) {
    Bytes file = frame_file();
    out.i32(frame.ReadFrameFile(file.data(), static_cast<int>(file.size())));
    for (int slot = 0; slot < 8; ++slot) {
        int length = -1;
        const unsigned char* block = frame.GetFrameImage(slot, length);
        out.i32(length);
        if (block && length > 0) out.bytes(block, static_cast<std::size_t>(length));
        Bytes piece = material(kPieceSizes[slot][0], kPieceSizes[slot][1], 1 + slot % 3);
        frame.SetFrameImageData(slot, piece.data(), kPieceSizes[slot][0], kPieceSizes[slot][1]);
    }
}

void add_frame_object_cases(CaseList& list) {
    for (const float scale : {1.0f, 0.5f, 2.0f}) {
        custom_case(list, "frame.cframe::GetCompositeImage." + label(scale),
                    [=](Recorder& out) {
                        for (const Scene& s : scenes()) {
                            cframe frame;
                            load_frame(frame, out);
                            Bytes photo_copy = s.photo;
                            int width = -1, height = -1;
                            const unsigned char* framed = frame.GetCompositeImage(
                                photo_copy.data(), s.width, s.height, scale, &width, &height);
                            out.i32(framed != nullptr);
                            if (framed) out.image(framed, width, height);
                            record_read_only(out, photo_copy, s.photo);
                        }
                    });
    }
    custom_case(list, "frame.draw", [](Recorder& out) {
        for (const Scene& original : scenes()) {
            Scene s = original;
            Bytes piece = material(5, 4, 2);
            const int places[][2] = {{-2, -1}, {0, 0}, {s.width - 3, s.height - 2}, {1, 1}};
            for (const auto& at : places)
                draw(s.photo.data(), s.width, s.height, at[0], at[1], piece.data(), 5, 4);
            out.image(s.photo, s.width, s.height);
        }
    });
    custom_case(list, "frame.drawRect", [](Recorder& out) {
        for (const Scene& original : scenes()) {
            Scene s = original;
            const ZQ2DRect regions[] = {{0, 0, s.width, s.height},
                                        {1, 1, 4, 3},
                                        {-2, -2, 3, 3},
                                        {2, 5, 1, 4},
                                        {0, 3, 9, 3}};
            int shift = 0;
            for (const ZQ2DRect& region : regions) {
                drawRect(s.photo.data(), s.width, s.height, s.material2.data(), s.width, s.height,
                         shift - 1, shift / 2, region);
                ++shift;
            }
            record_scene(out, s, original);
        }
    });
}

// A "ZQPTM" puzzle format file with n cells (magic replaceable).
Bytes puzzle_format_file(int count, const std::string& magic = "ZQPTM") {
    FileBuilder file;
    file.pad_to(12).ascii(magic).pad_to(36).i32(count).i32(640).i32(896).pad_to(56);
    for (int i = 0; i < count; ++i)
        file.i32(10 + 70 * i).i32(20 + 90 * i).i32(300 - i).i32(200 + 3 * i);
    return file.data();
}

void record_puzzle_format(Recorder& out, cpuzzleformat& format) {
    out.i32(format.GetPuzzleFormatCount());
    record_size(out, format.GetPuzzleResultSize());
    for (int i = -1; i <= 9; ++i) record_rect(out, format.GetPuzzleRectWithIndex(i));
}

// A "MZYPT" free collage layout with n cell records.
Bytes free_layout_file(int count) {
    FileBuilder file;
    file.pad_to(12).ascii("MZYPT").pad_to(36).i32(count).pad_to(56);
    for (int i = 0; i < count; ++i) {
        const float least_scale = 0.7f + 0.05f * i, greatest_scale = 1.0f + 0.1f * (i % 3);
        std::uint32_t least_bits, greatest_bits;
        std::memcpy(&least_bits, &least_scale, 4);
        std::memcpy(&greatest_bits, &greatest_scale, 4);
        file.i32(20 + 60 * i).i32(30 + 80 * i).i32(240 + 5 * i).i32(320 - 7 * i);
        file.i32(-10 - i).i32(15 + 2 * i).i32(-5).i32(5 + i).i32(-12 + i).i32(12);
        file.u32(least_bits).u32(greatest_bits).u32(0).u32(0);
    }
    return file.data();
}

void add_collage_cases(CaseList& list) {
    custom_case(list, "frame.cpuzzleformat", [](Recorder& out) {
        cpuzzleformat format;
        for (const int count : {4, 9, 0, 10, -3}) {
            Bytes file = puzzle_format_file(count);
            out.i32(format.ReadPuzzleFormatFile(file.data(), static_cast<int>(file.size())));
            record_puzzle_format(out, format);
        }
        Bytes wrong = puzzle_format_file(2, "ZQPTX");
        out.i32(format.ReadPuzzleFormatFile(wrong.data(), static_cast<int>(wrong.size())));
        format.SetPuzzleRectWithIndex(3, {-1, -2, 3, 4});
        format.SetPuzzleRectWithIndex(12, {5, 6, 7, 8});
        record_puzzle_format(out, format);
    });
    // Reads into the process-wide table; nothing else in the golden cases
    // depends on it.
    custom_case(list, "frame.ctemplatepuzzle", [](Recorder& out) {
        ctemplatepuzzle puzzle;
        Bytes file = puzzle_format_file(5);
        out.i32(puzzle.ReadPuzzleFormatFile(file.data(), static_cast<int>(file.size())));
        out.i32(puzzle.GetFormatCount());
        for (int i = -1; i <= 9; ++i) record_rect(out, puzzle.GetFormatRectWithIndex(i));
    });
    custom_case(
        list, "frame.cfreepuzzle",
        [](Recorder& out) {
            for (const int count : {9, 3, 0, 10}) {
                cfreepuzzle puzzle;
                Bytes file = free_layout_file(count);
                out.i32(puzzle.ReadFrameFile(file.data(), static_cast<int>(file.size())));
                out.i32(puzzle.GetCount());
                record_size(out, puzzle.GetResultSize());
                for (int i = -1; i <= 9; ++i) {
                    out.f32(puzzle.GetRotationWithIndex(i));
                    record_rect(out, puzzle.GetMaxRectWithIndex(i));
                    record_rect(out, puzzle.GetViewRectWithIndex(i, {2000, 1000}));
                    record_rect(out, puzzle.GetViewRectWithIndex(i, {97, 61}));
                }
            }
        },
        Needs::rand);
    custom_case(
        list, "frame.cfreepuzzle::AverageRandom",
        [](Recorder& out) {
            cfreepuzzle puzzle;
            const float ranges[][2] = {{0.5f, 0.5f}, {-10, 15}, {0.7f, 1.3f}, {-12, 12}, {3, -3}};
            for (const auto& range : ranges) out.f32(puzzle.AverageRandom(range[0], range[1]));
        },
        Needs::rand);
    custom_case(list, "frame.cfreepuzzle::ChangeRectWithMaxRect", [](Recorder& out) {
        cfreepuzzle puzzle;
        const _tagCGSize photos[] = {{2000, 1000}, {100, 100}, {1, 1}, {97, 61}, {0, 5}};
        const _tagCGRect cells[] = {{100, 50, 400, 400}, {-7, 3, 33, 1}, {0, 0, 640, 896}};
        for (const _tagCGSize& photo : photos) {
            for (const _tagCGRect& cell : cells)
                record_rect(out, puzzle.ChangeRectWithMaxRect(photo, cell));
        }
    });
}

void add_bubble_cases(CaseList& list) {
    custom_case(list, "frame.csbubble", [](Recorder& out) {
        FileBuilder file;
        file.pad_to(187).i32(40).i32(25).pad_to(211).i32(300).i32(-10).pad_to(220);
        file.bytes({12, 200, 99, 7});
        for (const std::size_t length : {file.data().size(), std::size_t(223)}) {
            csbubble bubble;
            Bytes bytes(file.data().begin(), file.data().begin() + length);
            out.i32(bubble.ReadFrameFile(bytes.data(), static_cast<int>(bytes.size())));
            record_rect(out, bubble.GetTextDrawRect());
            for (int i = -1; i <= 4; ++i) out.i32(bubble.GetTextColorWithIndex(i));
        }
    });
}

}  // namespace

void add_frame_cases(CaseList& list) {
    add_frame_object_cases(list);
    add_collage_cases(list);
    add_bubble_cases(list);
}

}  // namespace qtzq_golden
