// What has changed goes quickly or exactly, what was quick goes again when it is still.
#include "simulator/serve/viewer.hpp"

#include <algorithm>

#include "simulator/uikit/base/configuration.hpp"

namespace sim::serve {
namespace {

// So many tiles are sent exactly at once: a blinking caret, a number that steps.
constexpr long fewTiles = 9;

}  // namespace

void Viewer::hasDrawn(double frame) {
  drawn = static_cast<std::uint32_t>(std::clamp<double>(frame, drawn, sent));
}

void Viewer::miss(const Region& damage) {
  for (const PixelRect& rect : damage.rectangles()) unseen.add(rect);
}

Viewer::Next Viewer::show(const Surface& picture, bool moving) {
  Tiles wanted = Tiles::changed(shown.get(), picture.get(), unseen);
  const bool isChange = wanted.any();
  if (!inexact.isShapedAs(wanted)) inexact = wanted.none();
  const Codec codec = shown && wanted.count() > fewTiles ? Codec::jpeg : Codec::webp;
  if (codec == Codec::jpeg) {
    inexact.add(wanted);
  } else {
    if (!moving) wanted.add(inexact);
    inexact.remove(wanted);
  }
  shown = picture;
  unseen.clear();
  if (!wanted.any()) return {};
  return {isChange, encodeFrame(++sent, picture.get(), uikit::screenSize(), wanted, codec)};
}

}  // namespace sim::serve
