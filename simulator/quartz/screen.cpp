// Damage: what has changed since the last picture, and what has to be painted for it.
#include "simulator/quartz/screen.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "simulator/quartz/painter.hpp"

namespace sim {
namespace {

unsigned char* pixelAt(cairo_surface_t* image, int x, int y) {
  return cairo_image_surface_get_data(image) + std::ptrdiff_t{y} * cairo_image_surface_get_stride(image) +
         std::ptrdiff_t{x} * 4;
}

void copy(cairo_surface_t* from, cairo_surface_t* to, const PixelRect& rect) {
  cairo_surface_flush(from);
  cairo_surface_flush(to);
  for (int y = rect.y; y < rect.y + rect.height; ++y)
    std::memcpy(pixelAt(to, rect.x, y), pixelAt(from, rect.x, y), static_cast<std::size_t>(rect.width) * 4);
  cairo_surface_mark_dirty(to);
}

void blacken(cairo_surface_t* image, const PixelRect& rect) {
  constexpr std::uint32_t black = 0xff000000;
  cairo_surface_flush(image);
  for (int y = rect.y; y < rect.y + rect.height; ++y)
    std::fill_n(reinterpret_cast<std::uint32_t*>(pixelAt(image, rect.x, y)), rect.width, black);
  cairo_surface_mark_dirty(image);
}

bool hasSize(const Surface& image, const PixelRect& all) {
  return image && cairo_image_surface_get_width(image.get()) == all.width &&
         cairo_image_surface_get_height(image.get()) == all.height;
}

bool isHeldElsewhere(const Surface& image) { return image.use_count() > 1; }

// What depends on where it is clipped is painted as a whole or not at all.
void takeWholes(Region& region, const DisplayList& list, std::size_t from) {
  for (std::size_t i = from; i < list.entries.size();) {
    const DisplayEntry& entry = list.entries[i];
    const bool grows = !entry.isFixed && region.cuts(entry.box);
    if (grows) region.add(entry.box);
    i = grows ? from : i + 1;
  }
}

// The largest rectangle of which nothing shows that was painted before those entries.
PixelRect coverOf(const DisplayList& list, std::size_t from) {
  PixelRect largest{};
  const auto area = [](const PixelRect& rect) { return long{rect.width} * rect.height; };
  for (std::size_t i = from; i < list.entries.size(); ++i)
    if (area(list.entries[i].cover) > area(largest)) largest = list.entries[i].cover;
  return largest;
}

}  // namespace

Surface PaintedScreen::draw(std::span<Layer* const> roots, double now, int pixelWidth, int pixelHeight,
                            double scale) {
  const PixelRect all{0, 0, std::max(pixelWidth, 1), std::max(pixelHeight, 1)};
  DisplayList list = listOf(roots, now, all, scale);
  if (!hasSize(picture, all)) *this = {};
  const std::size_t common = commonEntries(shown, list);
  damage.clear();
  if (picture)
    damage = difference(shown, list, common);
  else
    damage.add(all);
  if (damage.isEmpty()) {
    lastCommon = common;
    return picture;
  }
  // Should painting fail, the next picture begins anew.
  PaintedScreen painted = std::exchange(*this, {});
  painted.show(std::move(list), common, all, scale);
  *this = std::move(painted);
  return picture;
}

// Where the next picture goes: over the last one, unless somebody holds that. What is to be painted of it may
// hold anything.
Surface PaintedScreen::target(const PixelRect& all, const Region& painted) const {
  if (!picture) return makeImage(all.width, all.height);
  if (!isHeldElsewhere(picture)) return picture;
  if (hasSize(other, all) && !isHeldElsewhere(other)) {
    for (const PixelRect& rect : without(stale.rectangles(), painted.rectangles()))
      copy(picture.get(), other.get(), rect);
    return other;
  }
  Surface fresh = makeImage(all.width, all.height);
  copy(picture.get(), fresh.get(), all);
  return fresh;
}

// What stood still twice is likely to go on standing still.
void PaintedScreen::keepBackdrop(DisplayList& list, std::size_t common, const PixelRect& all, double scale) {
  if (common < backdropEntries) backdropEntries = 0;
  const std::size_t still = std::min(common, std::exchange(lastCommon, common));
  if (still <= backdropEntries) return;
  if (!hasSize(backdrop, all)) backdrop = makeImage(all.width, all.height);
  if (backdropEntries == 0) blacken(backdrop.get(), all);
  paintEntries(backdrop.get(), list, scale, backdropEntries, still, all);
  backdropEntries = still;
}

void PaintedScreen::show(DisplayList list, std::size_t common, const PixelRect& all, double scale) {
  keepBackdrop(list, common, all, scale);
  Region painted = damage;
  takeWholes(painted, list, backdropEntries);
  const Surface image = target(all, painted);
  const PixelRect cover = coverOf(list, backdropEntries);
  for (const PixelRect& part : without(painted.rectangles(), {&cover, 1}))
    if (backdropEntries > 0)
      copy(backdrop.get(), image.get(), part);
    else
      blacken(image.get(), part);
  for (const PixelRect& rect : painted.rectangles())
    paintEntries(image.get(), list, scale, backdropEntries, list.entries.size(), rect);
  cairo_surface_flush(image.get());
  if (image != picture) {
    other = std::exchange(picture, image);
    stale.clear();
  }
  for (const PixelRect& rect : damage.rectangles()) stale.add(rect);
  list.nodes.clear();
  shown = std::move(list);
}

}  // namespace sim
