// The values of a layer that can be animated, and one additive animation of one of them.
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/affine.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/quartz/timing.hpp"

namespace sim {

enum class LayerProperty { position, bounds, opacity, transform, backgroundColor, cornerRadius };

inline constexpr std::array allLayerProperties{LayerProperty::position,        LayerProperty::bounds,
                                               LayerProperty::opacity,         LayerProperty::transform,
                                               LayerProperty::backgroundColor, LayerProperty::cornerRadius};

/** What can be animated; lengths in points. */
struct LayerValues {
  CGPoint position{};  // of the anchor point, in the parent's coordinates
  CGRect bounds{};     // the layer's own coordinates; an origin other than zero scrolls the children
  double opacity = 1;
  CGAffineTransform transform = identityTransform;  // about the anchor point
  Color backgroundColor = clearColor;
  double cornerRadius = 0;
  bool operator==(const LayerValues&) const = default;
};

/**
 * A property's value as numbers that add up: x, y · x, y, width, height · opacity · the six TransformParts in
 * their order · red, green, blue and alpha, premultiplied · radius. The rest is zero.
 */
using PropertyNumbers = std::array<double, 6>;

PropertyNumbers numbersOf(const LayerValues& values, LayerProperty property);
/** Keeps opacity and colours within [0, 1] and sizes and radii from turning negative. */
void setNumbers(LayerValues& values, LayerProperty property, const PropertyNumbers& numbers);
/** What to add to `to` to come to `from`; angles by the shorter way round. */
PropertyNumbers differenceOf(const LayerValues& from, const LayerValues& to, LayerProperty property);

/** When and how fast; seconds. */
struct AnimationTiming {
  double start = 0;  // the time at which it was added
  double delay = 0;
  double duration = 0.25;
  Pacing pacing = easeInOutCurve;
  double repeatCount = 1;  // may be a fraction or infinite
  bool autoreverses = false;

  /** When the animation is over; infinite for one that repeats for ever. */
  double end() const;
  /** Progress from 0 to 1 (beyond, for springs) at `now`: 0 through the delay, 1 from the end. */
  double progress(double now) const;
};

/**
 * The model holds the new value at once; the animation adds what is left of the difference to the old value:
 * difference · (1 − progress). Animations of one property add up, so that a later one takes over smoothly.
 */
struct LayerAnimation {
  LayerProperty property;
  PropertyNumbers difference;  // old value minus new one
  AnimationTiming timing;
  std::uint64_t group = 0;  // the owner's mark for animations that belong together
};

}  // namespace sim
