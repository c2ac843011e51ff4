// cframe: construction, destruction and the exchange of piece blocks with
// the application.
#include <cstring>

#include "frame/buffer_size.h"
#include "frame/frame_slots.h"
#include "qtzqeffect/frame.h"

using namespace qtzq;

cframe::cframe()
    : m_role(),
      m_pieceCount(kFrameSlots),
      m_compositeImage(nullptr),
      m_insetX(),
      m_insetY(),
      m_present(),
      m_pieceData(),
      m_pieceSize(),
      m_pieceLength() {
    for (int role = 0; role < kFrameSlots; ++role) m_role[role] = role;
}

cframe::~cframe() {
    for (unsigned char* block : m_pieceData) delete[] block;
    delete[] m_compositeImage;
}

unsigned char* cframe::GetFrameImage(int slot, int& length) {
    if (!is_frame_slot(slot)) {
        length = 0;
        return nullptr;
    }
    length = m_pieceLength[slot];
    return m_pieceData[slot];
}

void cframe::SetFrameImageData(int slot, unsigned char* pixels, int width, int height) {
    std::size_t bytes = 0;
    if (!is_frame_slot(slot) || !pixel_buffer_bytes(width, height, bytes)) return;
    if (pixels == nullptr && bytes > 0) return;
    // Copy before releasing: the caller may hand back the slot's own block.
    unsigned char* block = new unsigned char[bytes];
    if (bytes > 0) std::memcpy(block, pixels, bytes);
    delete[] m_pieceData[slot];
    m_pieceData[slot] = block;
    m_pieceSize[slot] = {width, height};
}
