// A dusk sky over soft hills.
#include "simulator/artwork/wallpaper.hpp"

#include <cmath>
#include <map>
#include <tuple>

#include "simulator/quartz/color.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {
namespace {

// A round glow; centre and radius as fractions of the size and of its longer side.
void paintGlow(cairo_t* context, CGSize size, CGPoint center, double radius, const Color& color) {
  const double x = center.x * size.width, y = center.y * size.height;
  const double reach = radius * std::fmax(size.width, size.height);
  const Pattern gradient(cairo_pattern_create_radial(x, y, 0, x, y, reach));
  // Falls off like a bell, so that no rim shows.
  constexpr int stops = 8;
  for (int i = 0; i <= stops; ++i) {
    const double distance = double(i) / stops;
    const double strength = std::pow(1 - distance * distance, 2);
    addStop(gradient.get(), distance, withAlpha(color, color.alpha * strength));
  }
  cairo_set_source(context, gradient.get());
  cairo_paint(context);
}

// A hill line: heights above it and wavelengths as fractions of the size.
struct Ridge {
  double base, amplitude, waves, phase;
  Color crest, foot;
};

void paintRidge(cairo_t* context, CGSize size, const Ridge& ridge) {
  constexpr int steps = 96;
  constexpr double turn = 6.283185307179586;
  cairo_new_path(context);
  cairo_move_to(context, 0, size.height);
  for (int i = 0; i <= steps; ++i) {
    const double along = double(i) / steps;
    const double wave = std::sin(turn * (ridge.waves * along + ridge.phase)) +
                        0.35 * std::sin(turn * (2.3 * ridge.waves * along + 1.7 * ridge.phase));
    cairo_line_to(context, along * size.width, (ridge.base - ridge.amplitude * wave) * size.height);
  }
  cairo_line_to(context, size.width, size.height);
  cairo_close_path(context);
  const double top = (ridge.base - 1.35 * ridge.amplitude) * size.height;
  const Pattern gradient(cairo_pattern_create_linear(0, top, 0, top + 0.34 * size.height));
  addStop(gradient.get(), 0, ridge.crest);
  addStop(gradient.get(), 1, ridge.foot);
  cairo_set_source(context, gradient.get());
  cairo_fill(context);
}

}  // namespace

void drawWallpaper(cairo_t* context, CGSize size) {
  const SavedState saved(context);
  cairo_rectangle(context, 0, 0, size.width, size.height);
  cairo_clip(context);
  const Pattern sky(cairo_pattern_create_linear(0, 0, 0.25 * size.width, size.height));
  addStop(sky.get(), 0.00, rgb(0x0f1b4c));
  addStop(sky.get(), 0.28, rgb(0x2b3a8f));
  addStop(sky.get(), 0.52, rgb(0x7a4fa3));
  addStop(sky.get(), 0.72, rgb(0xd9708f));
  addStop(sky.get(), 1.00, rgb(0xf7b47f));
  cairo_set_source(context, sky.get());
  cairo_paint(context);
  paintGlow(context, size, {0.12, 0.20}, 0.42, rgb(0x3f8bd6, 0.45));
  paintGlow(context, size, {0.95, 0.42}, 0.40, rgb(0xc45ac0, 0.35));
  paintGlow(context, size, {0.66, 0.70}, 0.34, rgb(0xffc38a, 0.65));
  const Ridge ridges[] = {
      {0.735, 0.022, 1.15, 0.10, rgb(0xb0608f, 0.75), rgb(0x7c4a90, 0.9)},
      {0.800, 0.026, 0.85, 0.47, rgb(0x7f4a8e, 0.85), rgb(0x4c3a82, 0.95)},
      {0.875, 0.024, 0.70, 0.82, rgb(0x51398a, 0.9), rgb(0x2a2a66, 1)},
      {0.955, 0.018, 0.95, 0.22, rgb(0x37307a, 0.6), rgb(0x1a1d4d, 1)},
  };
  for (const Ridge& ridge : ridges) paintRidge(context, size, ridge);
}

Surface wallpaper(CGSize size, double scale) {
  static auto& all = *new std::map<std::tuple<double, double, double>, Surface>();
  Surface& picture = all[{size.width, size.height, scale}];
  if (!picture) {
    picture = makeImage(static_cast<int>(std::ceil(size.width * scale)),
                        static_cast<int>(std::ceil(size.height * scale)));
    Context context(picture.get());
    cairo_scale(context, scale, scale);
    drawWallpaper(context, size);
    cairo_surface_flush(picture.get());
  }
  return picture;
}

}  // namespace sim
