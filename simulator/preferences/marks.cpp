// Drawing them.
#include "simulator/preferences/marks.hpp"

#include <vector>

#include "platform/uikit/image_view.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/springboard/drawn_image.hpp"

namespace sim::preferences {
namespace {

using bridge::Strong;

Strong<UIView> makeMark(CGSize size, const Color& color, std::vector<CGPoint> line, double width) {
  auto view = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{{}, size});
  view->image.set(springboard::drawnImage(size, [color, line, width](cairo_t* context, CGSize) {
    setSource(context, color);
    cairo_set_line_width(context, width);
    for (const CGPoint& point : line) cairo_line_to(context, point.x, point.y);
    cairo_stroke(context);
  }));
  return view;
}

}  // namespace

Strong<UIView> makeChevron() {
  return makeMark({chevronWidth, chevronHeight}, chevronColor, {{1, 1}, {6.5, 6.5}, {1, 12}}, 2);
}
Strong<UIView> makeCheck() {
  return makeMark({checkSize, checkSize}, blue, {{1, 7.5}, {5, 12}, {13, 2}}, 1.8);
}

}  // namespace sim::preferences
