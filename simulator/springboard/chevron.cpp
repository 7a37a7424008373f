// SBChevronView, SBUIChevronView from 10.0 on: a wide, flat chevron that points down.
#include <algorithm>

#include "bridge/define.hpp"
#include "platform/springboard/panel_parts.hpp"
#include "simulator/springboard/panel_parts.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"

namespace sim::springboard {
namespace {

using bridge::Strong;

constexpr CGSize chevronSize{36, 8};  // points between the ends of its strokes
constexpr double strokeWidth = 4;

struct ChevronState {
  Strong<UIColor> color;
};

template <class Face>
struct Chevron : bridge::Implementation<Face, ChevronState> {
  using Class = bridge::Implementation<Face, ChevronState>;

  static Strong<SBChevronView> initWithColor(Face self, UIColor color) {
    auto made = bridge::initialised<&UIView::initWithFrame>(self, CGRect{{0, 0}, chevronSize});
    Class::state(made.get()).color = retained(color);
    made->setContentMode(UIViewContentModeRedraw);
    return made;
  }

  static void drawRect(Face self, CGRect) {
    cairo_t* context = uikit::currentContext();
    const CGRect bounds = self.bounds();
    const double middleX = bounds.origin.x + bounds.size.width / 2;
    const double middleY = bounds.origin.y + bounds.size.height / 2;
    const double halfWidth = std::min(chevronSize.width, bounds.size.width - strokeWidth) / 2;
    cairo_move_to(context, middleX - halfWidth, middleY - chevronSize.height / 2);
    cairo_line_to(context, middleX, middleY + chevronSize.height / 2);
    cairo_line_to(context, middleX + halfWidth, middleY - chevronSize.height / 2);
    cairo_set_line_width(context, strokeWidth);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    setSource(context, uikit::colorOf(Class::state(self).color));
    cairo_stroke(context);
  }

  static void define() {
    using bridge::method;
    Class::template define<UIView>(method<&SBChevronView::initWithColor, initWithColor>(),
                                   method<&UIView::drawRect, drawRect>());
  }
};

}  // namespace

void defineChevron() {
  hasUIChevron() ? Chevron<SBUIChevronView>::define() : Chevron<SBChevronView>::define();
}

}  // namespace sim::springboard
