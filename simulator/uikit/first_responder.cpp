// The first responder.
#include "simulator/uikit/first_responder.hpp"

#include <utility>

#include "bridge/strong.hpp"
#include "simulator/uikit/view.hpp"

namespace sim::uikit {
namespace {

constinit id current = nullptr;  // not retained: it takes itself away
constinit bool forced = false;
constinit void (*changed)() = nullptr;

void become(id responder) {
  current = responder;
  if (changed) changed();
}

bool isOnNoScreen(UIResponder responder) {
  return bridge::isKindOf<UIView>(responder) && !windowOf(bridge::as<UIView>(responder));
}

bool refusesToResign(UIResponder self) { return !forced && !self.canResignFirstResponder(); }

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
  if (current && !firstResponder().resignFirstResponder()) return NO;
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
