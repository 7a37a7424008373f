// Pictures at the screen's scale.
#include "simulator/springboard/drawn_image.hpp"

#include <utility>

#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/image.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::springboard {

UIImage drawnImage(CGSize size, DrawFunction draw) {
  return uikit::makeImage(size, uikit::configuration().scale, std::move(draw)).autoreleased();
}

void showPicture(UIView view, CGSize size, DrawFunction draw) {
  auto image = uikit::makeImage(size, uikit::configuration().scale, std::move(draw));
  uikit::layerOf(view).setContents([image] { return uikit::pixelsOf(image); }, uikit::pixelSizeOf(image),
                                   image->scale());
}

}  // namespace sim::springboard
