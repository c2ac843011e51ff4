// Files from outside: truncated, or lying about their lengths and counts.
// Every reader must stay inside the bytes it is given (the sanitizer build
// checks each read against exactly sized heap copies) and leave its object
// usable. Random bytes are the fuzzers' business.
#include <gtest/gtest.h>

#include <limits>

#include "frame/file_builders.h"
#include "qtzqeffect/frame.h"
#include "support/images.h"

namespace {

using qtzq_test::FileBytes;
using qtzq_test::FrameFile;
using qtzq_test::prefix;

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

// Gives every slot holding a block a 2 x 3 piece and composites a photo.
void decode_and_composite(cframe& frame) {
    FileBytes piece = qtzq_test::solid(2, 3, 1, 2, 3, 200);
    for (int slot = 0; slot < 8; ++slot) {
        int length = 0;
        if (frame.GetFrameImage(slot, length) != nullptr)
            frame.SetFrameImageData(slot, piece.data(), 2, 3);
    }
    FileBytes photo = qtzq_test::noise(9, 7);
    int width = 0, height = 0;
    frame.GetCompositeImage(photo.data(), 9, 7, 1.0f, &width, &height);
}

TEST(MalformedFiles, FrameFileTruncatedAnywhereDecodesWholeRecordsOnly) {
    FrameFile builder;
    builder.inset(0, 1, 1).inset(1, 1, 1).inset(2, 1, 1).inset(3, 1, 1);
    std::vector<std::size_t> record_end;
    for (int slot = 0; slot < 8; ++slot) {
        slot % 3 == 1 ? builder.empty() : builder.present(FileBytes(slot + 2, 0xAB));
        record_end.push_back(builder.size());
    }
    const FileBytes file = builder.bytes();
    for (std::size_t length = 0; length <= file.size(); ++length) {
        FileBytes bytes = prefix(file, length);
        cframe frame;
        ASSERT_EQ(frame.ReadFrameFile(bytes.data(), int(length)), length > 0 ? 1 : 0);
        for (int slot = 0; slot < 8; ++slot) {
            int got = 0;
            const bool has_block = frame.GetFrameImage(slot, got) != nullptr;
            const bool whole = record_end[slot] <= length && slot % 3 != 1;
            ASSERT_EQ(has_block, whole) << "length " << length << " slot " << slot;
        }
        decode_and_composite(frame);
    }
}

TEST(MalformedFiles, FrameRecordLengthsOfAnySize) {
    for (int declared : {kMax, kMin, -1, -80, -92, 1000}) {
        FileBytes file = FrameFile().present_declaring(declared, {1, 2, 3}).eight_present().bytes();
        cframe frame;
        EXPECT_EQ(frame.ReadFrameFile(file.data(), int(file.size())), 1);
        int length = 0;
        EXPECT_EQ(frame.GetFrameImage(0, length), nullptr) << declared;
        decode_and_composite(frame);
    }
}

TEST(MalformedFiles, CollageFilesTruncatedAnywhereAreRefusedWhole) {
    const qtzq_test::FreeCell cell = qtzq_test::FreeCell().cell(0, 0, 50, 50);
    const FileBytes free_file = qtzq_test::FreePuzzleFile().cell(cell).cell(cell).bytes();
    const FileBytes format_file = qtzq_test::PuzzleFormatFile()
                                      .result_size(5, 5)
                                      .cell({1, 1, 1, 1})
                                      .cell({2, 2, 2, 2})
                                      .bytes();
    for (std::size_t length = 0; length < free_file.size(); ++length) {
        FileBytes bytes = prefix(free_file, length);
        cfreepuzzle puzzle;
        ASSERT_EQ(puzzle.ReadFrameFile(bytes.data(), int(length)), 0) << length;
        ASSERT_EQ(puzzle.GetCount(), 0) << length;
    }
    for (std::size_t length = 0; length < format_file.size(); ++length) {
        FileBytes bytes = prefix(format_file, length);
        cpuzzleformat format;
        ASSERT_EQ(format.ReadPuzzleFormatFile(bytes.data(), int(length)), 0) << length;
        ASSERT_EQ(format.GetPuzzleFormatCount(), 0) << length;
    }
}

TEST(MalformedFiles, CollageCountsOfAnySize) {
    for (int count : {kMax, kMin, -1, 10}) {
        FileBytes free_file = qtzq_test::FreePuzzleFile().count(count).bytes();
        cfreepuzzle puzzle;
        EXPECT_EQ(puzzle.ReadFrameFile(free_file.data(), int(free_file.size())), count > 9 ? 0 : 1);
        EXPECT_EQ(puzzle.GetCount(), count);
        EXPECT_EQ(puzzle.GetMaxRectWithIndex(0).width, 0);

        FileBytes format_file = qtzq_test::PuzzleFormatFile().count(count).bytes();
        cpuzzleformat format;
        EXPECT_EQ(format.ReadPuzzleFormatFile(format_file.data(), int(format_file.size())),
                  count > 9 ? 0 : 1);
    }
}

TEST(MalformedFiles, CollageValuesOfAnySizeAreDefined) {
    const qtzq_test::FreeCell cell = qtzq_test::FreeCell()
                                         .cell(kMax, 0, kMin, kMax)
                                         .shift_x(kMin, kMax)
                                         .rotation(kMax, kMax)
                                         .scale(-std::numeric_limits<float>::infinity(),
                                                std::numeric_limits<float>::quiet_NaN());
    FileBytes file = qtzq_test::FreePuzzleFile().cell(cell).bytes();
    cfreepuzzle puzzle;
    ASSERT_EQ(puzzle.ReadFrameFile(file.data(), int(file.size())), 1);
    // kMax * 100 saturates back to kMax; kMax / 100 is 21474836 in single precision.
    EXPECT_EQ(puzzle.GetRotationWithIndex(0), 21474836.0f);
    puzzle.GetViewRectWithIndex(0, {kMax, 1});
    puzzle.ChangeRectWithMaxRect({1, 1}, {kMax, kMin, kMax, kMin});
    // lo saturates to kMax, hi to kMin: hi - lo wraps to 1.
    EXPECT_EQ(puzzle.AverageRandom(1e30f, -1e30f), static_cast<float>(kMax) / 100.0f);
}

}  // namespace
