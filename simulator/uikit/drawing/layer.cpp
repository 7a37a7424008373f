// CALayer.
#include "simulator/uikit/drawing/layer.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "bridge/define.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

struct LayerState {
  Layer layer;
  UIView view;  // not retained
  CGColor shadowColor{{0, 1}, true};
};

using LayerClass = bridge::Implementation<CALayer, LayerState>;

template <class... Numbers>
void requireNumbers(const char* what, Numbers... numbers) {
  if (!(std::isnan(numbers) || ...)) return;
  std::string values;
  ((values += fmt::format(" {}", numbers)), ...);
  raise("CALayerInvalidGeometry"_ns, fmt::format("CALayer {} contains NaN: [{}]", what, values.substr(1)));
}

void requireRect(const char* what, const CGRect& rect) {
  requireNumbers(what, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
}

// What follows a change of the bounds is done by the view.
template <class Change>
void changeGeometry(CALayer layer, Change change) {
  const CGRect old = layerOf(layer).bounds;
  {
    const LayerChange animated(layer);
    change(layerOf(layer));
  }
  if (const UIView view = viewOf(layer); view && !(layerOf(layer).bounds == old)) boundsChanged(view, old);
}

CGRect bounds(CALayer self) { return layerOf(self).bounds; }
CGPoint position(CALayer self) { return layerOf(self).position; }
CGRect frame(CALayer self) { return layerOf(self).frame(); }
CGPoint anchorPoint(CALayer self) { return layerOf(self).anchorPoint; }
CGFloat cornerRadius(CALayer self) { return layerOf(self).cornerRadius; }
float opacity(CALayer self) { return static_cast<float>(layerOf(self).opacity); }

void setBoundsOf(CALayer self, CGRect value) { setBounds(self, value); }
void setPositionOf(CALayer self, CGPoint value) { setPosition(self, value); }
void setFrameOf(CALayer self, CGRect value) { setFrame(self, value); }

void setAnchorPoint(CALayer self, CGPoint value) {
  requireNumbers("anchorPoint", value.x, value.y);
  layerOf(self).anchorPoint = value;
}

void setCornerRadius(CALayer self, CGFloat value) {
  const LayerChange animated(self);
  layerOf(self).cornerRadius = value;
}

void setOpacityOf(CALayer self, float value) { setOpacity(self, value); }
void removeAllAnimations(CALayer self) { cancelAnimations(self); }

CGColorRef shadowColor(CALayer self) { return &LayerClass::state(self).shadowColor; }

void setShadowColor(CALayer self, CGColorRef value) {
  LayerClass::state(self).shadowColor = value ? *value : CGColor{{0, 0}, true};
  layerOf(self).shadowColor = colorOf(value);
}

// A value of the layer that no animation follows.
template <class Value, auto Field>
Value valueOf(CALayer self) {
  return static_cast<Value>(layerOf(self).*Field);
}

template <class Value, auto Field>
void setValueOf(CALayer self, Value value) {
  layerOf(self).*Field = value;
}

template <auto Member, auto Field>
bridge::PropertyEntry plain() {
  using Value = typename bridge::Descriptor<Member>::ValueType;
  return bridge::property<Member, valueOf<Value, Field>, setValueOf<Value, Field>>();
}

}  // namespace

Layer& layerOf(CALayer layer) { return LayerClass::state(layer).layer; }
UIView viewOf(CALayer layer) { return LayerClass::state(layer).view; }
void setView(CALayer layer, UIView view) { LayerClass::state(layer).view = view; }

bool isOnScreen(CALayer layer) {
  const UIView view = viewOf(layer);
  return view && windowOf(view);
}

void setBounds(CALayer layer, const CGRect& bounds) {
  requireRect("bounds", bounds);
  changeGeometry(layer, [&](Layer& target) { target.bounds = standardized(bounds); });
}

void setPosition(CALayer layer, CGPoint position) {
  requireNumbers("position", position.x, position.y);
  const LayerChange animated(layer);
  layerOf(layer).position = position;
}

void setFrame(CALayer layer, const CGRect& frame) {
  requireRect("frame", frame);
  changeGeometry(layer, [&](Layer& target) { target.setFrame(frame); });
}

void setOpacity(CALayer layer, double opacity) {
  const LayerChange animated(layer);
  layerOf(layer).opacity = opacity;
}

void setTransform(CALayer layer, const CGAffineTransform& transform) {
  const LayerChange animated(layer);
  layerOf(layer).transform = transform;
}

void setBackgroundColor(CALayer layer, const Color& color) {
  const LayerChange animated(layer);
  layerOf(layer).backgroundColor = color;
}

void defineLayer() {
  using bridge::method;
  LayerClass::define<NSObject>(bridge::property<&CALayer::bounds, bounds, setBoundsOf>(),
                               bridge::property<&CALayer::position, position, setPositionOf>(),
                               bridge::property<&CALayer::frame, frame, setFrameOf>(),
                               bridge::property<&CALayer::anchorPoint, anchorPoint, setAnchorPoint>(),
                               bridge::property<&CALayer::cornerRadius, cornerRadius, setCornerRadius>(),
                               bridge::property<&CALayer::opacity, opacity, setOpacityOf>(),
                               plain<&CALayer::hidden, &Layer::hidden>(),
                               plain<&CALayer::masksToBounds, &Layer::masksToBounds>(),
                               bridge::property<&CALayer::shadowColor, shadowColor, setShadowColor>(),
                               plain<&CALayer::shadowOpacity, &Layer::shadowOpacity>(),
                               plain<&CALayer::shadowRadius, &Layer::shadowRadius>(),
                               plain<&CALayer::shadowOffset, &Layer::shadowOffset>(),
                               plain<&CALayer::shouldRasterize, &Layer::shouldRasterize>(),
                               plain<&CALayer::rasterizationScale, &Layer::rasterizationScale>(),
                               method<&CALayer::removeAllAnimations, removeAllAnimations>());
}

}  // namespace sim::uikit
