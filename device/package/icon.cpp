// icon: draws the icon of the page in Settings, a grid of nine icons of which one has moved, at one scale.
//
//   icon <scale> <out.png>
#include <cairo.h>
#include <fmt/format.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr double side = 29;  // points

void roundedSquare(cairo_t* to, double x, double y, double size, double radius) {
  const double right = std::acos(-1) / 2;
  cairo_new_sub_path(to);
  cairo_arc(to, x + size - radius, y + radius, radius, -right, 0);
  cairo_arc(to, x + size - radius, y + size - radius, radius, 0, right);
  cairo_arc(to, x + radius, y + size - radius, radius, right, 2 * right);
  cairo_arc(to, x + radius, y + radius, radius, 2 * right, 3 * right);
  cairo_close_path(to);
}

void draw(cairo_t* to) {
  cairo_pattern_t* ground = cairo_pattern_create_linear(0, 0, 0, side);
  cairo_pattern_add_color_stop_rgb(ground, 0, 0.36, 0.45, 0.95);
  cairo_pattern_add_color_stop_rgb(ground, 1, 0.55, 0.28, 0.84);
  roundedSquare(to, 0, 0, side, 6.5);
  cairo_set_source(to, ground);
  cairo_fill(to);
  cairo_pattern_destroy(ground);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column) {
      const bool moved = row == 1 && column == 1;
      roundedSquare(to, 5.5 + 6.5 * column + (moved ? 1 : 0), 5.5 + 6.5 * row - (moved ? 1 : 0), 5, 1.4);
      cairo_set_source_rgba(to, 1, moved ? 0.84 : 1, moved ? 0.3 : 1, moved ? 1 : 0.92);
      cairo_fill(to);
    }
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view scale = count == 3 ? arguments[1] : "";
  if (scale != "1" && scale != "2" && scale != "3") {
    fmt::print(stderr, "usage: icon 1|2|3 <out.png>\n");
    return 2;
  }
  const int times = scale[0] - '0', pixels = static_cast<int>(side) * times;
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels, pixels);
  cairo_t* to = cairo_create(surface);
  cairo_scale(to, times, times);
  draw(to);
  const cairo_status_t status = cairo_surface_write_to_png(surface, arguments[2]);
  cairo_destroy(to);
  cairo_surface_destroy(surface);
  if (status == CAIRO_STATUS_SUCCESS) return 0;
  fmt::print(stderr, "{}: {}\n", arguments[2], cairo_status_to_string(status));
  return 2;
}
