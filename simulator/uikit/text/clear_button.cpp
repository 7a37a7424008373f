// The cross in a text field.
#include "simulator/uikit/text/clear_button.hpp"

#include <numbers>

#include "bridge/define.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/text/text_field.hpp"

namespace sim::uikit {
namespace {

constexpr double radius = 7, arm = 2.5, lineWidth = 1;  // points
constexpr Color discColor = rgb(0x8e8e93);

struct ClearButton : bridge::Face<"UITextFieldClearButton", UIControl> {};

using ButtonClass = bridge::Implementation<ClearButton>;

void endTracking(ClearButton self, UITouch, UIEvent) {
  if (self.isTouchInside()) clearText(bridge::as<UITextField>(self.superview()));
}

void drawRect(ClearButton self, CGRect) {
  cairo_t* const context = currentContext();
  const CGSize size = self.bounds().size;
  cairo_translate(context, size.width / 2, size.height / 2);
  cairo_arc(context, 0, 0, radius, 0, 2 * std::numbers::pi);
  setSource(context, discColor);
  cairo_fill(context);
  for (const double side : {-1.0, 1.0}) {
    cairo_move_to(context, -arm, -side * arm);
    cairo_line_to(context, arm, side * arm);
  }
  setSource(context, whiteColor);
  cairo_set_line_width(context, lineWidth);
  cairo_stroke(context);
}

}  // namespace

bridge::Strong<UIControl> makeClearButton() {
  auto button = bridge::make<ClearButton, &UIView::initWithFrame>(CGRect{});
  button->contentMode.set(UIViewContentModeRedraw);
  button->hidden.set(YES);
  return button;
}

void defineClearButton() {
  using bridge::method;
  ButtonClass::define<UIControl>(method<&UIControl::endTrackingWithTouch_withEvent, endTracking>(),
                                 method<&UIView::drawRect, drawRect>());
}

}  // namespace sim::uikit
