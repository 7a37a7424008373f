// A translucent panel that looks like frosted glass over a soft wallpaper.
#include "simulator/artwork/dock_background.hpp"

#include "simulator/quartz/color.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

void drawDockBackground(cairo_t* context, CGSize size, double cornerRadius) {
  const SavedState saved(context);
  cairo_new_path(context);
  addRoundedRect(context, {{0, 0}, size}, cornerRadius);
  cairo_clip(context);
  // Light gathers at the upper rim of glass.
  const Pattern glass(cairo_pattern_create_linear(0, 0, 0, size.height));
  addStop(glass.get(), 0, rgb(0xf4eeff, 0.50));
  addStop(glass.get(), 0.5, rgb(0xece4fb, 0.46));
  addStop(glass.get(), 1, rgb(0xe6dff8, 0.44));
  cairo_set_source(context, glass.get());
  cairo_paint(context);
  setSource(context, withAlpha(whiteColor, 0.16));
  if (cornerRadius > 0) {
    cairo_set_line_width(context, 1);  // half of it lies outside the clip
    addRoundedRect(context, {{0, 0}, size}, cornerRadius);
    cairo_stroke(context);
  } else {
    cairo_rectangle(context, 0, 0, size.width, 0.5);
    cairo_fill(context);
  }
}

}  // namespace sim
