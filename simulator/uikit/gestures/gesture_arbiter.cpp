// The arbiter among gesture recognisers.
#include "simulator/uikit/gestures/gesture_arbiter.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_cycle.hpp"
#include "simulator/uikit/gestures/gesture_questions.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/gesture_state.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using Recognizers = std::vector<Strong<UIGestureRecognizer>>;

bool contains(const auto& list, auto object) {
  return std::ranges::any_of(list, [&](const auto& one) { return one == object; });
}

bool isPossible(UIGestureRecognizer recognizer) {
  return stateOf(recognizer).state == UIGestureRecognizerStatePossible;
}

// The others that have a touch in common with it.
Recognizers rivals(UIGestureRecognizer recognizer) {
  Recognizers found;
  for (const auto& touch : stateOf(recognizer).touches)
    for (const auto& other : stateOf(touch.get()).recognizers)
      if (!(other == retained(recognizer)) && !contains(found, other)) found.push_back(other);
  return found;
}

void apply(UIGestureRecognizer recognizer, NSInteger to);
void tryToRecognize(UIGestureRecognizer recognizer, NSInteger to);

// Those that waited for this one to fail may go on.
void releaseWaiting(UIGestureRecognizer failed) {
  for (const auto& other : rivals(failed))
    if (stateOf(other.get()).held && isPossible(other)) tryToRecognize(other, *stateOf(other.get()).held);
}

// Along a row of the table.
void apply(UIGestureRecognizer recognizer, NSInteger to) {
  RecognizerState& state = stateOf(recognizer);
  const GestureTransition* row = findTransition(state.state, to);
  if (!row)
    raise("NSInternalInconsistencyException"_ns,
          fmt::format("a gesture recognizer cannot go from state {} to {}", state.state, to));
  flushActions(recognizer);
  state.state = to;
  state.held.reset();
  if (isTerminal(to)) stopTimer(recognizer);
  if (row->sendsAction) queueAction(recognizer);
  if (to == UIGestureRecognizerStateFailed) releaseWaiting(recognizer);
}

// Out of the possible state: the questions in their documented order.
void tryToRecognize(UIGestureRecognizer recognizer, NSInteger to) {
  RecognizerState& state = stateOf(recognizer);
  if (!state.mayBegin && !shouldBegin(recognizer)) return apply(recognizer, UIGestureRecognizerStateFailed);
  state.mayBegin = true;
  const Recognizers others = rivals(recognizer);
  for (const auto& other : others) {
    if (!requiresFailure(recognizer, other)) continue;
    if (hasRecognized(other->state())) return apply(recognizer, UIGestureRecognizerStateFailed);
    if (isPossible(other)) {
      state.held = to;
      return;
    }
  }
  for (const auto& other : others)
    if (hasRecognized(other->state()) && prevents(other, recognizer))
      return apply(recognizer, UIGestureRecognizerStateFailed);
  if (state.cancelsTouchesInView)
    for (const auto& touch : state.touches) stateOf(touch.get()).cancelled = true;
  apply(recognizer, to);
  for (const auto& other : others)
    if (isPossible(other) && (requiresFailure(other, recognizer) || prevents(recognizer, other)))
      apply(other, UIGestureRecognizerStateFailed);
}

// Whether it still listens to what its touches do.
bool listens(UIGestureRecognizer recognizer) {
  const RecognizerState& state = stateOf(recognizer);
  return state.enabled && !isTerminal(state.state) && state.held != UIGestureRecognizerStateRecognized;
}

bool takes(UIGestureRecognizer recognizer, UITouch touch) {
  return listens(recognizer) && shouldReceive(recognizer, touch);
}

void tell(UIGestureRecognizer recognizer, NSInteger phase, const std::vector<UITouch>& touches) {
  const NSSet set = makeSet(touches);
  switch (phase) {
    case UITouchPhaseBegan:
      return recognizer.touchesBegan_withEvent(set, currentEvent());
    case UITouchPhaseMoved:
      return recognizer.touchesMoved_withEvent(set, currentEvent());
    case UITouchPhaseEnded:
      return recognizer.touchesEnded_withEvent(set, currentEvent());
    default:
      return recognizer.touchesCancelled_withEvent(set, currentEvent());
  }
}

bool isTracked(UIGestureRecognizer recognizer, UITouch touch) {
  return contains(stateOf(recognizer).touches, retained(touch));
}

bool withholds(UITouch touch, BOOL RecognizerState::* delays) {
  return std::ranges::any_of(stateOf(touch).recognizers, [&](const auto& one) {
    return stateOf(one.get()).*delays && isPossible(one) && isTracked(one, touch);
  });
}

}  // namespace

void attachRecognizers(UITouch touch) {
  for (UIView view = stateOf(touch).view; view; view = view.superview()) {
    const Recognizers known = stateOf(view).gestureRecognizers;
    for (const auto& recognizer : known) {
      if (!takes(recognizer, touch)) continue;
      stateOf(touch).recognizers.push_back(recognizer);
      stateOf(recognizer.get()).touches.push_back(retained(touch));
      followRecognizer(recognizer);
    }
  }
}

void deliverToRecognizers(const std::vector<UITouch>& changed) {
  Recognizers concerned;
  for (const UITouch touch : changed)
    for (const auto& recognizer : stateOf(touch).recognizers)
      if (!contains(concerned, recognizer)) concerned.push_back(recognizer);
  for (const auto& recognizer : concerned) {
    for (const NSInteger phase :
         {UITouchPhaseBegan, UITouchPhaseMoved, UITouchPhaseEnded, UITouchPhaseCancelled}) {
      std::vector<UITouch> touches;
      for (const UITouch touch : changed)
        if (stateOf(touch).phase == phase && isTracked(recognizer, touch)) touches.push_back(touch);
      if (!touches.empty() && listens(recognizer)) tell(recognizer, phase, touches);
    }
  }
}

void requestState(UIGestureRecognizer recognizer, NSInteger to) {
  inGestureCycle([=] {
    const bool recognizes = to == UIGestureRecognizerStateBegan || to == UIGestureRecognizerStateRecognized;
    if (isPossible(recognizer) && recognizes)
      tryToRecognize(recognizer, to);
    else
      apply(recognizer, to);
  });
}

void abandonGesture(UIGestureRecognizer recognizer) {
  if (stateOf(recognizer).touches.empty()) return;
  inGestureCycle([=] {
    giveUp(recognizer);
    stateOf(recognizer).abandoned = true;
  });
}

bool isBeginningWithheld(UITouch touch) { return withholds(touch, &RecognizerState::delaysTouchesBegan); }
bool isEndWithheld(UITouch touch) { return withholds(touch, &RecognizerState::delaysTouchesEnded); }

}  // namespace sim::uikit
