// One at a time.
#include "tests/simulator/serve/glass.hpp"

#include <fmt/format.h>

#include "bridge/define.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/screen.hpp"
#include "platform/uikit/touch.hpp"

namespace test {
namespace {

struct GlassView : bridge::Face<"TestGlass", UIView> {};

Glass* only = nullptr;

void note(const char* phase, NSSet touches) {
  const NSArray all = touches.allObjects();
  for (NSUInteger i = 0; i < all.count(); ++i) {
    const UITouch touch = bridge::as<UITouch>(all.objectAtIndex(i));
    const CGPoint at = touch.locationInView({});
    only->touches.push_back(fmt::format("{} {} {} force {}", phase, at.x, at.y, touch.force()));
  }
  const auto call = only->whenTouched;  // which may put another in its place
  call();
}

void began(GlassView, NSSet touches, UIEvent) { note("began", touches); }
void moved(GlassView, NSSet touches, UIEvent) { note("moved", touches); }
void ended(GlassView, NSSet touches, UIEvent) { note("ended", touches); }

}  // namespace

Glass::Glass() {
  only = this;
  bridge::Implementation<GlassView>::define<UIView>(
      bridge::method<&UIResponder::touchesBegan_withEvent, began>(),
      bridge::method<&UIResponder::touchesMoved_withEvent, moved>(),
      bridge::method<&UIResponder::touchesEnded_withEvent, ended>());
  window = bridge::make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
  window->makeKeyAndVisible();
  pane = bridge::make<GlassView, &UIView::initWithFrame>(window->bounds());
  pane->multipleTouchEnabled.set(YES);
  window->addSubview(pane);
}

Glass::~Glass() { only = nullptr; }

void Glass::paint(CGRect place) {
  const auto patch = bridge::make<UIView, &UIView::initWithFrame>(place);
  patch->userInteractionEnabled.set(NO);
  patch->backgroundColor.set(UIColor::colorWithRed_green_blue_alpha(++painted * 0.1, 0.5, 0.5, 1));
  pane->addSubview(patch);
}

}  // namespace test
