// UIImage.
#include "simulator/uikit/drawing/image.hpp"

#include <cmath>
#include <utility>

#include "bridge/define.hpp"

namespace sim::uikit {
namespace {

struct ImageState {
  CGSize size{};     // points
  double scale = 1;  // pixels per point
  Surface pixels;    // none while the drawing is due
  DrawFunction draw;
};

using ImageClass = bridge::Implementation<UIImage, ImageState>;

CGSize size(UIImage self) { return ImageClass::state(self).size; }
CGFloat scale(UIImage self) { return ImageClass::state(self).scale; }

int wholePixels(double length) { return static_cast<int>(std::ceil(length - 1e-6)); }

}  // namespace

bridge::Strong<UIImage> makeImage(Surface pixels, double scale) {
  auto image = bridge::make<UIImage, &NSObject::init>();
  const CGSize size{cairo_image_surface_get_width(pixels.get()) / scale,
                    cairo_image_surface_get_height(pixels.get()) / scale};
  ImageClass::state(image) = {size, scale, std::move(pixels), {}};
  return image;
}

bridge::Strong<UIImage> makeImage(CGSize size, double scale, DrawFunction draw) {
  auto image = bridge::make<UIImage, &NSObject::init>();
  ImageClass::state(image) = {size, scale, {}, std::move(draw)};
  return image;
}

Surface pixelsOf(UIImage image) {
  if (!image) return {};
  ImageState& state = ImageClass::state(image);
  if (state.draw) {
    const CGSize pixels = pixelSizeOf(image);
    state.pixels = sim::makeImage(static_cast<int>(pixels.width), static_cast<int>(pixels.height));
    Context context(state.pixels.get());
    cairo_scale(context, state.scale, state.scale);
    state.draw(context, state.size);
    cairo_surface_flush(state.pixels.get());
    state.draw = nullptr;
  }
  return state.pixels;
}

CGSize pixelSizeOf(UIImage image) {
  const ImageState& state = ImageClass::state(image);
  return {static_cast<double>(wholePixels(state.size.width * state.scale)),
          static_cast<double>(wholePixels(state.size.height * state.scale))};
}

void defineImage() {
  ImageClass::define<NSObject>(bridge::method<&UIImage::size, size>(),
                               bridge::method<&UIImage::scale, scale>());
}

}  // namespace sim::uikit
