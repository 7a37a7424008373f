// Contents by their looks.
#include "simulator/quartz/content.hpp"

#include <cstring>

#include "simulator/quartz/kept.hpp"

namespace sim {
namespace {

constexpr std::size_t room = 24u << 20;  // bytes

struct Known {
  Content content;
  CGSize points;
  double pixelsPerPoint;
};

bool haveSameBytes(cairo_surface_t* a, cairo_surface_t* b) {
  return cairo_image_surface_get_width(a) == cairo_image_surface_get_width(b) &&
         cairo_image_surface_get_height(a) == cairo_image_surface_get_height(b) &&
         cairo_image_surface_get_format(a) == cairo_image_surface_get_format(b) &&
         std::memcmp(cairo_image_surface_get_data(a), cairo_image_surface_get_data(b), bytesOf(a)) == 0;
}

}  // namespace

std::uint64_t nextContentId() {
  static std::uint64_t last = 0;
  return ++last;
}

Content contentOf(Surface image, CGSize points, double pixelsPerPoint) {
  static auto& kept = *new Kept<Known>(room);
  cairo_surface_flush(image.get());
  const Known* const known = kept.find([&](const Known& each) {
    return each.points == points && each.pixelsPerPoint == pixelsPerPoint &&
           haveSameBytes(each.content.image.get(), image.get());
  });
  if (known) return known->content;
  const Content fresh{std::move(image), nextContentId()};
  kept.add({fresh, points, pixelsPerPoint}, bytesOf(fresh.image.get()));
  return fresh;
}

}  // namespace sim
