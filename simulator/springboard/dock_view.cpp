// SBDockView: a translucent background with the dock's icons in front of it.
#include "simulator/springboard/dock_view.hpp"

#include "platform/uikit/image_view.hpp"
#include "simulator/artwork/dock_background.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

constexpr double floatingCornerRadius = 32;  // points

struct DockState {
  bridge::Strong<UIImageView> background;
  bridge::Strong<SBDockIconListView> list;
  CGSize drawnFor{};
};

using Panel = bridge::Implementation<SBDockView, DockState>;

CGFloat defaultHeight(Class) { return stockDock(UIInterfaceOrientationPortrait).thickness; }

void drawBackground(DockState& state, CGSize size, bool floating) {
  if (state.drawnFor == size || size.width <= 0 || size.height <= 0) return;
  state.drawnFor = size;
  state.background->image.set(drawnImage(size, [floating](cairo_t* context, CGSize area) {
    drawDockBackground(context, area, floating ? floatingCornerRadius : 0);
  }));
}

void layoutSubviews(SBDockView self) {
  Panel::super<&UIView::layoutSubviews>(self);
  auto& state = Panel::state(self);
  CGRect bounds = self.bounds();
  state.background->frame.set(bounds);
  state.list->frame.set(bounds);
  drawBackground(state, bounds.size, stockDock(currentOrientation()).floating);
}

void setBackgroundAlpha(SBDockView self, CGFloat alpha) { Panel::state(self).background->alpha.set(alpha); }

}  // namespace

UIView dockBackground(SBDockView view) { return Panel::state(view).background.get(); }

bridge::Strong<SBDockView> makeDockView(SBDockIconListView list) {
  auto view = bridge::make<SBDockView, &UIView::initWithFrame>(CGRect{});
  auto& state = Panel::state(view.get());
  state.background = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{});
  state.list = bridge::retained(list);
  view->addSubview(state.background);
  view->addSubview(list);
  return view;
}

void defineDockView() {
  defineSystemClass<Panel>(own<&SBDockView::defaultHeight, defaultHeight>(),
                           own<&SBDockView::setBackgroundAlpha, setBackgroundAlpha>(),
                           own<&UIView::layoutSubviews, layoutSubviews>());
}

}  // namespace sim::springboard
