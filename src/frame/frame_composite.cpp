// cframe: building the framed photo from the photo and the decoded pieces.
#include <array>
#include <cstdint>
#include <cstring>

#include "frame/buffer_size.h"
#include "frame/frame_slots.h"
#include "frame/int_arith.h"
#include "frame/paint.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

namespace {

// What each role is, in role order.
enum Role {
    kTopLeft,
    kBottomLeft,
    kTopRight,
    kBottomRight,
    kTopEdge,
    kBottomEdge,
    kLeftEdge,
    kRightEdge,
};

// A role's piece as compositing sees it, in 64-bit so that no combination
// of file values can overflow.
struct RolePiece {
    const unsigned char* pixels;  // null unless present and holding a block
    int width, height;
    std::int64_t inset_x, inset_y;  // corners only
};
using RolePieces = std::array<RolePiece, kFrameSlots>;

// Where the framed photo's parts go.
struct FrameLayout {
    std::int64_t crop_x, crop_y;    // part of each inner span not filled by whole edge pieces
    std::int64_t width, height;     // of the result, at least 1
    std::int64_t tiles_x, tiles_y;  // edge pieces along the top and along the left
};

// Replaces each inset by trunc(inset * scale + 0.5), in single precision
// as required.
void scale_insets(int (&insets)[kFrameCorners], float scale) {
    const float kHalf = 0.5f;
    for (int& inset : insets) inset = truncate_int(static_cast<float>(inset) * scale + kHalf);
}

// Remainder and count of whole tiles of `span`; a tile size of 0 leaves the
// span whole and gives no tiles.
void tile_span(std::int64_t span, std::int64_t tile, std::int64_t& remainder, std::int64_t& tiles) {
    remainder = tile > 0 ? span % tile : 0;
    tiles = tile > 0 ? (span - remainder) / tile : 0;
}

FrameLayout layout_frame(const RolePieces& p, int photo_width, int photo_height) {
    FrameLayout layout{};
    const std::int64_t span_x = photo_width - p[kTopLeft].inset_x - p[kTopRight].inset_x;
    const std::int64_t span_y = photo_height - p[kTopLeft].inset_y - p[kBottomLeft].inset_y;
    tile_span(span_x, p[kTopEdge].width, layout.crop_x, layout.tiles_x);
    tile_span(span_y, p[kLeftEdge].height, layout.crop_y, layout.tiles_y);
    const std::int64_t width = span_x + p[kTopLeft].width + p[kTopRight].width - layout.crop_x;
    const std::int64_t height = span_y + p[kTopLeft].height + p[kBottomLeft].height - layout.crop_y;
    layout.width = width < 1 ? 1 : width;
    layout.height = height < 1 ? 1 : height;
    return layout;
}

// The photo, cropped by half of each remainder, at the top-left corner's
// size less its insets.
void paint_photo(const PaintTarget& target, const PaintSource& photo, const RolePieces& p,
                 const FrameLayout& layout) {
    const std::int64_t left = layout.crop_x / 2;
    const std::int64_t top = layout.crop_y / 2;
    paint_region(target, photo, p[kTopLeft].width - p[kTopLeft].inset_x,
                 p[kTopLeft].height - p[kTopLeft].inset_y,
                 {left, top, photo.width - left, photo.height - top});
}

void paint_piece(const PaintTarget& target, const RolePiece& piece, std::int64_t x,
                 std::int64_t y) {
    paint_image(target, {piece.pixels, piece.width, piece.height}, x, y);
}

void paint_corners(const PaintTarget& target, const RolePieces& p, const FrameLayout& layout) {
    paint_piece(target, p[kTopLeft], 0, 0);
    paint_piece(target, p[kBottomLeft], 0, layout.height - p[kBottomLeft].height);
    paint_piece(target, p[kTopRight], layout.width - p[kTopRight].width, 0);
    paint_piece(target, p[kBottomRight], layout.width - p[kBottomRight].width,
                layout.height - p[kBottomRight].height);
}

// The bottom edge sits on the bottom-left corner's height, not its own, and
// the right edge on the top-right corner's width.
void paint_edges(const PaintTarget& target, const RolePieces& p, const FrameLayout& layout) {
    for (std::int64_t i = 0; i < layout.tiles_x; ++i) {
        const std::int64_t x = p[kTopLeft].width + i * p[kTopEdge].width;
        paint_piece(target, p[kTopEdge], x, 0);
        paint_piece(target, p[kBottomEdge], x, layout.height - p[kBottomLeft].height);
    }
    for (std::int64_t j = 0; j < layout.tiles_y; ++j) {
        const std::int64_t y = p[kTopLeft].height + j * p[kLeftEdge].height;
        paint_piece(target, p[kLeftEdge], 0, y);
        paint_piece(target, p[kRightEdge], layout.width - p[kTopRight].width, y);
    }
}

void store_size(int* out_width, int* out_height, int width, int height) {
    if (out_width) *out_width = width;
    if (out_height) *out_height = height;
}

}  // namespace

unsigned char* cframe::GetCompositeImage(unsigned char* photo, int width, int height, float scale,
                                         int* out_width, int* out_height) {
    delete[] m_compositeImage;
    m_compositeImage = nullptr;
    store_size(out_width, out_height, 0, 0);
    std::size_t photo_bytes = 0;
    if (photo == nullptr || width < 1 || height < 1 ||
        !pixel_buffer_bytes(width, height, photo_bytes))
        return nullptr;

    // The scaled insets replace the stored ones for good.
    if (scale != 1.0f) {
        scale_insets(m_insetX, scale);
        scale_insets(m_insetY, scale);
    }

    // Each role through the role table. Slots present but not yet decoded
    // have size 0 x 0 and paint nothing.
    RolePieces pieces;
    for (int role = 0; role < kFrameSlots; ++role) {
        const int s = m_role[role];
        const bool corner = s < kFrameCorners;
        pieces[role] = {m_present[s] == kSlotPresent ? m_pieceData[s] : nullptr,
                        m_pieceSize[s].width, m_pieceSize[s].height, corner ? m_insetX[s] : 0,
                        corner ? m_insetY[s] : 0};
    }

    const FrameLayout layout = layout_frame(pieces, width, height);
    std::size_t bytes = 0;
    if (!pixel_buffer_bytes(layout.width, layout.height, bytes)) return nullptr;
    const PaintTarget target{new unsigned char[bytes], static_cast<int>(layout.width),
                             static_cast<int>(layout.height)};
    m_compositeImage = target.pixels;
    std::memset(m_compositeImage, 255, bytes);  // opaque white
    store_size(out_width, out_height, target.width, target.height);

    paint_photo(target, {photo, width, height}, pieces, layout);
    paint_corners(target, pieces, layout);
    paint_edges(target, pieces, layout);
    return m_compositeImage;
}
