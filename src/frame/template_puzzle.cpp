// ctemplatepuzzle: the template collage's access to the global format table.
#include "frame/cell_index.h"
#include "frame/int_arith.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

namespace {

// Half a layout offset, computed in double precision and truncated.
int half_offset(int offset) {
    const double kHalf = 0.5;
    return truncate_int(offset * kHalf);
}

}  // namespace

ctemplatepuzzle::ctemplatepuzzle() : m_layoutOffsetX(0), m_layoutOffsetY(0) {}

ctemplatepuzzle::~ctemplatepuzzle() {}

int ctemplatepuzzle::ReadPuzzleFormatFile(unsigned char* data, int length) {
    return m_format.ReadPuzzleFormatFile(data, length);
}

int ctemplatepuzzle::GetFormatCount() { return m_format.GetPuzzleFormatCount(); }

_tagCGRect ctemplatepuzzle::GetFormatRectWithIndex(int index) {
    if (!is_stored_cell(index)) return {0, 0, 0, 0};
    _tagCGRect rect = m_format.GetPuzzleRectWithIndex(index);
    rect.x = wrapping_add(rect.x, half_offset(m_layoutOffsetX));
    rect.y = wrapping_add(rect.y, half_offset(m_layoutOffsetY));
    return rect;
}
