// SBCloseBoxView, SBXCloseBoxView from 11.0 on: a grey, translucent disc with a cross.
#include <algorithm>
#include <numbers>

#include "bridge/define.hpp"
#include "platform/springboard/panel_parts.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/springboard/panel_parts.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"

namespace sim::springboard {
namespace {

using bridge::Strong;

constexpr double crossReach = 0.19, crossWidth = 0.075;  // of the side
constexpr Color discColor{0.75, 0.75, 0.77, 0.85}, pressedColor{0.55, 0.55, 0.57, 0.9};
constexpr Color crossColor{0.12, 0.12, 0.13, 0.9};

template <class Face>
struct CloseBox {
  using Class = bridge::Implementation<Face>;

  static Strong<UIView> initWithFrame(Face self, CGRect frame) {
    auto made = Class::template super<&UIView::initWithFrame>(self, frame);
    made->setContentMode(UIViewContentModeRedraw);
    return made;
  }

  static void setHighlighted(Face self, BOOL highlighted) {
    Class::template super<&UIControl::setHighlighted>(self, highlighted);
    self.setNeedsDisplay();
  }

  static void drawRect(Face self, CGRect) {
    cairo_t* context = uikit::currentContext();
    const CGRect bounds = self.bounds();
    const double side = std::min(bounds.size.width, bounds.size.height);
    cairo_translate(context, bounds.origin.x + bounds.size.width / 2,
                    bounds.origin.y + bounds.size.height / 2);
    cairo_arc(context, 0, 0, side / 2, 0, 2 * std::numbers::pi);
    setSource(context, self.isHighlighted() ? pressedColor : discColor);
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

  static void define() {
    using bridge::method;
    Class::template define<UIControl>(method<&UIView::initWithFrame, initWithFrame>(),
                                      method<&UIControl::setHighlighted, setHighlighted>(),
                                      method<&UIView::drawRect, drawRect>());
  }
};

}  // namespace

void defineCloseBox() {
  hasXCloseBox() ? CloseBox<SBXCloseBoxView>::define() : CloseBox<SBCloseBoxView>::define();
}

}  // namespace sim::springboard
