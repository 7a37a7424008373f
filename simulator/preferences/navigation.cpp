// The bar, and the pages below it.
#include "simulator/preferences/navigation.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "bridge/define.hpp"
#include "platform/uikit/button.hpp"
#include "platform/uikit/image_view.hpp"
#include "simulator/preferences/list_controller.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/stock.hpp"

namespace sim::preferences {
namespace {

using bridge::Strong;

struct Navigation : bridge::Face<"PSNavigation", UIViewController> {
  MESSAGE Method<"sim_back:", void(bridge::Object)> back;
};

struct Page {
  Strong<PSListController> controller;
  Strong<NSString> title;
};

struct NavigationState {
  std::vector<Page> pages;
  Strong<UIView> bar, room, title, line;
};

using NavigationClass = bridge::Implementation<Navigation, NavigationState>;

constexpr CGFloat arrowWidth = 12, arrowHeight = 21, arrowLeft = 8, arrowGap = 6;
constexpr CGFloat barEnd = 8;  // points that stay free at the bar's right end

// Not retained: their window is.
struct Current {
  Navigation navigation;
  PSListController listBeside;
};
Current& current() {
  static Current now;
  return now;
}

Strong<UIButton> makeBackButton(Navigation self, NSString title) {
  auto button = bridge::make<UIButton, &UIView::initWithFrame>(CGRect{});
  const auto ink = uikit::makeColor(blue);
  button->titleLabel().font.set(UIFont::systemFontOfSize(textSize));
  button->setTitle_forState(title, UIControlStateNormal);
  button->setTitleColor_forState(ink, UIControlStateNormal);
  button->addTarget_action_forControlEvents(self, bridge::Descriptor<&Navigation::back>::selector(),
                                            UIControlEventTouchUpInside);
  const CGSize size = button->sizeThatFits({200, barHeight});
  const CGFloat top = springboard::device().statusBarHeight();
  button->frame.set({{arrowLeft + arrowWidth + arrowGap, top}, {size.width, barHeight}});
  return button;
}

Strong<UIView> makeArrow() {
  auto view = bridge::make<UIImageView, &UIView::initWithFrame>(
      CGRect{{arrowLeft, springboard::device().statusBarHeight() + (barHeight - arrowHeight) / 2},
             {arrowWidth, arrowHeight}});
  view->image.set(springboard::drawnImage({arrowWidth, arrowHeight}, [](cairo_t* context, CGSize) {
    setSource(context, blue);
    cairo_set_line_width(context, 3);
    for (const CGPoint& point : {CGPoint{11, 1}, CGPoint{2, 10.5}, CGPoint{11, 20}})
      cairo_line_to(context, point.x, point.y);
    cairo_stroke(context);
  }));
  return view;
}

void buildBar(Navigation self) {
  NavigationState& state = NavigationClass::state(self);
  const NSArray old = state.bar->subviews();
  for (NSUInteger i = old.count(); i > 0; --i)
    bridge::as<UIView>(old.objectAtIndex(i - 1)).removeFromSuperview();
  const CGFloat width = state.bar->bounds().size.width, height = state.bar->bounds().size.height;
  state.line = makeBox({{0, height - pixel()}, {width, pixel()}}, barLineColor);
  state.line->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  state.bar->addSubview(state.line);
  CGFloat left = barEnd;
  if (state.pages.size() > 1) {
    const auto arrow = makeArrow();
    state.bar->addSubview(arrow);
    const auto button = makeBackButton(self, state.pages[state.pages.size() - 2].title);
    state.bar->addSubview(button);
    left = button->frame().origin.x + button->frame().size.width + arrowGap;
  }
  // In the middle where it finds room there, else beside the way back.
  const auto title = makeLabel(state.pages.back().title, UIFont::boldSystemFontOfSize(textSize), textColor);
  const CGFloat wanted = std::ceil(title->sizeThatFits({width, barHeight}).width);
  const CGFloat x = std::max(std::min((width - wanted) / 2, width - barEnd - wanted), left);
  title->frame.set({{x, height - barHeight}, {std::min(wanted, width - barEnd - x), barHeight}});
  title->autoresizingMask.set(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin);
  state.bar->addSubview(title);
  state.title = title;
  followScrolling(state.pages.back().controller);
}

CGRect roomOf(Navigation self, CGFloat x) {
  const CGSize size = NavigationClass::state(self).room->bounds().size;
  return {{x, 0}, size};
}

void slide(UIView view, CGRect to, std::function<void()> after) {
  UIView::animateWithDuration_animations_completion(
      pushDuration, bridge::Block<void()>([view, to] { view.frame.set(to); }),
      bridge::Block<void(BOOL)>([after = std::move(after)](BOOL) { after(); }));
}

void add(Navigation self, PSListController page, NSString title, bool animated) {
  NavigationState& state = NavigationClass::state(self);
  const Strong<UIView> below =
      state.pages.empty() ? nullptr : bridge::retained(state.pages.back().controller->view());
  state.pages.push_back({bridge::retained(page), bridge::retained(title)});
  const CGFloat width = state.room->bounds().size.width;
  page.view().frame.set(roomOf(self, animated ? width : 0));
  page.viewWillAppear(animated);
  state.room->addSubview(page.view());
  buildBar(self);
  const auto seen = [below] {
    if (below) below->removeFromSuperview();
  };
  if (!animated) return seen();
  slide(page.view(), roomOf(self, 0), seen);
}

void back(Navigation self, bridge::Object) {
  NavigationState& state = NavigationClass::state(self);
  if (state.pages.size() < 2) return;
  const Page left = std::move(state.pages.back());
  state.pages.pop_back();
  const Page& page = state.pages.back();
  page.controller->view().frame.set(roomOf(self, 0));
  page.controller->viewWillAppear(YES);
  state.room->insertSubview_atIndex(page.controller->view(), 0);
  buildBar(self);
  slide(left.controller->view(), roomOf(self, state.room->bounds().size.width),
        [left] { left.controller->view().removeFromSuperview(); });
}

}  // namespace

UIViewController makeNavigation(CGRect frame, PSListController first, NSString title) {
  const auto made = bridge::as<Navigation>(bridge::make<Navigation, &NSObject::init>().leak());
  const auto view = bridge::make<UIView, &UIView::initWithFrame>(frame);
  made.view.set(view);
  view->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  view->clipsToBounds.set(YES);
  const CGFloat top = springboard::device().statusBarHeight() + barHeight;
  NavigationState& state = NavigationClass::state(made);
  state.bar = makeBox({{}, {frame.size.width, top}}, barColor);
  state.bar->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  state.room = makeBox({{0, top}, {frame.size.width, frame.size.height - top}}, background);
  state.room->clipsToBounds.set(YES);
  state.room->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  view->addSubview(state.room);
  view->addSubview(state.bar);
  if (first) add(made, first, title, false);
  return bridge::as<UIViewController>(bridge::autorelease(made.raw));
}

void pushInto(UIViewController navigation, PSListController listBeside) {
  current() = {bridge::as<Navigation>(navigation.raw), listBeside};
}

void push(PSListController page, PSListController from, NSString title) {
  const Navigation self = current().navigation;
  NavigationState& state = NavigationClass::state(self);
  const bool beside = from == current().listBeside;
  if (beside) {
    for (const Page& old : state.pages) old.controller->view().removeFromSuperview();
    state.pages.clear();
  }
  add(self, page, title, !beside);
}

bool standsBeside(PSListController controller) { return controller && controller == current().listBeside; }

void followScrolling(PSListController controller) {
  const UIView room = controller.view().superview();
  if (!room) return;
  const auto self = bridge::as<Navigation>(room.superview().nextResponder());
  const NavigationState& state = NavigationClass::state(self);
  if (!state.title || state.pages.back().controller.get() != controller) return;
  const CGFloat alpha = largeTitleSeen(controller) > 0 ? 0 : 1;
  state.title->alpha.set(alpha);
  state.line->alpha.set(alpha);
}

PSListController topPage() {
  const NavigationState& state = NavigationClass::state(current().navigation);
  return state.pages.empty() ? current().listBeside : state.pages.back().controller.get();
}

void defineNavigation() {
  NavigationClass::define<UIViewController>(bridge::method<&Navigation::back, back>());
}

}  // namespace sim::preferences
