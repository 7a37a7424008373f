// What follows from changes of recognisers: their actions, and their way back to the start.
#include "simulator/uikit/gestures/gesture_cycle.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "simulator/uikit/base/action.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_arbiter.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/gesture_state.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/gestures/touch_delivery.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using Recognizers = std::vector<Strong<UIGestureRecognizer>>;

// Those that have touches.
Recognizers& followed() {
  static auto& all = *new Recognizers();
  return all;
}

Recognizers& queued() {
  static auto& all = *new Recognizers();
  return all;
}

constinit int depth = 0;

void sendActions(UIGestureRecognizer recognizer) {
  const auto targets = stateOf(recognizer).targets;  // an action may change them
  for (const auto& target : targets)
    sendAction(target.action, target.object.get(), recognizer, currentEvent());
}

void sendQueuedActions() {
  while (!queued().empty()) {
    const Strong<UIGestureRecognizer> next = std::move(queued().front());
    queued().erase(queued().begin());
    sendActions(next);
  }
}

void forgetTouches(UIGestureRecognizer recognizer, auto which) {
  std::erase_if(stateOf(recognizer).touches, [&](const Strong<UITouch>& touch) {
    if (!which(touch.get())) return false;
    std::erase(stateOf(touch.get()).recognizers, retained(recognizer));
    return true;
  });
}

void startAnew(UIGestureRecognizer recognizer) {
  RecognizerState& state = stateOf(recognizer);
  centroid(recognizer);  // is what it goes on telling
  recognizer.reset();
  forgetTouches(recognizer, [](UITouch) { return true; });
  state.state = UIGestureRecognizerStatePossible;
  state.held.reset();
  state.mayBegin = false;
  state.abandoned = false;
}

// A gesture that has ended leaves its remaining touches alone. One that has failed takes part in nothing
// until they are over, so that those that wait for its failure see it.
bool isThrough(UIGestureRecognizer recognizer) {
  const RecognizerState& state = stateOf(recognizer);
  if (state.abandoned) return true;
  return isTerminal(state.state) &&
         (state.state != UIGestureRecognizerStateFailed || downTouches(recognizer).empty());
}

void lookAfterRecognizers() {
  const Recognizers all = followed();
  for (const auto& recognizer : all) {
    if (isThrough(recognizer))
      startAnew(recognizer);
    else if (hasRecognized(recognizer->state()))
      forgetTouches(recognizer, [](UITouch touch) { return !isDown(touch); });
  }
  std::erase_if(followed(), [](const auto& one) { return stateOf(one.get()).touches.empty(); });
}

}  // namespace

void followRecognizer(UIGestureRecognizer recognizer) {
  if (std::ranges::find(followed(), retained(recognizer)) == followed().end())
    followed().push_back(retained(recognizer));
}

void queueAction(UIGestureRecognizer recognizer) { queued().push_back(retained(recognizer)); }

void flushActions(UIGestureRecognizer recognizer) {
  const Strong<UIGestureRecognizer> own = retained(recognizer);
  for (auto count = std::erase(queued(), own); count > 0; --count) sendActions(recognizer);
}

void inGestureCycle(const std::function<void()>& work) {
  struct Depth {
    Depth() { ++depth; }
    ~Depth() { --depth; }
  } const inside;
  work();
  if (depth > 1) return;
  do {
    sendQueuedActions();
    deliverToViews();
  } while (!queued().empty());
  lookAfterRecognizers();
}

}  // namespace sim::uikit
