// Layer values as numbers that add up, and the course of an animation in time.
#include "simulator/quartz/animation.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sim {
namespace {

double fraction(double value) { return std::clamp(value, 0.0, 1.0); }

}  // namespace

PropertyNumbers numbersOf(const LayerValues& values, LayerProperty property) {
  switch (property) {
    case LayerProperty::position:
      return {values.position.x, values.position.y};
    case LayerProperty::bounds:
      return {values.bounds.origin.x, values.bounds.origin.y, values.bounds.size.width,
              values.bounds.size.height};
    case LayerProperty::opacity:
      return {values.opacity};
    case LayerProperty::transform: {
      const TransformParts parts = partsOf(values.transform);
      return {parts.x, parts.y, parts.angle, parts.scaleX, parts.scaleY, parts.shear};
    }
    case LayerProperty::backgroundColor: {
      // Premultiplied, so that a fade from clear does not pass through black.
      const Color& color = values.backgroundColor;
      return {color.red * color.alpha, color.green * color.alpha, color.blue * color.alpha, color.alpha};
    }
    case LayerProperty::cornerRadius:
      return {values.cornerRadius};
  }
  return {};
}

void setNumbers(LayerValues& values, LayerProperty property, const PropertyNumbers& n) {
  switch (property) {
    case LayerProperty::position:
      values.position = {n[0], n[1]};
      break;
    case LayerProperty::bounds:
      values.bounds = {{n[0], n[1]}, {std::max(n[2], 0.0), std::max(n[3], 0.0)}};
      break;
    case LayerProperty::opacity:
      values.opacity = fraction(n[0]);
      break;
    case LayerProperty::transform:
      values.transform = transformOf({n[0], n[1], n[2], n[3], n[4], n[5]});
      break;
    case LayerProperty::backgroundColor: {
      const double alpha = fraction(n[3]);
      values.backgroundColor =
          alpha == 0 ? clearColor
                     : Color{fraction(n[0] / alpha), fraction(n[1] / alpha), fraction(n[2] / alpha), alpha};
      break;
    }
    case LayerProperty::cornerRadius:
      values.cornerRadius = std::max(n[0], 0.0);
      break;
  }
}

PropertyNumbers differenceOf(const LayerValues& from, const LayerValues& to, LayerProperty property) {
  PropertyNumbers difference = numbersOf(from, property);
  const PropertyNumbers target = numbersOf(to, property);
  for (std::size_t i = 0; i < difference.size(); ++i) difference[i] -= target[i];
  if (property == LayerProperty::transform) {
    difference[2] = std::remainder(difference[2], 2 * std::numbers::pi);
  }
  return difference;
}

double AnimationTiming::end() const {
  if (duration <= 0) return start + delay;
  return start + delay + duration * (autoreverses ? 2 : 1) * repeatCount;
}

double AnimationTiming::progress(double now) const {
  if (now >= end()) return 1;
  const double elapsed = now - start - delay;
  if (elapsed <= 0) return 0;
  const double cycle = std::fmod(elapsed, duration * (autoreverses ? 2 : 1));
  return progressAt(pacing, cycle > duration ? 2 * duration - cycle : cycle, duration);
}

}  // namespace sim
