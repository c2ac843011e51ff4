// Frames, collages (puzzles) and speech bubbles, with their file readers.
#ifndef QTZQEFFECT_FRAME_H
#define QTZQEFFECT_FRAME_H

#include "qtzqeffect/export.h"

#endif  // QTZQEFFECT_FRAME_H
