// What a layer looks like, in numbers, and what is kept while they stay the same.
#include "simulator/quartz/render_cache.hpp"

#include <initializer_list>
#include <memory>
#include <utility>

#include "simulator/quartz/kept.hpp"

namespace sim {
namespace {

constexpr std::size_t room = 32u << 20;  // bytes

void append(std::vector<double>& numbers, std::initializer_list<double> more) {
  numbers.insert(numbers.end(), more);
}

void append(std::vector<double>& numbers, const Color& color) {
  append(numbers, {color.red, color.green, color.blue, color.alpha});
}

void describeAll(std::vector<double>& numbers, const RenderNode& node, double scale) {
  const Layer& layer = *node.layer;
  Inside::describe(numbers, node, scale);
  append(numbers,
         {layer.shadowOpacity, layer.shadowOffset.width, layer.shadowOffset.height, layer.shadowRadius,
          layer.rasterizationScale, double(layer.shouldRasterize), double(node.children.size())});
  append(numbers, layer.shadowColor);
  for (const RenderNode& child : node.children) {
    const CGAffineTransform& t = child.toParent;
    append(numbers, {t.a, t.b, t.c, t.d, t.tx, t.ty, child.values.opacity});
    describeAll(numbers, child, Inside::pixelsPerPoint(*child.layer, scale));
  }
}

// Bytes that the pictures of a node may take.
std::size_t picturesOf(const RenderNode& node, double scale) {
  constexpr double bytesPerPixel = 4 + 1;
  const CGSize size = node.extents.size;
  return static_cast<std::size_t>(size.width * size.height * scale * scale * bytesPerPixel);
}

std::shared_ptr<RenderCache> cacheFor(std::vector<double> appearance, std::size_t bytes) {
  static auto& kept = *new Kept<std::shared_ptr<RenderCache>>(room);
  static std::uint64_t last = 0;
  const auto* const known =
      kept.find([&](const std::shared_ptr<RenderCache>& each) { return each->appearance == appearance; });
  if (known) return *known;
  const auto fresh = std::make_shared<RenderCache>(RenderCache{std::move(appearance), ++last, {}, {}});
  kept.add(fresh, bytes);
  return fresh;
}

}  // namespace

bool Inside::hasContent(Layer& layer, double scale) {
  layer.drawContent(scale);
  return layer.contents != nullptr;
}

double Inside::contentPixels(const Layer& layer) {
  return layer.draw ? layer.drawnScale
                    : cairo_image_surface_get_width(layer.contents.get()) / layer.contentsSize.width;
}

bool Inside::isKept(const Layer& layer) { return layer.shouldRasterize || castsShadow(layer); }

double Inside::pixelsPerPoint(const Layer& layer, double scale) {
  if (!layer.shouldRasterize) return scale;
  return layer.rasterizationScale > 0 ? layer.rasterizationScale : 1;
}

RenderCache& Inside::cacheOf(RenderNode& node, double scale) {
  if (node.cache) return *node.cache;
  auto& cache = node.layer->cache;
  std::vector<double> appearance{scale};
  if (cache) appearance.reserve(cache->appearance.size());
  describeAll(appearance, node, scale);
  if (!cache || cache->appearance != appearance)
    cache = cacheFor(std::move(appearance), picturesOf(node, scale));
  node.cache = cache.get();
  return *cache;
}

void Inside::describe(std::vector<double>& numbers, const RenderNode& node, double scale) {
  Layer& layer = *node.layer;
  layer.drawContent(scale);  // first: it may become another content
  const LayerValues& v = node.values;
  append(numbers, {v.bounds.origin.x, v.bounds.origin.y, v.bounds.size.width, v.bounds.size.height,
                   v.cornerRadius, layer.borderWidth, double(layer.masksToBounds),
                   double(layer.contentsGravity), layer.contents ? double(layer.contentsId) : 0});
  append(numbers, v.backgroundColor);
  append(numbers, layer.borderColor);
}

}  // namespace sim
