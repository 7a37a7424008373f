// Functions that make CGAffineTransforms.
#pragma once

#include "platform/coregraphics/geometry.hpp"

extern "C" {
// Turns by that many radians; positive ones turn x towards y, which is clockwise on the screen.
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);
}
