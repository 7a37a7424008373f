// UIToolbar: items side by side, flexible spaces between them.
#include "platform/uikit/toolbar.hpp"

#include <algorithm>
#include <vector>

#include "bridge/define.hpp"
#include "simulator/uikit/controls/bar_button_item.hpp"
#include "simulator/uikit/controls/toolbar_button.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr CGFloat usualHeight = 44, usualMargin = 16;  // points
constexpr CGFloat hairline = 0.5;
constexpr Color lightColor = rgb(0xf7f7f7, 0.97), lightEdge = rgb(0x000000, 0.3);
constexpr Color blackColorOfBar = rgb(0x161616), darkEdge = rgb(0xffffff, 0.15);
constexpr double translucentAlpha = 0.97;

// An item and what shows it; nothing does for a space.
struct Place {
  Strong<UIBarButtonItem> item;
  Strong<UIView> view;
};

struct ToolbarState {
  NSInteger barStyle = UIBarStyleDefault;
  Strong<NSArray> items;  // a copy
  std::vector<Place> places;
  Strong<UIView> edge;
};

using ToolbarClass = bridge::Implementation<UIToolbar, ToolbarState>;

struct Copied : bridge::Face<"NSArray", NSObject> {
  MESSAGE Method<"copy", NSArray()> copy;
};

ToolbarState& stateOf(UIToolbar self) { return ToolbarClass::state(self); }

void showStyle(UIToolbar self) {
  const NSInteger style = stateOf(self).barStyle;
  const bool isDark = style != UIBarStyleDefault;
  const double alpha = style == UIBarStyleBlackTranslucent ? translucentAlpha : 1;
  const auto color = makeColor(isDark ? withAlpha(blackColorOfBar, alpha) : lightColor);
  const auto edge = makeColor(isDark ? darkEdge : lightEdge);
  self.backgroundColor.set(color);
  stateOf(self).edge->backgroundColor.set(edge);
}

NSArray items(UIToolbar self) { return stateOf(self).items; }

Strong<UIView> viewFor(UIBarButtonItem item) {
  if (isFlexibleSpace(item)) return {};
  if (const UIView custom = item.customView()) return retained(custom);
  return makeToolbarButton(item);
}

void setItems(UIToolbar self, NSArray items) {
  ToolbarState& state = stateOf(self);
  for (const Place& place : state.places)
    if (place.view && place.view->superview() == self) place.view->removeFromSuperview();
  state.places.clear();
  state.items = bridge::as<Copied>(items).copy();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    const auto item = bridge::as<UIBarButtonItem>(items.objectAtIndex(i));
    state.places.push_back({retained(item), viewFor(item)});
    if (state.places.back().view) self.addSubview(state.places.back().view);
  }
  self.setNeedsLayout();
}

// A view of the user's keeps its size; a title has what it takes, and the bar's height to be tapped in.
CGSize sizeOf(const Place& place, CGFloat height) {
  if (!place.view) return {};
  if (place.item->customView()) return place.view->bounds().size;
  return {place.view->sizeThatFits({}).width, height};
}

void layoutSubviews(UIToolbar self) {
  const ToolbarState& state = stateOf(self);
  const CGSize bar = self.bounds().size;
  state.edge->frame.set({{0, 0}, {bar.width, hairline}});
  CGFloat used = 0;
  CGFloat spaces = 0;
  for (const Place& place : state.places) {
    used += sizeOf(place, bar.height).width;
    if (!place.view) ++spaces;
  }
  // Where the items need it, the margins give way.
  const CGFloat margin = std::clamp<CGFloat>((bar.width - used) / 2, 0.0, usualMargin);
  const CGFloat space = spaces > 0 ? std::max<CGFloat>(bar.width - 2 * margin - used, 0.0) / spaces : 0;
  CGFloat x = margin;
  for (const Place& place : state.places) {
    const CGSize size = sizeOf(place, bar.height);
    if (place.view) place.view->frame.set({{x, (bar.height - size.height) / 2}, size});
    x += place.view ? size.width : space;
  }
}

CGSize sizeThatFits(UIToolbar, CGSize size) { return {size.width, usualHeight}; }

Strong<UIView> initWithFrame(UIToolbar self, CGRect frame) {
  auto made = ToolbarClass::super<&UIView::initWithFrame>(self, frame);
  const auto bar = bridge::as<UIToolbar>(made.get());
  stateOf(bar).edge = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  stateOf(bar).edge->userInteractionEnabled.set(NO);
  bar.addSubview(stateOf(bar).edge);
  showStyle(bar);
  return made;
}

}  // namespace

void defineToolbar() {
  using bridge::method;
  using Face = UIToolbar;
  ToolbarClass::define<UIView>(method<&UIView::initWithFrame, initWithFrame>(),
                               method<&UIView::sizeThatFits, sizeThatFits>(),
                               method<&UIView::layoutSubviews, layoutSubviews>(),
                               ToolbarClass::property<&Face::barStyle, &ToolbarState::barStyle, showStyle>(),
                               bridge::property<&Face::items, items, setItems>());
}

}  // namespace sim::uikit
