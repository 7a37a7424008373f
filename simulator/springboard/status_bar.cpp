// The status bar's window.
#include "simulator/springboard/status_bar.hpp"

#include "platform/uikit/image_view.hpp"
#include "platform/uikit/screen.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/artwork/status_bar.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/stock.hpp"

namespace sim::springboard {

void showStatusBar() {
  CGFloat height = device().statusBarHeight();
  CGSize screen = UIScreen::mainScreen().bounds().size;
  static auto& window = *new bridge::Strong<UIWindow>(
      bridge::make<UIWindow, &UIView::initWithFrame>(CGRect{{0, 0}, {screen.width, height}}));
  window->setWindowLevel(UIWindowLevelStatusBar);
  window->setUserInteractionEnabled(NO);
  auto bar = bridge::make<UIImageView, &UIView::initWithFrame>(window->bounds());
  bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  bar->setImage(
      drawnImage(window->bounds().size, [](cairo_t* context, CGSize size) { drawStatusBar(context, size); }));
  window->addSubview(bar);
  window->setHidden(NO);
}

}  // namespace sim::springboard
