// What delegates, views and recognisers themselves have to say about a gesture.
#include "simulator/uikit/gestures/gesture_questions.hpp"

#include <algorithm>

#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

// The delegate's answer to one question, or `otherwise` where it does not answer that one.
template <auto Question>
bool ask(UIGestureRecognizer recognizer, bool otherwise, auto... arguments) {
  const bridge::Object delegate = stateOf(recognizer).delegate.get();
  if (!delegate ||
      !bridge::as<NSObject>(delegate).respondsToSelector(bridge::Descriptor<Question>::selector()))
    return otherwise;
  return bridge::Descriptor<Question>::send(delegate.raw, recognizer, arguments...);
}

bool simultaneous(UIGestureRecognizer one, UIGestureRecognizer other) {
  constexpr auto question =
      &UIGestureRecognizerDelegate::gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer;
  return ask<question>(one, false, other) || ask<question>(other, false, one);
}

}  // namespace

bool shouldReceive(UIGestureRecognizer recognizer, UITouch touch) {
  return ask<&UIGestureRecognizerDelegate::gestureRecognizer_shouldReceiveTouch>(recognizer, true, touch);
}

bool shouldBegin(UIGestureRecognizer recognizer) {
  if (!ask<&UIGestureRecognizerDelegate::gestureRecognizerShouldBegin>(recognizer, true)) return false;
  const UIView own = recognizer.view();
  for (const auto& touch : stateOf(recognizer).touches) {
    const UIView touched = touch->view();
    if (touched && !(touched == own) && !touched.gestureRecognizerShouldBegin(recognizer)) return false;
  }
  return !own || own.gestureRecognizerShouldBegin(recognizer);
}

bool requiresFailure(UIGestureRecognizer recognizer, UIGestureRecognizer other) {
  const bool required = std::ranges::any_of(stateOf(recognizer).requiredToFail,
                                            [&](const Weak& one) { return one.get() == other; });
  return required ||
         ask<&UIGestureRecognizerDelegate::gestureRecognizer_shouldRequireFailureOfGestureRecognizer>(
             recognizer, false, other) ||
         ask<&UIGestureRecognizerDelegate::gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer>(
             other, false, recognizer);
}

bool prevents(UIGestureRecognizer recognizer, UIGestureRecognizer other) {
  return recognizer.canPreventGestureRecognizer(other) &&
         other.canBePreventedByGestureRecognizer(recognizer) && !simultaneous(recognizer, other);
}

}  // namespace sim::uikit
