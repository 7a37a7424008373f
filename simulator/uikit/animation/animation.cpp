// Animation blocks in force, and the groups of animations that they leave behind.
#include "simulator/uikit/animation/animation.hpp"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "simulator/device/clock.hpp"
#include "simulator/uikit/animation/frames.hpp"
#include "simulator/uikit/drawing/layer.hpp"

namespace sim::uikit {
namespace {

using bridge::Block;
using bridge::Strong;

// The moments of the clock are whole microseconds.
constexpr double clockStep = 1e-6;

// The animations of one block.
struct Group {
  std::uint64_t id;
  Block<void(BOOL)> completion;
  bool allowsTouches;
  bool finished = true;  // until an animation is taken away before its end
  double end = 0;        // of the last animation
  std::vector<Strong<CALayer>> layers{};
};

struct OpenBlock {
  AnimationRequest request;
  Group& group;
};

struct State {
  bool enabled = true;
  std::uint64_t lastGroup = 0;
  std::vector<std::unique_ptr<Group>> groups;  // oldest first
  std::vector<OpenBlock> blocks;               // outermost first
};

State& state() {
  static auto& value = *new State();
  return value;
}

bool animatesNow() { return state().enabled && !state().blocks.empty(); }

// An inner block runs with the outer one's duration and curve unless it insists on its own.
AnimationRequest inherit(AnimationRequest inner, const AnimationRequest& outer) {
  if (!(inner.options & UIViewAnimationOptionOverrideInheritedDuration)) inner.duration = outer.duration;
  if (!(inner.options & UIViewAnimationOptionOverrideInheritedCurve)) {
    constexpr NSUInteger curveBits = UIViewAnimationOptionCurveLinear;
    inner.spring = outer.spring;
    inner.options = (inner.options & ~curveBits) | (outer.options & curveBits);
  }
  return inner;
}

Pacing pacingOf(const AnimationRequest& request) {
  if (request.spring) return Spring(request.spring->dampingRatio, request.spring->velocity, request.duration);
  switch (request.options & UIViewAnimationOptionCurveLinear) {
    case UIViewAnimationOptionCurveEaseIn:
      return easeInCurve;
    case UIViewAnimationOptionCurveEaseOut:
      return easeOutCurve;
    case UIViewAnimationOptionCurveLinear:
      return linearCurve;
    default:
      return easeInOutCurve;
  }
}

AnimationTiming timingOf(const AnimationRequest& request, double now) {
  return {.start = now,
          .delay = request.delay,
          .duration = request.duration,
          .pacing = pacingOf(request),
          .repeatCount =
              request.options & UIViewAnimationOptionRepeat ? std::numeric_limits<double>::infinity() : 1,
          .autoreverses = (request.options & UIViewAnimationOptionAutoreverse) != 0};
}

// A block that is still running may change what it has changed before.
bool isOpen(std::uint64_t id) {
  const auto& blocks = state().blocks;
  return std::any_of(blocks.begin(), blocks.end(),
                     [id](const OpenBlock& block) { return block.group.id == id; });
}

// After animations were taken away early: the group ends with those that are left, or now.
void interrupt(std::uint64_t id, double now) {
  auto& groups = state().groups;
  const auto found =
      std::find_if(groups.begin(), groups.end(), [id](const auto& group) { return group->id == id; });
  if (found == groups.end()) return;
  Group& group = **found;
  group.finished = false;
  group.end = now;
  for (const Strong<CALayer>& layer : group.layers)
    for (const LayerAnimation& animation : layerOf(layer.get()).animations())
      if (animation.group == id) group.end = std::max(group.end, animation.timing.end());
}

void interruptAll(const std::vector<LayerAnimation>& removed, double now) {
  for (const LayerAnimation& animation : removed)
    if (animation.timing.end() > now && !isOpen(animation.group)) interrupt(animation.group, now);
}

void finish(Group& ended, double now) {
  auto& groups = state().groups;
  const auto place =
      std::find_if(groups.begin(), groups.end(), [&](const auto& group) { return group.get() == &ended; });
  const std::unique_ptr<Group> group = std::move(*place);
  groups.erase(place);
  for (const Strong<CALayer>& layer : group->layers)
    layerOf(layer.get()).removeFinishedAnimations(now + clockStep);
  if (group->completion) group->completion(group->finished);
}

}  // namespace

std::optional<double> nextAnimationEvent() {
  std::optional<double> next = nextFrame();
  for (const auto& group : state().groups)
    if (group->end < std::numeric_limits<double>::infinity() && (!next || group->end < *next))
      next = group->end;
  return next;
}

void runAnimationEvents(double now) {
  const std::uint64_t newest = state().lastGroup;
  while (true) {
    Group* due = nullptr;
    for (const auto& group : state().groups)
      if (group->id <= newest && group->end <= now + clockStep && (!due || group->end < due->end))
        due = group.get();
    const std::optional<double> frame = nextFrame();
    const bool frameIsDue = frame && *frame <= now + clockStep;
    const bridge::Pool pool;
    if (frameIsDue && (!due || *frame <= due->end))
      runFrame(*frame);
    else if (due)
      finish(*due, now);
    else
      return;
  }
}

void animate(const AnimationRequest& request, bridge::BlockRef<void()> animations,
             bridge::BlockRef<void(BOOL)> completion) {
  State& all = state();
  const double now = clock::now();
  const AnimationRequest effective = animatesNow() ? inherit(request, all.blocks.back().request) : request;
  all.groups.push_back(std::make_unique<Group>(
      Group{.id = ++all.lastGroup,
            .completion = Block<void(BOOL)>(completion),
            .allowsTouches = (request.options & UIViewAnimationOptionAllowUserInteraction) != 0,
            .end = std::numeric_limits<double>::infinity()}));
  Group& group = *all.groups.back();

  all.blocks.push_back({effective, group});
  struct Scope {
    Group& group;
    double now;
    ~Scope() {
      state().blocks.pop_back();
      // A block that animated nothing completes on the next turn.
      if (group.layers.empty()) group.end = now;
    }
  } const scope{group, now};
  if (animations) animations();
}

void withoutAnimation(bridge::BlockRef<void()> actions) {
  struct Scope {
    bool before = std::exchange(state().enabled, false);
    ~Scope() { state().enabled = before; }
  } scope;
  if (actions) actions();
}

bool animationsEnabled() { return state().enabled; }
void setAnimationsEnabled(bool enabled) { state().enabled = enabled; }

LayerChange::LayerChange(CALayer changed) : layer(changed), animated(animatesNow() && isOnScreen(changed)) {
  if (!animated) return;
  old = layerOf(layer).values();
  shown = layerOf(layer).presentation(clock::now());
}

LayerChange::~LayerChange() {
  if (!animated || state().blocks.empty()) return;
  const OpenBlock& block = state().blocks.back();
  if (block.request.duration <= 0 && block.request.delay <= 0) return;
  Layer& target = layerOf(layer);
  const double now = clock::now();
  LayerValues from = old;
  for (const LayerProperty property : allLayerProperties) {
    if (differenceOf(old, target, property) == PropertyNumbers{}) continue;
    if (!(block.request.options & UIViewAnimationOptionBeginFromCurrentState)) continue;
    setNumbers(from, property, numbersOf(shown, property));
    interruptAll(target.removeAnimations(property), now);
  }
  const AnimationTiming timing = timingOf(block.request, now);
  Group& group = block.group;
  if (!target.animateFrom(from, timing, group.id)) return;
  if (group.layers.empty()) group.end = now;
  group.end = std::max(group.end, timing.end());
  if (std::none_of(group.layers.begin(), group.layers.end(),
                   [&](const auto& known) { return known == layer; }))
    group.layers.push_back(retained(layer));
}

void cancelAnimations(CALayer layer) {
  const double now = clock::now();
  interruptAll(layerOf(layer).removeAnimations(), now);
}

bool ignoresTouches(CALayer layer) {
  const double now = clock::now();
  for (const LayerAnimation& animation : layerOf(layer).animations()) {
    if (animation.timing.end() <= now) continue;
    for (const auto& group : state().groups)
      if (group->id == animation.group && !group->allowsTouches) return true;
  }
  return false;
}

}  // namespace sim::uikit
