// UIView's animation blocks.
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit::view {

void animate(Class, double duration, bridge::BlockRef<void()> animations) {
  uikit::animate({.duration = duration}, animations, {});
}

void animateThen(Class, double duration, bridge::BlockRef<void()> animations,
                 bridge::BlockRef<void(BOOL)> completion) {
  uikit::animate({.duration = duration}, animations, completion);
}

void animateWithOptions(Class, double duration, double delay, NSUInteger options,
                        bridge::BlockRef<void()> animations, bridge::BlockRef<void(BOOL)> completion) {
  uikit::animate({.duration = duration, .delay = delay, .options = options}, animations, completion);
}

void animateWithSpring(Class, double duration, double delay, CGFloat damping, CGFloat velocity,
                       NSUInteger options, bridge::BlockRef<void()> animations,
                       bridge::BlockRef<void(BOOL)> completion) {
  uikit::animate({.duration = duration,
                  .delay = delay,
                  .options = options,
                  .spring = AnimationRequest::SpringRequest{damping, velocity}},
                 animations, completion);
}

void performWithoutAnimation(Class, bridge::BlockRef<void()> actions) { withoutAnimation(actions); }
void setAnimationsEnabled(Class, BOOL enabled) { uikit::setAnimationsEnabled(enabled); }
BOOL areAnimationsEnabled(Class) { return animationsEnabled(); }

}  // namespace sim::uikit::view
