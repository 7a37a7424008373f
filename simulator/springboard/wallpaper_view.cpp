// The wallpaper's view.
#include "simulator/springboard/wallpaper_view.hpp"

#include "simulator/artwork/wallpaper.hpp"
#include "simulator/springboard/drawn_image.hpp"

namespace sim::springboard {

bridge::Strong<UIImageView> makeWallpaperView(CGSize size) {
  auto view = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{{0, 0}, size});
  view->setContentMode(UIViewContentModeScaleAspectFill);
  view->setClipsToBounds(YES);
  view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  view->setImage(drawnImage(size, [](cairo_t* context, CGSize area) { drawWallpaper(context, area); }));
  return view;
}

}  // namespace sim::springboard
