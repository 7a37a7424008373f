// The first responder.
#include "simulator/uikit/views/first_responder.hpp"

#include <utility>

#include "bridge/strong.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

constinit id current = nullptr;  // not retained: it takes itself away
constinit bool forced = false;
constinit bool passing = false;  // from one responder to the next
constinit void (*changed)() = nullptr;

void become(id responder) {
  current = responder;
  if (changed && !passing) changed();
}

bool isOnNoScreen(UIResponder responder) {
  return bridge::isKindOf<UIView>(responder) && !windowOf(bridge::as<UIView>(responder));
}

bool refusesToResign(UIResponder self) { return !forced && !self.canResignFirstResponder(); }

// Nobody hears that there is no first responder between two.
bool giveWay(UIResponder responder) {
  const bool outer = std::exchange(passing, true);
  const bool gives = responder.resignFirstResponder();
  passing = outer;
  return gives;
}

}  // namespace

UIResponder firstResponder() { return bridge::as<UIResponder>(current); }
bool mustResign() { return forced; }

void resignForcibly(UIResponder responder) {
  if (current != responder.raw) return;
  const bool outer = std::exchange(forced, true);
  responder.resignFirstResponder();
  forced = outer;
}

void forgetResponder(UIResponder responder) {
  if (current == responder.raw) become(nullptr);
}

void whenFirstResponderChanges(void (*callback)()) { changed = callback; }

namespace responder {

BOOL isFirstResponder(UIResponder self) { return current == self.raw; }
BOOL canBecomeFirstResponder(UIResponder) { return NO; }
BOOL canResignFirstResponder(UIResponder) { return YES; }
UIView noInputView(UIResponder) { return {}; }

// Whoever was it before has to give up first.
BOOL becomeFirstResponder(UIResponder self) {
  if (self.isFirstResponder()) return YES;
  if (!self.canBecomeFirstResponder() || isOnNoScreen(self)) return NO;
  if (current && !giveWay(firstResponder())) return NO;
  become(self.raw);
  return YES;
}

BOOL resignFirstResponder(UIResponder self) {
  if (!self.isFirstResponder()) return YES;
  if (refusesToResign(self)) return NO;
  become(nullptr);
  return YES;
}

}  // namespace responder

BOOL endEditing(UIView self, BOOL force) {
  const UIResponder first = firstResponder();
  if (!bridge::isKindOf<UIView>(first) || !bridge::as<UIView>(first).isDescendantOfView(self)) return NO;
  if (!force) return first.resignFirstResponder();
  resignForcibly(first);
  return YES;
}

}  // namespace sim::uikit
