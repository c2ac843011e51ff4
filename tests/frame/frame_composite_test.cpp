// Frame compositing: the photo cropped to whole edge pieces, the corners and
// the repeated edges around it.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "frame/file_builders.h"
#include "qtzqeffect/frame.h"
#include "support/images.h"

namespace {

using qtzq_test::Bytes;

constexpr int kMax = 2147483647;
constexpr int kMin = -kMax - 1;

// Role r is painted in an opaque colour with blue byte 10 * r + 5.
Bytes role_colour(int role) { return {static_cast<unsigned char>(10 * role + 5), 100, 200, 255}; }

// Corners are 3 x 3 but for the bottom-left one's height; the top and bottom
// edges are top_w x top_h, the left and right ones left_w x left_h.
struct PieceSizes {
    int top_w = 2, top_h = 3, left_w = 3, left_h = 2, bottom_left_h = 3;
};

// A frame whose corner insets are all `inset` and whose eight pieces are
// decoded to solid role colours (or only sized, with every flag 0).
void load_frame(cframe& frame, const PieceSizes& s, int inset, bool present = true) {
    qtzq_test::FrameFile file;
    for (int corner = 0; corner < 4; ++corner) file.inset(corner, inset, inset);
    for (int slot = 0; slot < 8; ++slot) present ? file.present({1}) : file.empty();
    Bytes bytes = file.bytes();
    frame.ReadFrameFile(bytes.data(), int(bytes.size()));
    const int widths[8] = {3, 3, 3, 3, s.top_w, s.top_w, s.left_w, s.left_w};
    const int heights[8] = {3, s.bottom_left_h, 3, 3, s.top_h, s.top_h, s.left_h, s.left_h};
    for (int slot = 0; slot < 8; ++slot) {
        const Bytes c = role_colour(slot);
        Bytes pixels = qtzq_test::solid(widths[slot], heights[slot], c[0], c[1], c[2]);
        frame.SetFrameImageData(slot, pixels.data(), widths[slot], heights[slot]);
    }
}

Bytes opaque_photo(int width, int height) {
    Bytes photo = qtzq_test::noise(width, height, 7);
    for (std::size_t i = 3; i < photo.size(); i += 4) photo[i] = 255;
    return photo;
}

// A noise photo of the given size and its composite.
struct Composite {
    Bytes photo;
    int photo_width = 0;
    const unsigned char* image = nullptr;
    int width = -1, height = -1;
};

Composite composite(cframe& frame, int photo_width, int photo_height, float scale = 1.0f) {
    Composite c;
    c.photo = opaque_photo(photo_width, photo_height);
    c.photo_width = photo_width;
    c.image = frame.GetCompositeImage(c.photo.data(), photo_width, photo_height, scale, &c.width,
                                      &c.height);
    return c;
}

// Compares every pixel with a map: 'a'..'h' the colour of role 0..7, 'p' the
// photo pixel at (x + dx, y + dy), 'w' white.
void expect_map(const Composite& c, const std::vector<std::string>& map, int dx, int dy) {
    ASSERT_EQ(c.height, int(map.size()));
    ASSERT_EQ(c.width, int(map[0].size()));
    for (std::size_t y = 0; y < map.size(); ++y) {
        for (std::size_t x = 0; x < map[y].size(); ++x) {
            const unsigned char* got = c.image + (y * map[y].size() + x) * 4;
            const char what = map[y][x];
            Bytes want = what == 'w' ? Bytes(4, 255) : role_colour(what - 'a');
            if (what == 'p') {
                const std::size_t at = ((y + dy) * c.photo_width + (x + dx)) * 4;
                want.assign(c.photo.begin() + at, c.photo.begin() + at + 4);
            }
            ASSERT_EQ(Bytes(got, got + 4), want)
                << "pixel " << x << "," << y << " ('" << what << "')";
        }
    }
}

std::vector<std::string> rows(int count, const std::string& row) {
    return std::vector<std::string>(count, row);
}

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(FrameComposite, PiecesAroundTheCroppedPhoto) {
    const std::string e8(8, 'e'), f8(8, 'f'), p8(8, 'p'), f10(10, 'f'), w10(10, 'w');
    const auto top_and_middle = rows(3, "aaa" + std::string(10, 'e') + "ccc") +
                                rows(8, "ggg" + std::string(10, 'p') + "hhh");
    struct Case {
        const char* what;
        PieceSizes sizes;
        bool present;
        int photo_w, photo_h, offset;  // pixel (x, y) shows photo pixel (x - offset, y - offset)
        std::vector<std::string> map;
    } cases[] = {
        // The photo sits at (2, 2); corners and edges cover its outer pixels.
        {"spans of whole tiles keep the whole photo", {}, true, 12, 10, 2,
         top_and_middle + rows(3, "bbb" + f10 + "ddd")},
        // Spans 11 and 10 leave remainders 3 and 2: cropped by 3 / 2 = 1
        // column and 2 / 2 = 1 row from the top-left.
        {"remainders crop half on each side", PieceSizes{4, 3, 3, 4}, true, 13, 12, 1,
         rows(3, "aaa" + e8 + "ccc") + rows(8, "ggg" + p8 + "hhh") + rows(3, "bbb" + f8 + "ddd")},
        // The 3-high bottom edge starts at 15 - 4 = 11, leaving the last row
        // white, and the bottom-right corner keeps its own height.
        {"bottom edge follows the bottom-left corner", PieceSizes{2, 3, 3, 2, 4}, true, 12, 10, 2,
         top_and_middle + rows(1, "bbb" + f10 + "pww") + rows(2, "bbb" + f10 + "ddd") +
             rows(1, "bbb" + w10 + "ddd")},
        {"without present pieces the photo sits on white", {}, false, 12, 10, 2,
         rows(2, std::string(16, 'w')) + rows(10, "ww" + std::string(12, 'p') + "ww") +
             rows(2, std::string(16, 'w'))},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        cframe frame;
        load_frame(frame, c.sizes, 1, c.present);
        const Composite composed = composite(frame, c.photo_w, c.photo_h);
        ASSERT_NE(composed.image, nullptr);
        expect_map(composed, c.map, -c.offset, -c.offset);
    }
}

TEST(FrameComposite, UndecodedPiecesGiveThePhotoAsItIs) {
    cframe frame;
    Bytes file = qtzq_test::FrameFile().eight_present().bytes();
    frame.ReadFrameFile(file.data(), int(file.size()));
    const Composite c = composite(frame, 5, 4);
    ASSERT_EQ(c.width, 5);
    ASSERT_EQ(c.height, 4);
    EXPECT_EQ(Bytes(c.image, c.image + c.photo.size()), c.photo);
}

int composite_width(cframe& frame, float scale) { return composite(frame, 10, 10, scale).width; }

TEST(FrameComposite, ScaleChangesTheInsetsForGood) {
    const PieceSizes unit_edges{1, 1, 1, 1};
    cframe frame;
    load_frame(frame, unit_edges, 1);
    EXPECT_EQ(composite_width(frame, 1.0f), 10 + 6 - 2);
    EXPECT_EQ(composite_width(frame, 1.0f), 10 + 6 - 2);
    EXPECT_EQ(composite_width(frame, 2.0f), 10 + 6 - 4);
    EXPECT_EQ(composite_width(frame, 2.0f), 10 + 6 - 8);  // scaled again
    EXPECT_EQ(composite_width(frame, 1.0f), 10 + 6 - 8);

    // trunc(x + 0.5): 3 * 1.5 gives 5, -3 * 1.5 gives -4.
    cframe mixed;
    load_frame(mixed, unit_edges, 0);
    qtzq_test::FrameFile file;
    file.inset(0, 3, 0).inset(2, -3, 0);
    Bytes bytes = file.bytes();
    mixed.ReadFrameFile(bytes.data(), int(bytes.size()));
    EXPECT_EQ(composite_width(mixed, 1.5f), 10 + 6 - 5 + 4);
}

TEST(FrameComposite, ExtremeValuesAreRefusedOrSaturate) {
    cframe frame;
    load_frame(frame, PieceSizes(), 1);
    Bytes photo = opaque_photo(4, 4);
    int width = -1, height = -1;
    EXPECT_EQ(frame.GetCompositeImage(nullptr, 4, 4, 1.0f, &width, &height), nullptr);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(frame.GetCompositeImage(photo.data(), 0, 4, 1.0f, &width, &height), nullptr);
    EXPECT_EQ(frame.GetCompositeImage(photo.data(), kMax, kMax, 1.0f, &width, &height), nullptr);
    EXPECT_NE(frame.GetCompositeImage(photo.data(), 4, 4, 1.0f, nullptr, nullptr), nullptr);

    // Huge scale: the insets saturate to kMax and the result shrinks to 1 x 1.
    EXPECT_NE(frame.GetCompositeImage(photo.data(), 4, 4, 1e30f, &width, &height), nullptr);
    EXPECT_EQ(width, 1);
    EXPECT_EQ(height, 1);

    // Negative insets of kMin ask for a result beyond the size limit.
    cframe wide;
    qtzq_test::FrameFile file;
    file.inset(0, kMin, 0).inset(2, kMin, 0);
    Bytes bytes = file.bytes();
    wide.ReadFrameFile(bytes.data(), int(bytes.size()));
    width = height = -1;
    EXPECT_EQ(wide.GetCompositeImage(photo.data(), 4, 4, 1.0f, &width, &height), nullptr);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    // NaN scales the insets to 0: the photo comes back as it is.
    const unsigned char* image = wide.GetCompositeImage(
        photo.data(), 4, 4, std::numeric_limits<float>::quiet_NaN(), &width, &height);
    ASSERT_EQ(width, 4);
    EXPECT_EQ(Bytes(image, image + photo.size()), photo);
}

}  // namespace
