// SBIconView: an icon's picture with its label below. A tap opens what it stands for.
#include "simulator/springboard/icon_view.hpp"

#include "platform/uikit/gesture_recognizer.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/icon_image_view.hpp"
#include "simulator/springboard/icon_label.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat labelHeight = 14;   // points, from the picture to the view's lower edge
constexpr CGFloat labelOverhang = 8;  // points on either side of the picture; longer names are cut short
constexpr CGFloat badgeSide = 22;     // points

struct IconViewState {
  bridge::Strong<SBIcon> icon;
  bridge::Strong<SBIconImageView> image;
  bridge::Strong<SBIconLabelImageParameters> parameters;
  bridge::Strong<UIImageView> label;
  bridge::Strong<UIImageView> badge;
  ShownLabel shown{};
};

using View = bridge::Implementation<SBIconView, IconViewState>;

// The action of the icon's own tap recogniser.
struct TappableIcon : bridge::Face<"SBIconView", SBIconView> {
  MESSAGE Method<"sim_tapped:", void(bridge::Object)> tapped;
};

void tapped(TappableIcon self, bridge::Object) {
  bridge::as<IconTaps>(SBIconController::sharedInstance()).iconTapped(self);
}

CGSize defaultIconImageSize(Class) { return iconImageSize(); }

void layOutLabel(SBIconView self) {
  auto& state = View::state(self);
  CGRect room{{-labelOverhang, iconImageSize().height},
              {iconImageSize().width + 2 * labelOverhang, labelHeight}};
  LabelPicture picture = labelPicture(state.parameters.get(), room);
  state.label->frame.set(picture.image ? room : picture.frame);
  state.label->image.set(picture.image);
  state.shown = {picture.frame, picture.image && !picture.clear};
}

void layoutView(SBIconView self) {
  bridge::Pool pool;
  View::super<&UIView::layoutSubviews>(self);
  auto& state = View::state(self);
  state.image->frame.set({{0, 0}, iconImageSize()});
  state.image->setNeedsLayout();
  layOutLabel(self);
}

void drawBadge(cairo_t* context, CGSize size) {
  double middle = size.width / 2;
  cairo_set_source_rgba(context, 0.85, 0.85, 0.87, 0.95);
  cairo_arc(context, middle, middle, middle, 0, 2 * 3.14159265358979);
  cairo_fill(context);
  cairo_set_source_rgb(context, 0.2, 0.2, 0.22);
  cairo_set_line_width(context, 2);
  double arm = size.width * 0.2;
  cairo_move_to(context, middle - arm, middle - arm);
  cairo_line_to(context, middle + arm, middle + arm);
  cairo_move_to(context, middle + arm, middle - arm);
  cairo_line_to(context, middle - arm, middle + arm);
  cairo_stroke(context);
}

}  // namespace

bridge::Strong<SBIconView> makeIconView(SBIcon icon) {
  auto view = bridge::make<SBIconView, &UIView::initWithFrame>(CGRect{{0, 0}, iconViewSize()});
  auto& state = View::state(view.get());
  state.icon = bridge::retained(icon);
  state.image = makeIconImageView(nameOf(icon).UTF8String());
  state.parameters = makeLabelParameters(nameOf(icon));
  state.label = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{});
  view->addSubview(state.image);
  view->addSubview(state.label);
  // The view keeps the recogniser, which does not keep its target.
  auto tap = bridge::make<UITapGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(
      view, bridge::selector<"sim_tapped:">());
  view->addGestureRecognizer(tap);
  return view;
}

SBIcon iconOf(SBIconView view) { return View::state(view).icon.get(); }
SBIconImageView imageViewOf(SBIconView view) { return View::state(view).image.get(); }

ShownLabel labelOf(SBIconView view) {
  auto& state = View::state(view);
  return {state.shown.frame, state.shown.visible && !state.label->hidden()};
}

void hideLabel(SBIconView view, bool hidden) { View::state(view).label->hidden.set(hidden); }

void showEditingBadge(SBIconView view, bool shown) {
  auto& state = View::state(view);
  if (!shown) {
    if (state.badge) state.badge->removeFromSuperview();
    state.badge.clear();
    return;
  }
  if (state.badge) return;
  CGRect corner{{-badgeSide / 3, -badgeSide / 3}, {badgeSide, badgeSide}};
  state.badge = bridge::make<UIImageView, &UIView::initWithFrame>(corner);
  state.badge->image.set(drawnImage(corner.size, drawBadge));
  view.addSubview(state.badge);
}

void defineIconView() {
  defineSystemClass<View>(own<&SBIconView::defaultIconImageSize, defaultIconImageSize>(),
                          own<&UIView::layoutSubviews, layoutView>(), own<&TappableIcon::tapped, tapped>());
}

}  // namespace sim::springboard
