// UIView: the class, its life and its looks.
#include "simulator/uikit/views/view.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/base/coding.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/drawing/layer.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/views/first_responder.hpp"
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using ViewClass = bridge::Implementation<UIView, ViewState>;

void drawRect(UIView, CGRect) {}

bool drawsItself(UIView self) {
  const IMP own = class_getMethodImplementation(bridge::classOf(self.raw), bridge::selector<"drawRect:">());
  return own != class_getMethodImplementation(ViewClass::cls, bridge::selector<"drawRect:">());
}

void draw(UIView self, cairo_t* context) {
  const DrawingContext current(context);
  const CGRect bounds = layerOf(self).bounds;
  cairo_translate(context, -bounds.origin.x, -bounds.origin.y);
  self.drawRect(bounds);
}

Strong<UIView> initWithFrame(UIView self, CGRect frame) {
  auto made = ViewClass::superInit<&NSObject::init>(self);
  const UIView view = made;
  Layer& layer = layerOf(view);
  setFrame(layerObjectOf(view), frame);
  layer.redrawsOnResize = false;
  if (drawsItself(view)) layer.setDraw([view](cairo_t* context, CGSize) { draw(view, context); });
  return made;
}

Strong<NSObject> init(UIView self) {
  return bridge::Descriptor<&UIView::initWithFrame>::send(self.raw, CGRect{});
}

Strong<UIView> initWithCoder(UIView self, NSCoder coder) {
  auto made = initWithFrame(self, {});
  decodeView(made, coder);
  return made;
}

UIResponder nextResponder(UIView self) {
  const ViewState& state = stateOf(self);
  if (state.controller) return state.controller;
  return state.superview;
}

CGFloat alpha(UIView self) { return layerOf(self).opacity; }
void setAlpha(UIView self, CGFloat alpha) {
  setOpacity(layerObjectOf(self), std::clamp<CGFloat>(alpha, 0.0, 1.0));
}
BOOL isHidden(UIView self) { return layerOf(self).hidden; }
void setHidden(UIView self, BOOL hidden) { layerOf(self).hidden = hidden; }
BOOL clipsToBounds(UIView self) { return layerOf(self).masksToBounds; }
void setClipsToBounds(UIView self, BOOL clips) { layerOf(self).masksToBounds = clips; }

void showBackgroundColor(UIView self) {
  setBackgroundColor(layerObjectOf(self), colorOf(stateOf(self).backgroundColor));
}

// That of the nearest ancestor that has one, or the system's blue.
UIColor tintColor(UIView self) {
  for (UIView one = self; one; one = stateOf(one).superview)
    if (stateOf(one).tintColor) return stateOf(one).tintColor;
  return makeColor(rgb(0x007aff)).autoreleased();
}

void setTintColor(UIView self, UIColor color) { stateOf(self).tintColor = retained(color); }

ContentsGravity gravityOf(NSInteger contentMode) {
  // In the order of UIViewContentMode.
  constexpr ContentsGravity gravities[] = {
      ContentsGravity::resize,     ContentsGravity::resizeAspect, ContentsGravity::resizeAspectFill,
      ContentsGravity::resize,     ContentsGravity::center,       ContentsGravity::top,
      ContentsGravity::bottom,     ContentsGravity::left,         ContentsGravity::right,
      ContentsGravity::topLeft,    ContentsGravity::topRight,     ContentsGravity::bottomLeft,
      ContentsGravity::bottomRight};
  return gravities[std::clamp<NSInteger>(contentMode, 0, std::size(gravities) - 1)];
}

NSInteger contentMode(UIView self) { return stateOf(self).contentMode; }

void setContentMode(UIView self, NSInteger contentMode) {
  stateOf(self).contentMode = contentMode;
  layerOf(self).contentsGravity = gravityOf(contentMode);
  layerOf(self).redrawsOnResize = contentMode == UIViewContentModeRedraw;
}

CALayer layer(UIView self) { return layerObjectOf(self); }
void setNeedsDisplay(UIView self) { layerOf(self).setNeedsDisplay(); }

// What subclasses override; nothing happens in a plain view.
void movesToSuperview(UIView, UIView) {}
void movedToSuperview(UIView) {}
void movesToWindow(UIView, UIWindow) {}
void movedToWindow(UIView) {}
void subviewChanges(UIView, UIView) {}
void layoutSubviews(UIView) {}

}  // namespace

ViewState::~ViewState() {
  for (const Strong<UIView>& subview : subviews) {
    stateOf(subview).superview = {};
    layerOf(subview.get()).removeFromParent();
  }
  for (const Strong<UIGestureRecognizer>& recognizer : gestureRecognizers)
    stateOf(recognizer.get()).view = {};
  if (!layer) return;
  forgetResponder(viewOf(layer));
  // Somebody else may keep the layer.
  cancelAnimations(layer);
  layerOf(layer.get()).setDraw({});
  layerOf(layer.get()).removeFromParent();
  setView(layer, {});
}

ViewState& stateOf(UIView view) { return ViewClass::state(view); }

CALayer layerObjectOf(UIView view) {
  Strong<CALayer>& layer = stateOf(view).layer;
  if (!layer) {
    layer = bridge::make<CALayer, &NSObject::init>();
    setView(layer, view);
  }
  return layer;
}

Layer& layerOf(UIView view) { return layerOf(layerObjectOf(view)); }

void defineView() {
  using bridge::method;
  ViewClass::define<UIResponder>(
      method<&NSObject::init, init>(), method<&UIView::initWithFrame, initWithFrame>(),
      method<&Coding::initWithCoder, initWithCoder>(), method<&Coding::encodeWithCoder, encodeView>(),
      method<&UIResponder::nextResponder, nextResponder>(),
      // Geometry.
      bridge::property<&UIView::frame, view::frame, view::setFrame>(),
      bridge::property<&UIView::bounds, view::bounds, view::setBounds>(),
      bridge::property<&UIView::center, view::center, view::setCenter>(),
      bridge::property<&UIView::transform, view::transform, view::setTransform>(),
      ViewClass::property<&UIView::autoresizingMask, &ViewState::autoresizingMask>(),
      ViewClass::property<&UIView::autoresizesSubviews, &ViewState::autoresizesSubviews>(),
      method<&UIView::sizeThatFits, view::sizeThatFits>(), method<&UIView::sizeToFit, view::sizeToFit>(),
      method<&UIView::convertPoint_toView, view::convertPointTo>(),
      method<&UIView::convertPoint_fromView, view::convertPointFrom>(),
      method<&UIView::convertRect_toView, view::convertRectTo>(),
      method<&UIView::convertRect_fromView, view::convertRectFrom>(),
      // Looks.
      bridge::property<&UIView::alpha, alpha, setAlpha>(),
      bridge::property<&UIView::hidden, isHidden, setHidden>(),
      ViewClass::property<&UIView::backgroundColor, &ViewState::backgroundColor, showBackgroundColor>(),
      bridge::property<&UIView::clipsToBounds, clipsToBounds, setClipsToBounds>(),
      ViewClass::property<&UIView::opaque, &ViewState::opaque>(),
      bridge::property<&UIView::tintColor, tintColor, setTintColor>(),
      bridge::property<&UIView::contentMode, contentMode, setContentMode>(), method<&UIView::layer, layer>(),
      method<&UIView::setNeedsDisplay, setNeedsDisplay>(), method<&UIView::drawRect, drawRect>(),
      // The tree.
      method<&UIView::superview, view::superview>(), method<&UIView::subviews, view::subviews>(),
      method<&UIView::window, view::window>(), method<&UIView::addSubview, view::addSubview>(),
      method<&UIView::insertSubview_atIndex, view::insertSubview>(),
      method<&UIView::bringSubviewToFront, view::bringSubviewToFront>(),
      method<&UIView::sendSubviewToBack, view::sendSubviewToBack>(),
      method<&UIView::removeFromSuperview, view::removeFromSuperview>(),
      method<&UIView::isDescendantOfView, view::isDescendantOfView>(),
      ViewClass::property<&UIView::tag, &ViewState::tag>(), method<&UIView::viewWithTag, view::viewWithTag>(),
      method<&UIView::endEditing, endEditing>(), method<&UIView::willMoveToSuperview, movesToSuperview>(),
      method<&UIView::didMoveToSuperview, movedToSuperview>(),
      method<&UIView::willMoveToWindow, movesToWindow>(), method<&UIView::didMoveToWindow, movedToWindow>(),
      method<&UIView::didAddSubview, subviewChanges>(), method<&UIView::willRemoveSubview, subviewChanges>(),
      // Layout.
      method<&UIView::setNeedsLayout, view::setNeedsLayout>(),
      method<&UIView::layoutIfNeeded, view::layoutIfNeeded>(),
      method<&UIView::layoutSubviews, layoutSubviews>(),
      // Touches.
      ViewClass::property<&UIView::userInteractionEnabled, &ViewState::userInteractionEnabled>(),
      method<&UIView::hitTest_withEvent, view::hitTest>(),
      method<&UIView::pointInside_withEvent, view::pointInside>(),
      ViewClass::property<&UIView::multipleTouchEnabled, &ViewState::multipleTouchEnabled>(),
      method<&UIView::gestureRecognizers, view::gestureRecognizers>(),
      method<&UIView::addGestureRecognizer, view::addGestureRecognizer>(),
      method<&UIView::removeGestureRecognizer, view::removeGestureRecognizer>(),
      method<&UIView::gestureRecognizerShouldBegin, view::gestureRecognizerShouldBegin>(),
      // Animation.
      method<&UIView::animateWithDuration_animations, view::animate>(),
      method<&UIView::animateWithDuration_animations_completion, view::animateThen>(),
      method<&UIView::animateWithDuration_delay_options_animations_completion, view::animateWithOptions>(),
      method<
          &UIView::
              animateWithDuration_delay_usingSpringWithDamping_initialSpringVelocity_options_animations_completion,
          view::animateWithSpring>(),
      method<&UIView::performWithoutAnimation, view::performWithoutAnimation>(),
      method<&UIView::setAnimationsEnabled, view::setAnimationsEnabled>(),
      method<&UIView::areAnimationsEnabled, view::areAnimationsEnabled>());
}

}  // namespace sim::uikit
