// Icons: a gradient with a glyph of the icon font, or a motif of their own.
#include "simulator/artwork/app_icon.hpp"

#include "simulator/artwork/app_catalogue.hpp"
#include "simulator/artwork/icon_motifs.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/quartz/fonts.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

void drawAppIcon(cairo_t* context, std::string_view name, double side, IconCorners corners) {
  const AppLook look = appLook(name);
  const SavedState saved(context);
  cairo_scale(context, side, side);  // below, the side is 1
  cairo_push_group(context);
  const Pattern background(cairo_pattern_create_linear(0, 0, 0, 1));
  addStop(background.get(), 0, look.top);
  addStop(background.get(), 1, look.bottom);
  cairo_set_source(context, background.get());
  cairo_paint(context);
  switch (look.motif) {
    case IconMotif::glyph:
      drawGlyph(context, look.glyph, {.size = 0.62, .family = iconFontFamily}, {{0.17, 0.17}, {0.66, 0.66}},
                look.glyphColor);
      break;
    case IconMotif::calendar:
      drawCalendarMotif(context, clock::today());
      break;
    case IconMotif::clock:
      drawClockMotif(context);
      break;
    case IconMotif::notes:
      drawNotesMotif(context);
      break;
    case IconMotif::photos:
      drawPhotosMotif(context);
      break;
    case IconMotif::weather:
      drawWeatherMotif(context);
      break;
  }
  cairo_pop_group_to_source(context);
  if (corners == IconCorners::rounded) {
    addContinuousRect(context, {{0, 0}, {1, 1}}, iconCornerFraction);
  } else {
    cairo_rectangle(context, 0, 0, 1, 1);
  }
  cairo_fill(context);
}

}  // namespace sim
