// What has changed goes quickly or exactly, what was quick goes again when it is still.
#include "simulator/serve/viewer.hpp"

#include <algorithm>

#include "simulator/uikit/base/configuration.hpp"

namespace sim::serve {
namespace {

// Less than this many pixels are sent exactly at once: a blinking caret, a number that steps.
constexpr long fewPixels = 40'000;

}  // namespace

void Viewer::hasDrawn(double frame) {
  drawn = std::clamp(static_cast<std::uint32_t>(std::clamp(frame, 0.0, 4e9)), drawn, sent);
}

void Viewer::miss(const Region& damage) {
  for (const PixelRect& rect : damage.rectangles()) unseen.add(rect);
}

Viewer::Next Viewer::show(const Surface& picture, bool moving) {
  Tiles wanted = Tiles::changed(shown.get(), picture.get(), unseen);
  const bool isChange = wanted.any();
  if (!inexact.isShapedAs(wanted)) inexact = wanted.none();
  const Codec codec = shown && wanted.area() > fewPixels ? Codec::jpeg : Codec::webp;
  if (codec == Codec::jpeg) {
    inexact.add(wanted);
  } else {
    if (!moving) wanted.add(inexact);
    inexact.remove(wanted);
  }
  shown = picture;
  unseen.clear();
  if (!wanted.any()) return {isChange, std::nullopt};
  return {isChange, encodeFrame(++sent, picture.get(), uikit::screenSize(), wanted, codec)};
}

}  // namespace sim::serve
