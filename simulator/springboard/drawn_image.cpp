// Images at the screen's scale.
#include "simulator/springboard/drawn_image.hpp"

#include <utility>

#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/image.hpp"

namespace sim::springboard {

UIImage drawnImage(CGSize size, DrawFunction draw) {
  return uikit::makeImage(size, uikit::configuration().scale, std::move(draw)).autoreleased();
}

}  // namespace sim::springboard
