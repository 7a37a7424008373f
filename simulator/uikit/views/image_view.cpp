// UIImageView.
#include "platform/uikit/image_view.hpp"

#include "bridge/define.hpp"
#include "simulator/uikit/drawing/image.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

struct ImageViewState {
  Strong<UIImage> image;
};

using ImageViewClass = bridge::Implementation<UIImageView, ImageViewState>;

UIImage image(UIImageView self) { return ImageViewClass::state(self).image; }

void setImage(UIImageView self, UIImage image) {
  ImageViewClass::state(self).image = retained(image);
  if (image)
    layerOf(self).setContents([kept = retained(image)] { return pixelsOf(kept); }, pixelSizeOf(image),
                              image.scale());
  else
    layerOf(self).setContents(Surface(), 1);
}

Strong<UIView> initWithFrame(UIImageView self, CGRect frame) {
  auto made = ImageViewClass::super<&UIView::initWithFrame>(self, frame);
  made->userInteractionEnabled.set(NO);
  return made;
}

Strong<UIImageView> initWithImage(UIImageView self, UIImage image) {
  auto made = bridge::initialised<&UIView::initWithFrame>(self, CGRect{{}, image.size()});
  made->image.set(image);
  return made;
}

CGSize sizeThatFits(UIImageView self, CGSize) { return self.image().size(); }

}  // namespace

void defineImageView() {
  using bridge::method;
  ImageViewClass::define<UIView>(method<&UIView::initWithFrame, initWithFrame>(),
                                 method<&UIImageView::initWithImage, initWithImage>(),
                                 bridge::property<&UIImageView::image, image, setImage>(),
                                 method<&UIView::sizeThatFits, sizeThatFits>());
}

}  // namespace sim::uikit
