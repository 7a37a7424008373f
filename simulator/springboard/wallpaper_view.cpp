// The wallpaper's view.
#include "simulator/springboard/wallpaper_view.hpp"

#include "simulator/artwork/wallpaper.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::springboard {

bridge::Strong<UIImageView> makeWallpaperView(CGSize size) {
  auto view = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{{0, 0}, size});
  view->contentMode.set(UIViewContentModeScaleAspectFill);
  view->clipsToBounds.set(YES);
  view->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  view->image.set(drawnImage(size, [](cairo_t* context, CGSize area) {
    const Surface picture = wallpaper(area, uikit::configuration().scale);
    cairo_identity_matrix(context);
    cairo_set_source_surface(context, picture.get(), 0, 0);
    cairo_paint(context);
  }));
  return view;
}

}  // namespace sim::springboard
