// SBCloseBoxView, with SBXCloseBoxView and their parent SBHomeScreenButton from 11.0 on: buttons that show a
// grey, translucent disc with a cross.
#include <algorithm>
#include <numbers>

#include "platform/springboard/panel_parts.hpp"
#include "platform/uikit/button.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/panel_parts.hpp"
#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

constexpr double crossReach = 0.19, crossWidth = 0.075;  // of the side
constexpr Color discColor{0.75, 0.75, 0.77, 0.85}, pressedColor{0.55, 0.55, 0.57, 0.9};
constexpr Color crossColor{0.12, 0.12, 0.13, 0.9};

struct SBHomeScreenButton : bridge::Face<"SBHomeScreenButton", UIButton> {};

void drawCloseBox(cairo_t* context, CGSize size, const Color& disc) {
  const double side = std::min(size.width, size.height);
  cairo_translate(context, size.width / 2, size.height / 2);
  cairo_arc(context, 0, 0, side / 2, 0, 2 * std::numbers::pi);
  setSource(context, disc);
  cairo_fill(context);
  const double reach = side * crossReach;
  cairo_move_to(context, -reach, -reach);
  cairo_line_to(context, reach, reach);
  cairo_move_to(context, reach, -reach);
  cairo_line_to(context, -reach, reach);
  cairo_set_line_width(context, side * crossWidth);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  setSource(context, crossColor);
  cairo_stroke(context);
}

UIImage picture(CGSize size, const Color& disc) {
  return drawnImage(size, [disc](cairo_t* context, CGSize area) { drawCloseBox(context, area, disc); });
}

struct CloseBoxState {
  CGSize drawnFor{};
};

template <class Face>
struct CloseBox {
  using Class = bridge::Implementation<Face, CloseBoxState>;

  static void layoutSubviews(Face self) {
    const CGSize size = self.bounds().size;
    CloseBoxState& state = Class::state(self);
    if (!(state.drawnFor == size) && size.width > 0 && size.height > 0) {
      state.drawnFor = size;
      auto button = bridge::as<UIButton>(self);
      button.setImage_forState(picture(size, discColor), UIControlStateNormal);
      button.setImage_forState(picture(size, pressedColor), UIControlStateHighlighted);
    }
    Class::template super<&UIView::layoutSubviews>(self);
  }

  static void define() { defineSystemClass<Class>(own<&UIView::layoutSubviews, layoutSubviews>()); }
};

}  // namespace

void defineCloseBox() {
  CloseBox<SBHomeScreenButton>::define();
  CloseBox<SBCloseBoxView>::define();
  defineSystemClass<bridge::Implementation<SBXCloseBoxView>>();
}

}  // namespace sim::springboard
