// The first responder: the one object that gets what is typed.
#pragma once

#include "platform/uikit/view.hpp"

namespace sim::uikit {

/** None when nobody has become it. Borrowed. */
UIResponder firstResponder();

/** Whether the first responder has to give up whatever it or its delegate thinks of that. */
bool mustResign();

/** Somebody who leaves the screen cannot stay the first responder. */
void resignForcibly(UIResponder responder);
/** Somebody who dies is the first responder no more; nobody is told. */
void forgetResponder(UIResponder responder);

// UIResponder's methods.
namespace responder {

BOOL isFirstResponder(UIResponder self);
BOOL canBecomeFirstResponder(UIResponder self);
BOOL becomeFirstResponder(UIResponder self);
BOOL canResignFirstResponder(UIResponder self);
BOOL resignFirstResponder(UIResponder self);
UIView noInputView(UIResponder self);

}  // namespace responder

/** UIView's. */
BOOL endEditing(UIView self, BOOL force);

/** Called with every change of the first responder. */
void whenFirstResponderChanges(void (*callback)());

}  // namespace sim::uikit
