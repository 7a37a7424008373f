// The process's hooking library, MSHookMessageEx, and what it was used for.
#pragma once

#include <string>
#include <vector>

#include "bridge/runtime.hpp"

namespace sim {

/** A method that a library has replaced. */
struct Replacement {
  Class cls;  // that got the implementation; of a class method the metaclass
  SEL selector;
  IMP implementation, previous;
  std::string library;  // the name that its file has on the device, "Tilo.dylib"
};

/** All that went through MSHookMessageEx so far, in that order. */
const std::vector<Replacement>& replacements();

/** Those that an object of this class comes by when it is sent the message, the innermost first: each calls
 * the one before it, if it likes, and the first what was there before all of them. */
std::vector<Replacement> replacementsOf(Class cls, SEL selector);

/** Whether it is the class's own or its instances', as methods are written: "-name", "+name:". */
std::string methodName(Class cls, SEL selector);

/** Has `own` called for the message in place of what the class has for it, for whoever watches calls, and
 * answers what that is; or gives it back. The replacements above look the same meanwhile. The class has the
 * method itself. */
IMP interpose(Class cls, SEL selector, IMP own);
void withdraw(Class cls, SEL selector, IMP own);

}  // namespace sim
