// csbubble: the text box and text colour of a speech bubble file.
#include <cstdint>

#include "frame/byte_reader.h"
#include "frame/int_arith.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

namespace {

// Bubble file layout; the rest of the file is the balloon artwork.
constexpr std::int64_t kLeftOffset = 187;
constexpr std::int64_t kTopOffset = 191;
constexpr std::int64_t kRightOffset = 211;
constexpr std::int64_t kBottomOffset = 215;
constexpr std::int64_t kColorOffset = 220;
constexpr int kColorBytes = 4;
constexpr std::int64_t kShortestFile = kColorOffset + kColorBytes;

// What the reader answers, whatever the file.
constexpr int kReadResult = 383;

// The text is always drawn opaque: colour byte 3 reads as 255.
constexpr int kAlphaIndex = 3;
constexpr unsigned char kOpaque = 255;

}  // namespace

csbubble::csbubble()
    : m_left(0), m_top(0), m_right(0), m_bottom(0), m_textColor(), m_textDrawRect() {}

int csbubble::ReadFrameFile(unsigned char* data, int length) {
    const ByteReader file(data, length);
    if (!file.contains(0, kShortestFile)) return kReadResult;
    m_left = file.i32(kLeftOffset);
    m_top = file.i32(kTopOffset);
    m_right = file.i32(kRightOffset);
    m_bottom = file.i32(kBottomOffset);
    for (int i = 0; i < kColorBytes; ++i) m_textColor[i] = file.u8(kColorOffset + i);
    m_textDrawRect = {m_left, m_top, wrapping_sub(m_right, m_left), wrapping_sub(m_bottom, m_top)};
    return kReadResult;
}

_tagCGRect csbubble::GetTextDrawRect() { return m_textDrawRect; }

unsigned char csbubble::GetTextColorWithIndex(int index) {
    if (index == kAlphaIndex) return kOpaque;
    if (index < 0 || index >= kColorBytes) return 0;
    return m_textColor[index];
}
