// Signal, Wi-Fi, time and battery.
#include "simulator/artwork/status_bar.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/quartz/text.hpp"

namespace sim {
namespace {

// Heights of the symbols, points; each is centred on the bar's middle line.
constexpr double symbolHeight = 10;
constexpr double signalWidth = 15.5, wifiWidth = 14, batteryWidth = 25, symbolGap = 5;

void drawSignal(cairo_t* context, double x, double middle, const Color& color) {
  setSource(context, color);
  for (int bar = 0; bar < 4; ++bar) {
    const double height = symbolHeight * (0.4 + 0.2 * bar);
    addRoundedRect(context, {{x + bar * 4.2, middle + symbolHeight / 2 - height}, {2.9, height}}, 0.8);
  }
  cairo_fill(context);
}

void drawWifi(cairo_t* context, double x, double middle, const Color& color) {
  const double centerX = x + wifiWidth / 2, foot = middle + symbolHeight / 2;
  constexpr double up = -std::numbers::pi / 2, spread = 0.75;
  setSource(context, color);
  const SavedState saved(context);
  cairo_set_line_width(context, 2);
  for (const double radius : {9.0, 5.7}) {
    cairo_new_sub_path(context);
    cairo_arc(context, centerX, foot, radius, up - spread, up + spread);
  }
  cairo_stroke(context);
  cairo_move_to(context, centerX, foot);
  cairo_arc(context, centerX, foot, 3.2, up - spread, up + spread);
  cairo_close_path(context);
  cairo_fill(context);
}

void drawBattery(cairo_t* context, double x, double middle, double charge, const Color& color) {
  const double top = middle - symbolHeight / 2;
  const SavedState saved(context);
  setSource(context, withAlpha(color, color.alpha * 0.45));
  cairo_set_line_width(context, 1);
  addRoundedRect(context, {{x + 0.5, top + 0.0}, {21.5, symbolHeight}}, 2.6);
  cairo_stroke(context);
  cairo_arc(context, x + 23.2, middle, 1.7, -std::numbers::pi / 2, std::numbers::pi / 2);
  cairo_fill(context);
  setSource(context, color);
  addRoundedRect(context, {{x + 2, top + 1.5}, {18.5 * std::clamp(charge, 0.0, 1.0), symbolHeight - 3}}, 1.3);
  cairo_fill(context);
}

Text label(const std::string& words, double size, FontWeight weight, const Color& color) {
  return {.runs = {{words, {.size = size, .weight = weight}, color}}};
}

void drawWithNotch(cairo_t* context, CGSize size, const StatusBarState& state) {
  const double middle = size.height / 2 + 1;
  // The corners beside the notch are about 83 points wide.
  Text time = label(state.time, 15, FontWeight::semibold, state.color);
  time.alignment = TextAlignment::center;
  drawText(context, time, {{14, middle - 10}, {68, 20}});
  double x = size.width - 14 - batteryWidth;
  drawBattery(context, x, middle, state.battery, state.color);
  x -= symbolGap + wifiWidth;
  drawWifi(context, x, middle, state.color);
  if (state.cellular) drawSignal(context, x - symbolGap - signalWidth, middle, state.color);
}

}  // namespace

void drawStatusBar(cairo_t* context, CGSize size, const StatusBarState& state) {
  const SavedState saved(context);
  cairo_new_path(context);
  if (size.height >= 40) return drawWithNotch(context, size, state);
  const double middle = size.height / 2;
  constexpr double margin = 6;
  double left = margin;
  if (state.cellular) {
    drawSignal(context, left, middle, state.color);
    left += signalWidth + symbolGap;
  }
  drawWifi(context, left, middle, state.color);
  Text time = label(state.time, 12, FontWeight::semibold, state.color);
  time.alignment = TextAlignment::center;
  drawText(context, time, {{0, 0}, size});
  const double battery = size.width - margin - batteryWidth;
  drawBattery(context, battery, middle, state.battery, state.color);
  Text percent = label(fmt::format("{}%", std::lround(std::clamp(state.battery, 0.0, 1.0) * 100)), 12,
                       FontWeight::regular, state.color);
  percent.alignment = TextAlignment::right;
  drawText(context, percent, {{battery - 54, 0}, {50, size.height}});
}

}  // namespace sim
