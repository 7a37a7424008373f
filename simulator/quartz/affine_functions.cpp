// The C functions that make affine transforms.
#include "platform/coregraphics/affine_transform.hpp"
#include "simulator/quartz/affine.hpp"
#include "simulator/runtime/export.hpp"

SIMULATOR_EXPORT CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
  return sim::rotation(angle);
}
