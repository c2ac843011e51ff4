// Frame files: decoding into slots, and the piece exchange with the caller.
#include <gtest/gtest.h>

#include "frame/file_builders.h"
#include "qtzqeffect/frame.h"

namespace {

using qtzq_test::FileBytes;
using qtzq_test::FrameFile;

int read(cframe& frame, FileBytes file) {
    return frame.ReadFrameFile(file.data(), int(file.size()));
}

FileBytes block_of(cframe& frame, int slot) {
    int length = -1;
    const unsigned char* data = frame.GetFrameImage(slot, length);
    return data ? FileBytes(data, data + length) : FileBytes();
}

bool slot_empty(cframe& frame, int slot) {
    int length = -1;
    return frame.GetFrameImage(slot, length) == nullptr;
}

TEST(FrameFile, RecordsAreEmptyUnlessFlaggedOneWithALength) {
    FrameFile eight_empty;
    for (int slot = 0; slot < 8; ++slot) eight_empty.empty();
    ASSERT_EQ(eight_empty.size(), 80u + 8 * 4);
    cframe frame;
    EXPECT_EQ(read(frame, eight_empty.bytes()), 1);
    for (int slot = 0; slot < 8; ++slot) EXPECT_TRUE(slot_empty(frame, slot)) << slot;

    // A zero-length record is empty and 12 bytes long.
    const FileBytes data = {7, 8, 9};
    read(frame, FrameFile().present(FileBytes()).present(data).bytes());
    EXPECT_TRUE(slot_empty(frame, 0));
    EXPECT_EQ(block_of(frame, 1), data);
    // A second read replaces blocks (the sanitizer run checks for leaks);
    // flags other than 1 empty a slot.
    read(frame, FrameFile().eight_present().bytes());
    read(frame, FrameFile().empty(2).empty(0).bytes());
    EXPECT_TRUE(slot_empty(frame, 0));
    EXPECT_TRUE(slot_empty(frame, 1));
    EXPECT_EQ(block_of(frame, 7), FileBytes(8, 8));
}

// Slots that a read does not reach keep their blocks from the read before.
TEST(FrameFile, ReadsEndAtTheLengthAndMayMoveBack) {
    const auto expect_blocks_from = [](cframe& frame, int first_slot) {
        for (int slot = first_slot; slot < 8; ++slot)
            EXPECT_EQ(block_of(frame, slot),
                      FileBytes(slot + 1, static_cast<unsigned char>(10 + slot)));
    };
    cframe frame;
    read(frame, FrameFile().eight_present(10).bytes());
    // Later records exist in memory but lie beyond the length given.
    FrameFile file;
    file.present({1, 2, 3});
    const int length = int(file.size());
    FileBytes bytes = file.empty().empty().bytes();
    EXPECT_EQ(frame.ReadFrameFile(bytes.data(), length), 1);
    EXPECT_EQ(block_of(frame, 0), FileBytes({1, 2, 3}));
    expect_blocks_from(frame, 1);

    // Back by 12: every slot reads the same record again.
    read(frame, FrameFile().eight_present(10).bytes());
    read(frame, FrameFile().present_declaring(-12, {}).bytes());
    expect_blocks_from(frame, 0);
}

TEST(FrameFile, ZeroLengthOrNullIsRefusedAndChangesNothing) {
    cframe frame;
    FileBytes file = FrameFile().eight_present().bytes();
    read(frame, file);
    const FileBytes before = block_of(frame, 3);
    FileBytes empty_file = FrameFile().bytes();
    EXPECT_EQ(frame.ReadFrameFile(empty_file.data(), 0), 0);
    EXPECT_EQ(frame.ReadFrameFile(empty_file.data(), -5), 0);
    EXPECT_EQ(frame.ReadFrameFile(nullptr, 100), 0);
    EXPECT_EQ(block_of(frame, 3), before);
}

TEST(FramePieces, SetFrameImageDataKeepsTheFileLength) {
    cframe frame;
    read(frame, FrameFile().eight_present().bytes());
    FileBytes pixels(800, 0x5A);
    frame.SetFrameImageData(3, pixels.data(), 10, 20);
    int length = 0;
    const unsigned char* block = frame.GetFrameImage(3, length);
    EXPECT_EQ(length, 4);  // slot 3's record carried 4 bytes
    EXPECT_EQ(FileBytes(block, block + 800), pixels);
}

TEST(FramePieces, SlotMayBeGivenItsOwnBlock) {
    cframe frame;
    FileBytes pixels(2 * 2 * 4, 9);
    frame.SetFrameImageData(0, pixels.data(), 2, 2);
    int length = 0;
    unsigned char* own = frame.GetFrameImage(0, length);
    frame.SetFrameImageData(0, own, 1, 2);
    const unsigned char* copy = frame.GetFrameImage(0, length);
    EXPECT_EQ(FileBytes(copy, copy + 8), FileBytes(8, 9));
}

TEST(FramePieces, InvalidSlotsAndSizesAreRefused) {
    cframe frame;
    FileBytes pixels(16, 1);
    int length = 77;
    EXPECT_EQ(frame.GetFrameImage(8, length), nullptr);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(frame.GetFrameImage(-1, length), nullptr);
    frame.SetFrameImageData(8, pixels.data(), 2, 2);
    frame.SetFrameImageData(-1, pixels.data(), 2, 2);
    frame.SetFrameImageData(0, pixels.data(), -2, 2);
    frame.SetFrameImageData(0, pixels.data(), 65536, 65536);
    frame.SetFrameImageData(0, nullptr, 2, 2);
    for (int slot = 0; slot < 8; ++slot) EXPECT_TRUE(slot_empty(frame, slot));
    frame.SetFrameImageData(0, nullptr, 0, 5);  // an empty piece needs no pixels
    EXPECT_FALSE(slot_empty(frame, 0));
}

}  // namespace
