// The tree of layers, their geometry and animations.
#include "simulator/quartz/layer.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "simulator/quartz/content.hpp"
#include "simulator/quartz/render_cache.hpp"

namespace sim {
namespace {

std::uint64_t nextLayerId() {
  static std::uint64_t last = 0;
  return ++last;
}

template <class Predicate>
std::vector<LayerAnimation> extract(std::vector<LayerAnimation>& animations, Predicate taken) {
  std::vector<LayerAnimation> result;
  std::copy_if(animations.begin(), animations.end(), std::back_inserter(result), taken);
  std::erase_if(animations, taken);
  if (animations.empty()) animations.shrink_to_fit();  // a layer that once had many keeps no room for them
  return result;
}

// From the layer's coordinates to those outside its root.
template <class Values>
CGAffineTransform toOutside(const Layer* layer, const Values& valuesOf) {
  CGAffineTransform result = identityTransform;
  for (; layer; layer = layer->parent()) result = concat(result, layer->toParent(valuesOf(*layer)));
  return result;
}

template <class Values>
CGAffineTransform between(const Layer* from, const Layer* to, const Values& valuesOf) {
  // Only up to the nearest common ancestor: a flattened layer above both does not matter.
  for (const Layer* common = from; common; common = common->parent()) {
    for (const Layer* other = to; other; other = other->parent()) {
      if (other != common) continue;
      CGAffineTransform up = identityTransform, down = identityTransform;
      for (; from != common; from = from->parent()) up = concat(up, from->toParent(valuesOf(*from)));
      for (; to != common; to = to->parent()) down = concat(down, to->toParent(valuesOf(*to)));
      return concat(up, inverse(down).value_or(identityTransform));
    }
  }
  return concat(toOutside(from, valuesOf), inverse(toOutside(to, valuesOf)).value_or(identityTransform));
}

constexpr auto modelValues = [](const Layer& layer) -> const LayerValues& { return layer; };

auto presentedAt(double now) {
  return [now](const Layer& layer) { return layer.presentation(now); };
}

}  // namespace

Layer::Layer() : id(nextLayerId()), contentsId(nextContentId()) {}

Layer::~Layer() {
  removeFromParent();
  for (Layer* child : sublayers) child->superlayer = nullptr;
}

void Layer::addChild(Layer& child) { insertChild(child, sublayers.size()); }

void Layer::insertChild(Layer& child, std::size_t index) {
  for (const Layer* ancestor = this; ancestor; ancestor = ancestor->superlayer) {
    if (ancestor == &child) throw std::logic_error("a layer cannot be put into itself or its descendant");
  }
  child.removeFromParent();
  index = std::min(index, sublayers.size());
  sublayers.insert(sublayers.begin() + static_cast<std::ptrdiff_t>(index), &child);
  child.superlayer = this;
}

void Layer::removeFromParent() {
  if (!superlayer) return;
  std::erase(superlayer->sublayers, this);
  superlayer = nullptr;
}

void Layer::setDraw(DrawFunction function) {
  draw = std::move(function);
  image = nullptr;
  contents.reset();
  setNeedsDisplay();
}

void Layer::setContents(Surface pixels, double imageScale) {
  draw = nullptr;
  image = nullptr;
  contents = std::move(pixels);
  if (contents) {
    contentsSize = {cairo_image_surface_get_width(contents.get()) / imageScale,
                    cairo_image_surface_get_height(contents.get()) / imageScale};
  }
  setNeedsDisplay();
}

void Layer::setContents(std::function<Surface()> due, CGSize pixels, double imageScale) {
  draw = nullptr;
  image = std::move(due);
  contents.reset();
  contentsSize = {pixels.width / imageScale, pixels.height / imageScale};
  setNeedsDisplay();
}

void Layer::setNeedsDisplay() {
  drawnScale = 0;
  contentsId = nextContentId();
}

CGSize Layer::contentSize() const {
  if (draw) return drawnScale == 0 || redrawsOnResize ? bounds.size : contentsSize;
  return contents || image ? contentsSize : CGSize{0, 0};
}

void Layer::drawContent(double scale) {
  if (image) {
    contents = std::exchange(image, nullptr)();
    if (contents) take(contentOf(contents, contentsSize, Inside::contentPixels(*this)));
  }
  if (!draw) return;
  const bool resized = redrawsOnResize && !(contentsSize == bounds.size);
  if (drawnScale == scale && !resized) return;
  drawnScale = scale;
  contentsSize = bounds.size;
  contents.reset();
  if (!(bounds.size.width > 0 && bounds.size.height > 0)) return;
  const Surface drawn = makeImage(static_cast<int>(std::ceil(bounds.size.width * scale - 1e-6)),
                                  static_cast<int>(std::ceil(bounds.size.height * scale - 1e-6)));
  {
    const Context context(drawn.get());
    cairo_scale(context, scale, scale);
    draw(context, bounds.size);
  }
  take(contentOf(drawn, contentsSize, scale));
}

void Layer::take(Content content) {
  contents = std::move(content.image);
  contentsId = content.id;
}

CGAffineTransform Layer::toParent(const LayerValues& v) const {
  const double anchorX = v.bounds.origin.x + anchorPoint.x * v.bounds.size.width;
  const double anchorY = v.bounds.origin.y + anchorPoint.y * v.bounds.size.height;
  if (v.transform == identityTransform) {
    CGAffineTransform shift = translation(-anchorX, -anchorY);
    shift.tx += v.position.x;
    shift.ty += v.position.y;
    return shift;
  }
  return concat(concat(translation(-anchorX, -anchorY), v.transform),
                translation(v.position.x, v.position.y));
}

CGRect Layer::frameOf(const LayerValues& v) const {
  if (v.transform == identityTransform) {
    // Without the detour over corners, so that a frame that was set reads back unrounded.
    const CGSize size = v.bounds.size;
    return {{v.position.x - anchorPoint.x * size.width, v.position.y - anchorPoint.y * size.height}, size};
  }
  return boundingBox(toParent(v), v.bounds);
}

void Layer::setFrame(const CGRect& given) {
  const CGRect frame = standardized(given);
  bounds.size = frame.size;
  if (transform == identityTransform) {
    position = {frame.origin.x + anchorPoint.x * frame.size.width,
                frame.origin.y + anchorPoint.y * frame.size.height};
    return;
  }
  if (const auto back = inverse(transform)) bounds.size = boundingBox(*back, {{}, frame.size}).size;
  const CGPoint now = frameOf(*this).origin;
  position.x += frame.origin.x - now.x;
  position.y += frame.origin.y - now.y;
}

LayerValues Layer::presentation(double now) const {
  LayerValues result = *this;
  if (running.empty()) return result;
  for (const LayerProperty property : allLayerProperties) {
    PropertyNumbers sum{};
    bool active = false;
    for (const LayerAnimation& animation : running) {
      if (animation.property != property || now >= animation.timing.end()) continue;
      const double remaining = 1 - animation.timing.progress(now);
      for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += animation.difference[i] * remaining;
      active = true;
    }
    if (!active) continue;
    const PropertyNumbers model = numbersOf(*this, property);
    for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += model[i];
    setNumbers(result, property, sum);
  }
  return result;
}

int Layer::animateFrom(const LayerValues& old, const AnimationTiming& timing, std::uint64_t group) {
  int added = 0;
  for (const LayerProperty property : allLayerProperties) {
    const PropertyNumbers difference = differenceOf(old, *this, property);
    if (difference == PropertyNumbers{}) continue;
    addAnimation({property, difference, timing, group});
    ++added;
  }
  return added;
}

void Layer::addAnimation(LayerAnimation animation) { running.push_back(std::move(animation)); }

std::vector<LayerAnimation> Layer::removeAnimations() { return std::exchange(running, {}); }

std::vector<LayerAnimation> Layer::removeAnimations(LayerProperty property) {
  return extract(running, [property](const LayerAnimation& a) { return a.property == property; });
}

std::vector<LayerAnimation> Layer::removeFinishedAnimations(double now) {
  return extract(running, [now](const LayerAnimation& a) { return now >= a.timing.end(); });
}

bool Layer::hasAnimations(double now) const {
  return std::any_of(running.begin(), running.end(),
                     [now](const LayerAnimation& a) { return now < a.timing.end(); });
}

std::optional<double> Layer::animationsEnd() const {
  if (running.empty()) return std::nullopt;
  double last = running.front().timing.end();
  for (const LayerAnimation& animation : running) last = std::max(last, animation.timing.end());
  return last;
}

CGPoint convertPoint(CGPoint point, const Layer* from, const Layer* to) {
  return apply(between(from, to, modelValues), point);
}

CGPoint convertPoint(CGPoint point, const Layer* from, const Layer* to, double now) {
  return apply(between(from, to, presentedAt(now)), point);
}

CGRect convertRect(const CGRect& rect, const Layer* from, const Layer* to) {
  return boundingBox(between(from, to, modelValues), rect);
}

CGRect convertRect(const CGRect& rect, const Layer* from, const Layer* to, double now) {
  return boundingBox(between(from, to, presentedAt(now)), rect);
}

}  // namespace sim
