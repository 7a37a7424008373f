// Animation blocks: what changes inside one is animated, and its completion is called when that has ended.
//
// Completions are called by runAnimationEvents, which whoever moves the clock calls each time it has come to
// nextAnimationEvent(). What a completion starts for the same moment waits for the next call.
#pragma once

#include <optional>

#include "platform/uikit/layer.hpp"
#include "platform/uikit/view.hpp"
#include "simulator/quartz/layer.hpp"

namespace sim::uikit {

/** When something is to happen next, in seconds of the clock; none when nothing is. May have passed. */
std::optional<double> nextAnimationEvent();
/** Does in order what is due at `now`; completions run in a pool of their own. */
void runAnimationEvents(double now);

/** What a block asks for; times in seconds. */
struct AnimationRequest {
  double duration = 0;
  double delay = 0;
  NSUInteger options = UIViewAnimationOptionCurveEaseInOut;
  // Of a spring, where there is one; the velocity is in whole distances per second.
  struct SpringRequest {
    double dampingRatio, velocity;
  };
  std::optional<SpringRequest> spring{};
};

/** Runs `animations` at once; `completion` gets whether they came to their end. Either may be nothing. */
void animate(const AnimationRequest& request, bridge::BlockRef<void()> animations,
             bridge::BlockRef<void(BOOL)> completion);
void withoutAnimation(bridge::BlockRef<void()> actions);
bool animationsEnabled();
void setAnimationsEnabled(bool enabled);

/** Stands around every change of a layer's animatable values, and animates it as the block in force asks. */
class LayerChange {
 public:
  explicit LayerChange(CALayer layer);
  ~LayerChange();
  LayerChange(const LayerChange&) = delete;
  LayerChange& operator=(const LayerChange&) = delete;

 private:
  CALayer layer;
  bool animated;
  LayerValues old, shown;  // before the change: the model's and the presented ones
};

/** Ends a layer's animations at the model's values; completions hear NO. */
void cancelAnimations(CALayer layer);
/** Whether an animation runs on the layer whose block did not allow touches meanwhile. */
bool ignoresTouches(CALayer layer);

}  // namespace sim::uikit
