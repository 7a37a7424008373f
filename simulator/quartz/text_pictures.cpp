// Texts that are all that a picture shows, as those of labels are, kept with it.
#include "simulator/quartz/text_pictures.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

#include "simulator/quartz/kept.hpp"
#include "simulator/quartz/pixels.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/quartz/text.hpp"

namespace sim {
namespace {

constexpr std::size_t room = 16u << 20;  // bytes

// All that decides about the pixels.
struct Request {
  Text text;
  CGRect rect;
  VerticalPlacement placement;
  CGAffineTransform toPixels;
  int width, height;

  bool operator==(const Request&) const = default;
};

struct Drawn {
  Request request;
  Surface picture;
};

Kept<Drawn>& drawn() {
  static auto& kept = *new Kept<Drawn>(room);
  return kept;
}

// Whether what is painted comes out as on any other picture of that size.
bool isPlain(cairo_t* context) {
  cairo_surface_t* const target = cairo_get_target(context);
  if (cairo_surface_get_type(target) != CAIRO_SURFACE_TYPE_IMAGE ||
      cairo_get_group_target(context) != target ||
      cairo_image_surface_get_format(target) != CAIRO_FORMAT_ARGB32 ||
      cairo_get_operator(context) != CAIRO_OPERATOR_OVER ||
      cairo_get_fill_rule(context) != CAIRO_FILL_RULE_WINDING)
    return false;
  const PixelRect all{0, 0, cairo_image_surface_get_width(target), cairo_image_surface_get_height(target)};
  return clipRectangle(context) == all;
}

bool isClear(cairo_surface_t* image) {
  cairo_surface_flush(image);
  const unsigned char* const pixels = cairo_image_surface_get_data(image);
  return pixels[0] == 0 && std::memcmp(pixels, pixels + 1, bytesOf(image) - 1) == 0;
}

void copy(cairo_surface_t* from, cairo_surface_t* to) {
  cairo_surface_flush(from);
  std::memcpy(cairo_image_surface_get_data(to), cairo_image_surface_get_data(from), bytesOf(from));
  cairo_surface_mark_dirty(to);
}

CGAffineTransform transformOf(cairo_t* context) {
  cairo_matrix_t m;
  cairo_get_matrix(context, &m);
  return {m.xx, m.yx, m.xy, m.yy, m.x0, m.y0};
}

}  // namespace

void drawText(cairo_t* context, const Text& text, const CGRect& rect, VerticalPlacement placement) {
  cairo_surface_t* const target = cairo_get_target(context);
  if (!isPlain(context) || !isClear(target)) return paintText(context, text, rect, placement);
  Request request{text,
                  rect,
                  placement,
                  transformOf(context),
                  cairo_image_surface_get_width(target),
                  cairo_image_surface_get_height(target)};
  if (const Drawn* const known = drawn().find([&](const Drawn& each) { return each.request == request; })) {
    cairo_new_path(context);
    copy(known->picture.get(), target);
    return;
  }
  paintText(context, text, rect, placement);
  if (cairo_status(context) != CAIRO_STATUS_SUCCESS) return;  // what lacks something is not kept
  const Surface picture = makeImage(request.width, request.height);
  copy(target, picture.get());
  drawn().add({std::move(request), picture}, bytesOf(target));
}

void forgetTextPictures() { drawn().clear(); }

}  // namespace sim
