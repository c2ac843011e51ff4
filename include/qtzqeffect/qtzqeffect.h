// libQtzqeffect: photo effects on BGRA pixel buffers.
//
// Include this header for the whole public surface, or the subsystem
// headers beside it for one part of it.
#ifndef QTZQEFFECT_QTZQEFFECT_H
#define QTZQEFFECT_QTZQEFFECT_H

#include "qtzqeffect/blur.h"
#include "qtzqeffect/curve.h"
#include "qtzqeffect/facade.h"
#include "qtzqeffect/frame.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

#endif  // QTZQEFFECT_QTZQEFFECT_H
