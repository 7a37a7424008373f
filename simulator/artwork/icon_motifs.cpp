// Calendar, clock, notes, photos and weather.
#include "simulator/artwork/icon_motifs.hpp"

#include <fmt/format.h>

#include <numbers>
#include <string>

#include "simulator/quartz/fonts.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/quartz/text.hpp"

namespace sim {
namespace {

constexpr const char* weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};

constexpr double turn = 2 * std::numbers::pi;

void fillCircle(cairo_t* context, double x, double y, double radius) {
  cairo_new_path(context);
  cairo_arc(context, x, y, radius, 0, turn);
  cairo_fill(context);
}

// Fonts are laid out in units of 1/1024 point, too coarse for a square of side 1.
void drawScaledText(cairo_t* context, const Text& text, const CGRect& rect) {
  constexpr double factor = 100;
  const SavedState saved(context);
  cairo_scale(context, 1 / factor, 1 / factor);
  drawText(context, text,
           {{rect.origin.x * factor, rect.origin.y * factor},
            {rect.size.width * factor, rect.size.height * factor}});
}

// A clock hand from a little behind the middle to `length` along `angle`, clockwise from twelve.
void strokeHand(cairo_t* context, double angle, double tail, double length, double width) {
  const SavedState saved(context);
  cairo_translate(context, 0.5, 0.5);
  cairo_rotate(context, angle);
  cairo_set_line_width(context, width);
  cairo_move_to(context, 0, tail);
  cairo_line_to(context, 0, -length);
  cairo_stroke(context);
}

}  // namespace

void drawCalendarMotif(cairo_t* context, std::chrono::sys_days today) {
  const std::chrono::year_month_day date = today;
  const std::string day = fmt::format("{}", static_cast<unsigned>(date.day()));
  const char* const name = weekdays[std::chrono::weekday(today).c_encoding()];
  Text weekday{.runs = {{name, {.size = 15.5, .weight = FontWeight::medium}, rgb(0xff3b30)}},
               .alignment = TextAlignment::center};
  drawScaledText(context, weekday, {{0, 0.09}, {1, 0.2}});
  Text number{.runs = {{day, {.size = 62, .weight = FontWeight::light}, rgb(0x1c1c1e)}},
              .alignment = TextAlignment::center};
  drawScaledText(context, number, {{0, 0.27}, {1, 0.66}});
}

void drawClockMotif(cairo_t* context) {
  setSource(context, rgb(0xfafafa));
  fillCircle(context, 0.5, 0.5, 0.41);
  setSource(context, rgb(0x1c1c1e));
  for (int hour = 0; hour < 12; ++hour) {
    const SavedState saved(context);
    cairo_translate(context, 0.5, 0.5);
    cairo_rotate(context, hour * turn / 12);
    const bool quarter = hour % 3 == 0;
    cairo_rectangle(context, quarter ? -0.014 : -0.009, -0.375, quarter ? 0.028 : 0.018, 0.06);
    cairo_fill(context);
  }
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  strokeHand(context, turn * (10 + 9 / 60.0) / 12, 0, 0.2, 0.036);
  strokeHand(context, turn * 9 / 60, 0, 0.3, 0.028);
  setSource(context, rgb(0xff9500));
  strokeHand(context, turn * 36 / 60, 0.08, 0.32, 0.012);
  fillCircle(context, 0.5, 0.5, 0.026);
}

void drawNotesMotif(cairo_t* context) {
  const Pattern header(cairo_pattern_create_linear(0, 0, 0, 0.27));
  addStop(header.get(), 0, rgb(0xffdf6b));
  addStop(header.get(), 1, rgb(0xfcc21c));
  cairo_set_source(context, header.get());
  cairo_rectangle(context, 0, 0, 1, 0.27);
  cairo_fill(context);
  setSource(context, rgb(0xb8b4a8));
  for (int dot = 0; dot < 17; ++dot) fillCircle(context, 0.02 + dot * 0.06, 0.315, 0.011);
  setSource(context, rgb(0xd2cec2));
  for (const double y : {0.48, 0.65, 0.82}) {
    cairo_rectangle(context, 0, y, 1, 0.012);
    cairo_fill(context);
  }
}

void drawPhotosMotif(cairo_t* context) {
  constexpr unsigned petals[] = {0xf7a21b, 0xd9d21d, 0x7cc242, 0x3fb8a5,
                                 0x4a90e2, 0x8468d0, 0xd6528f, 0xee5138};
  // Overlapping petals darken one another as printed inks do.
  cairo_set_operator(context, CAIRO_OPERATOR_MULTIPLY);
  for (int i = 0; i < 8; ++i) {
    const SavedState saved(context);
    cairo_translate(context, 0.5, 0.5);
    cairo_rotate(context, i * turn / 8);
    setSource(context, rgb(petals[i], 0.88));
    addRoundedRect(context, {{-0.1, -0.4}, {0.2, 0.34}}, 0.1);
    cairo_fill(context);
  }
  cairo_set_operator(context, CAIRO_OPERATOR_OVER);
}

void drawWeatherMotif(cairo_t* context) {
  const Pattern sun(cairo_pattern_create_linear(0, 0.18, 0, 0.6));
  addStop(sun.get(), 0, rgb(0xffe14d));
  addStop(sun.get(), 1, rgb(0xffb300));
  cairo_set_source(context, sun.get());
  fillCircle(context, 0.38, 0.4, 0.2);
  // One outline for the cloud, so that its translucent parts do not add up.
  cairo_push_group(context);
  setSource(context, whiteColor);
  fillCircle(context, 0.4, 0.64, 0.135);
  fillCircle(context, 0.57, 0.54, 0.17);
  fillCircle(context, 0.73, 0.65, 0.125);
  addRoundedRect(context, {{0.265, 0.6}, {0.59, 0.175}}, 0.0875);
  cairo_fill(context);
  cairo_pop_group_to_source(context);
  cairo_paint_with_alpha(context, 0.94);
}

}  // namespace sim
