// SBIconView: an icon's picture with its label below.
#include "simulator/springboard/icon_view.hpp"

#include <string>

#include "bridge/define.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/font.hpp"
#include "simulator/artwork/app_icon.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/stock.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat labelHeight = 14;   // points, from the picture to the view's lower edge
constexpr CGFloat labelOverhang = 8;  // points on either side of the picture; longer names are cut short
constexpr CGFloat labelFontSize = 12;

struct IconViewState {
  bridge::Strong<SBIcon> icon;
  bridge::Strong<SBIconImageView> image;
  bridge::Strong<UILabel> label;
};

using View = bridge::Implementation<SBIconView, IconViewState>;

struct ImageViewState {
  bool square = false;
};

using ImageView = bridge::Implementation<SBIconImageView, ImageViewState>;

CGSize defaultIconImageSize(Class) { return iconImageSize(); }

BOOL showsSquareCorners(SBIconImageView self) { return ImageView::state(self).square; }

void layoutView(SBIconView self) {
  View::super<&UIView::layoutSubviews>(self);
  auto& state = View::state(self);
  CGSize size = iconImageSize();
  state.image->setFrame({{0, 0}, size});
  state.label->setFrame({{-labelOverhang, size.height}, {size.width + 2 * labelOverhang, labelHeight}});
}

bridge::Strong<UILabel> makeLabel(NSString text) {
  auto label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  label->setText(text);
  label->setFont(UIFont::systemFontOfSize(labelFontSize));
  label->setTextColor(UIColor::whiteColor());
  label->setShadowColor(UIColor::colorWithWhite_alpha(0, 0.35));
  label->setShadowOffset({0, 1});
  label->setTextAlignment(NSTextAlignmentCenter);
  return label;
}

}  // namespace

bridge::Strong<SBIconView> makeIconView(SBIcon icon) {
  auto view = bridge::make<SBIconView, &UIView::initWithFrame>(CGRect{{0, 0}, iconViewSize()});
  auto& state = View::state(view.get());
  state.icon = bridge::retained(icon);
  std::string name = icon.displayName().UTF8String();
  state.image = bridge::make<SBIconImageView, &UIView::initWithFrame>(CGRect{{0, 0}, iconImageSize()});
  state.image->setImage(drawnImage(iconImageSize(), [name](cairo_t* context, CGSize size) {
    drawAppIcon(context, name, size.width, IconCorners::rounded);
  }));
  state.label = makeLabel(icon.displayName());
  view->addSubview(state.image);
  view->addSubview(state.label);
  return view;
}

SBIcon iconOf(SBIconView view) { return View::state(view).icon.get(); }
SBIconImageView imageViewOf(SBIconView view) { return View::state(view).image.get(); }
UILabel labelOf(SBIconView view) { return View::state(view).label.get(); }

void defineIconView() {
  using bridge::method;
  ImageView::define<UIImageView>(method<&SBIconImageView::showsSquareCorners, showsSquareCorners>());
  View::define<UIView>(method<&SBIconView::defaultIconImageSize, defaultIconImageSize>(),
                       method<&UIView::layoutSubviews, layoutView>());
}

}  // namespace sim::springboard
