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
BOOL isHidden(CALayer self) { return layerOf(self).hidden; }
BOOL masksToBounds(CALayer self) { return layerOf(self).masksToBounds; }

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
void setHidden(CALayer self, BOOL value) { layerOf(self).hidden = value; }
void setMasksToBounds(CALayer self, BOOL value) { layerOf(self).masksToBounds = value; }
void removeAllAnimations(CALayer self) { cancelAnimations(self); }

CGColorRef shadowColor(CALayer self) { return &LayerClass::state(self).shadowColor; }

void setShadowColor(CALayer self, CGColorRef value) {
  LayerClass::state(self).shadowColor = value ? *value : CGColor{{0, 0}, true};
  layerOf(self).shadowColor = colorOf(value);
}

// A value of the layer that no animation follows.
template <class Result, auto Field>
Result plain(CALayer self) {
  return static_cast<Result>(layerOf(self).*Field);
}

template <class Value, auto Field>
void setPlain(CALayer self, Value value) {
  layerOf(self).*Field = value;
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
  LayerClass::define<NSObject>(
      method<&CALayer::bounds, bounds>(), method<&CALayer::setBounds, setBoundsOf>(),
      method<&CALayer::position, position>(), method<&CALayer::setPosition, setPositionOf>(),
      method<&CALayer::frame, frame>(), method<&CALayer::setFrame, setFrameOf>(),
      method<&CALayer::anchorPoint, anchorPoint>(), method<&CALayer::setAnchorPoint, setAnchorPoint>(),
      method<&CALayer::cornerRadius, cornerRadius>(), method<&CALayer::setCornerRadius, setCornerRadius>(),
      method<&CALayer::opacity, opacity>(), method<&CALayer::setOpacity, setOpacityOf>(),
      method<&CALayer::isHidden, isHidden>(), method<&CALayer::setHidden, setHidden>(),
      method<&CALayer::masksToBounds, masksToBounds>(),
      method<&CALayer::setMasksToBounds, setMasksToBounds>(), method<&CALayer::shadowColor, shadowColor>(),
      method<&CALayer::setShadowColor, setShadowColor>(),
      method<&CALayer::shadowOpacity, plain<float, &Layer::shadowOpacity>>(),
      method<&CALayer::setShadowOpacity, setPlain<float, &Layer::shadowOpacity>>(),
      method<&CALayer::shadowRadius, plain<CGFloat, &Layer::shadowRadius>>(),
      method<&CALayer::setShadowRadius, setPlain<CGFloat, &Layer::shadowRadius>>(),
      method<&CALayer::shadowOffset, plain<CGSize, &Layer::shadowOffset>>(),
      method<&CALayer::setShadowOffset, setPlain<CGSize, &Layer::shadowOffset>>(),
      method<&CALayer::shouldRasterize, plain<BOOL, &Layer::shouldRasterize>>(),
      method<&CALayer::setShouldRasterize, setPlain<BOOL, &Layer::shouldRasterize>>(),
      method<&CALayer::rasterizationScale, plain<CGFloat, &Layer::rasterizationScale>>(),
      method<&CALayer::setRasterizationScale, setPlain<CGFloat, &Layer::rasterizationScale>>(),
      method<&CALayer::removeAllAnimations, removeAllAnimations>());
}

}  // namespace sim::uikit
