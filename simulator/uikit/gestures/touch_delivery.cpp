// Telling views of touches.
#include "simulator/uikit/gestures/touch_delivery.hpp"

#include <utility>
#include <vector>

#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_arbiter.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

void tell(UIView view, NSInteger phase, const std::vector<Strong<UITouch>>& touches) {
  const NSSet set = makeSet(touches);
  switch (phase) {
    case UITouchPhaseBegan:
      return view.touchesBegan_withEvent(set, currentEvent());
    case UITouchPhaseMoved:
      return view.touchesMoved_withEvent(set, currentEvent());
    case UITouchPhaseEnded:
      return view.touchesEnded_withEvent(set, currentEvent());
    default:
      return view.touchesCancelled_withEvent(set, currentEvent());
  }
}

// Where a touch has got to, kept while its view hears of an earlier phase.
struct Present {
  explicit Present(const TouchState& state)
      : phase(state.phase), location(state.location), previous(state.previous) {}

  NSInteger phase;
  CGPoint location, previous;
};

void show(TouchState& state, NSInteger phase) {
  state.phase = phase;
  if (phase == UITouchPhaseBegan) state.location = state.previous = state.start;
}

void restore(TouchState& state, const Present& present) {
  state.phase = present.phase;
  state.location = present.location;
  state.previous = present.previous;
}

// Tells of a phase, which the touches show meanwhile even where they have gone further.
void tellPhase(NSInteger phase, std::vector<Strong<UITouch>> touches) {
  while (!touches.empty()) {
    const Strong<UIView> view = stateOf(touches.front().get()).view;
    std::vector<Strong<UITouch>> ofView;
    std::erase_if(touches, [&](const Strong<UITouch>& touch) {
      if (!(stateOf(touch.get()).view == view)) return false;
      ofView.push_back(touch);
      return true;
    });
    std::vector<Present> presents;
    for (const auto& touch : ofView) {
      presents.emplace_back(stateOf(touch.get()));
      show(stateOf(touch.get()), phase);
    }
    tell(view, phase, ofView);
    for (std::size_t i = 0; i < ofView.size(); ++i) restore(stateOf(ofView[i].get()), presents[i]);
  }
}

// Goes through the touches, changes what `step` says, and tells of those for which it answers yes.
void forEachTouch(NSInteger phase, bool (*step)(UITouch touch, TouchState& state)) {
  const std::vector<Strong<UITouch>> all = liveTouches();
  std::vector<Strong<UITouch>> concerned;
  for (const auto& touch : all)
    if (step(touch, stateOf(touch.get()))) concerned.push_back(touch);
  tellPhase(phase, std::move(concerned));
}

bool begins(UITouch touch, TouchState& state) {
  if (state.delivery != TouchDelivery::waiting) return false;
  if (state.cancelled || !state.view || state.phase == UITouchPhaseCancelled) {
    state.delivery = TouchDelivery::over;
    return false;
  }
  if (isBeginningWithheld(touch)) return false;
  state.delivery = TouchDelivery::begun;
  if (state.phase == UITouchPhaseBegan) state.changed = false;
  return true;
}

bool moves(UITouch, TouchState& state) {
  if (state.delivery != TouchDelivery::begun || state.cancelled) return false;
  return state.phase == UITouchPhaseMoved && std::exchange(state.changed, false) && windowOf(state.view);
}

bool isCancelled(UITouch, TouchState& state) {
  if (state.delivery != TouchDelivery::begun) return false;
  if (!state.cancelled && state.phase != UITouchPhaseCancelled && windowOf(state.view)) return false;
  state.delivery = TouchDelivery::over;
  return true;
}

bool ends(UITouch touch, TouchState& state) {
  if (state.delivery != TouchDelivery::begun || state.phase != UITouchPhaseEnded || isEndWithheld(touch))
    return false;
  state.delivery = TouchDelivery::over;
  return true;
}

}  // namespace

void deliverToViews() {
  forEachTouch(UITouchPhaseBegan, begins);
  forEachTouch(UITouchPhaseMoved, moves);
  forEachTouch(UITouchPhaseCancelled, isCancelled);
  forEachTouch(UITouchPhaseEnded, ends);
  std::erase_if(liveTouches(), [](const Strong<UITouch>& touch) {
    return !isDown(touch) && stateOf(touch.get()).delivery == TouchDelivery::over;
  });
}

}  // namespace sim::uikit
