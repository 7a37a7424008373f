// The status bar's window.
#include "simulator/springboard/status_bar.hpp"

#include "platform/uikit/image_view.hpp"
#include "platform/uikit/screen.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/artwork/status_bar.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/stock.hpp"

namespace sim::springboard {
namespace {

struct StatusBar {
  bridge::Strong<UIWindow> window;
  bridge::Strong<UIImageView> picture;
  Color color = whiteColor;
};

StatusBar make() {
  StatusBar bar{bridge::make<UIWindow, &UIView::initWithFrame>(CGRect{}),
                bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{})};
  bar.window->windowLevel.set(UIWindowLevelStatusBar);
  bar.window->userInteractionEnabled.set(NO);
  bar.window->addSubview(bar.picture);
  return bar;
}

StatusBar& statusBar() {
  static auto& bar = *new StatusBar(make());
  return bar;
}

}  // namespace

void showStatusBar(const Color& color) {
  statusBar().color = color;
  turnStatusBar();
}

void turnStatusBar() {
  const StatusBar& bar = statusBar();
  CGRect frame{{0, 0}, {UIScreen::mainScreen().bounds().size.width, device().statusBarHeight()}};
  bar.window->frame.set(frame);
  bar.picture->frame.set(frame);
  bar.picture->image.set(drawnImage(frame.size, [color = bar.color](cairo_t* context, CGSize size) {
    drawStatusBar(context, size, {.color = color});
  }));
  bar.window->hidden.set(NO);
}

}  // namespace sim::springboard
