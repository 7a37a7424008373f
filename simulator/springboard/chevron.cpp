// SBChevronView, SBUIChevronView from 10.0 on: a wide, flat chevron that points down.
#include <algorithm>

#include "platform/springboard/panel_parts.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/panel_parts.hpp"
#include "simulator/springboard/system_class.hpp"
#include "simulator/uikit/drawing/color.hpp"

namespace sim::springboard {
namespace {

using bridge::Strong;

constexpr CGSize chevronSize{36, 8};  // points between the ends of its strokes
constexpr double strokeWidth = 4;

struct ChevronState {
  Strong<UIColor> color;
};

void drawChevron(cairo_t* context, CGSize size, const Color& color) {
  const double middleX = size.width / 2, middleY = size.height / 2;
  const double halfWidth = std::min<double>(chevronSize.width, size.width - strokeWidth) / 2;
  cairo_move_to(context, middleX - halfWidth, middleY - chevronSize.height / 2);
  cairo_line_to(context, middleX, middleY + chevronSize.height / 2);
  cairo_line_to(context, middleX + halfWidth, middleY - chevronSize.height / 2);
  cairo_set_line_width(context, strokeWidth);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  setSource(context, color);
  cairo_stroke(context);
}

template <class Face>
struct Chevron {
  using Class = bridge::Implementation<Face, ChevronState>;

  static Strong<SBChevronView> initWithColor(Face self, UIColor color) {
    auto made = bridge::initialised<&UIView::initWithFrame>(self, CGRect{{0, 0}, chevronSize});
    Class::state(made.get()).color = retained(color);
    return made;
  }

  static void layoutSubviews(Face self) {
    Class::template super<&UIView::layoutSubviews>(self);
    const Color color = uikit::colorOf(Class::state(self).color);
    showPicture(self, self.bounds().size,
                [color](cairo_t* context, CGSize size) { drawChevron(context, size, color); });
  }

  static void define() {
    defineSystemClass<Class>(own<&SBChevronView::initWithColor, initWithColor>(),
                             own<&UIView::layoutSubviews, layoutSubviews>());
  }
};

}  // namespace

void defineChevron() {
  Chevron<SBChevronView>::define();
  Chevron<SBUIChevronView>::define();
}

}  // namespace sim::springboard
