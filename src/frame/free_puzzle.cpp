// cfreepuzzle: construction and the questions asked of a laid-out collage.
#include "frame/cell_index.h"
#include "frame/int_arith.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

cfreepuzzle::cfreepuzzle() : m_resultSize(), m_cell(), m_count(0) {}

cfreepuzzle::~cfreepuzzle() {}

_tagCGSize cfreepuzzle::GetResultSize() { return m_resultSize; }

int cfreepuzzle::GetCount() { return m_count; }

float cfreepuzzle::GetRotationWithIndex(int index) {
    if (!is_stored_cell(index, m_count)) return 0.0f;
    return m_cell[index].rotation;
}

_tagCGRect cfreepuzzle::GetMaxRectWithIndex(int index) {
    if (!is_stored_cell(index, m_count)) return {0, 0, 0, 0};
    const Cell& cell = m_cell[index];
    return {cell.x, cell.y, cell.width, cell.height};
}

_tagCGRect cfreepuzzle::GetViewRectWithIndex(int index, _tagCGSize photo) {
    if (!is_stored_cell(index, m_count)) return {0, 0, 0, 0};
    return ChangeRectWithMaxRect(photo, GetMaxRectWithIndex(index));
}

_tagCGRect cfreepuzzle::ChangeRectWithMaxRect(_tagCGSize photo, _tagCGRect rect) {
    if (photo.width < 1 || photo.height < 1) return {0, 0, 0, 0};
    // Double precision, as required.
    const double photo_width = photo.width;
    const double photo_height = photo.height;
    const double kNoEnlargement = 1.0;
    const double kHalf = 0.5;
    const double by_width = rect.width / photo_width;
    const double by_height = rect.height / photo_height;
    double k = by_height < by_width ? by_height : by_width;
    if (k > kNoEnlargement) k = kNoEnlargement;
    const int width = truncate_int(k * photo_width);
    const int height = truncate_int(k * photo_height);
    const int left = truncate_int(rect.x + (static_cast<double>(rect.width) - width) * kHalf);
    const int top = truncate_int(rect.y + (static_cast<double>(rect.height) - height) * kHalf);
    return {left, top, width, height};
}
