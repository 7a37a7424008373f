// SBIconImageView: draws its application's artwork, with the corners that it is asked to show.
#include "simulator/springboard/icon_image_view.hpp"

#include <chrono>
#include <optional>

#include "simulator/artwork/app_icon.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

struct ImageState {
  std::string name;
  bool square = false;
  std::optional<bool> drawnSquare;
  std::chrono::sys_days drawnOn;  // calendars show the day
};

using ImageView = bridge::Implementation<SBIconImageView, ImageState>;

CGFloat cornerRadius(Class) { return iconImageSize().width * iconCornerFraction; }

BOOL showsSquareCorners(SBIconImageView self) { return ImageView::state(self).square; }

// A folder shows its icons, small, on a panel of its own.
void drawFolder(cairo_t* context, CGFloat side, IconCorners corners) {
  constexpr int across = 3;
  CGFloat gap = side * 0.09, small = (side - (across + 1) * gap) / across;
  CGFloat radius = corners == IconCorners::square ? 0 : side * iconCornerFraction;
  addContinuousRect(context, {{0, 0}, {side, side}}, radius);
  setSource(context, withAlpha(whiteColor, 0.4));
  cairo_fill(context);
  int place = 0;
  for (auto& icon : homeScreen().folderIcons) {
    cairo_save(context);
    cairo_translate(context, gap + (place % across) * (small + gap), gap + (place / across) * (small + gap));
    drawAppIcon(context, icon, small, corners);
    cairo_restore(context);
    if (++place == across * across) break;
  }
}

void draw(SBIconImageView self) {
  auto& state = ImageView::state(self);
  bool square = self.showsSquareCorners();
  if (state.drawnSquare == square && state.drawnOn == clock::today()) return;
  state.drawnSquare = square;
  state.drawnOn = clock::today();
  showPicture(self, iconImageSize(), [name = state.name, square](cairo_t* context, CGSize size) {
    IconCorners corners = square ? IconCorners::square : IconCorners::rounded;
    if (name == folderName)
      drawFolder(context, size.width, corners);
    else
      drawAppIcon(context, name, size.width, corners);
  });
}

void setShowsSquareCorners(SBIconImageView self, BOOL square) {
  ImageView::state(self).square = square;
  draw(self);
}

void layoutSubviews(SBIconImageView self) {
  ImageView::super<&UIView::layoutSubviews>(self);
  draw(self);
}

}  // namespace

bridge::Strong<SBIconImageView> makeIconImageView(const std::string& name) {
  auto view = bridge::make<SBIconImageView, &UIView::initWithFrame>(CGRect{{0, 0}, iconImageSize()});
  ImageView::state(view.get()).name = name;
  view->userInteractionEnabled.set(NO);  // touches are the icon view's
  return view;
}

void defineIconImageView() {
  defineSystemClass<ImageView>(own<&SBIconImageView::cornerRadius, cornerRadius>(),
                               own<&SBIconImageView::showsSquareCorners, showsSquareCorners>(),
                               own<&SBIconImageView::setShowsSquareCorners, setShowsSquareCorners>(),
                               own<&UIView::layoutSubviews, layoutSubviews>());
}

}  // namespace sim::springboard
