// A round page dot.
#include "simulator/artwork/page_dot.hpp"

#include <algorithm>
#include <numbers>

#include "simulator/quartz/color.hpp"

namespace sim {

void drawPageDot(cairo_t* context, CGSize size, bool current) {
  cairo_new_path(context);
  cairo_arc(context, size.width / 2, size.height / 2, std::min(size.width, size.height) / 2, 0,
            2 * std::numbers::pi);
  setSource(context, withAlpha(whiteColor, current ? 1 : 0.4));
  cairo_fill(context);
}

}  // namespace sim
