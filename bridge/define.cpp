// Building classes at run time.
#include "bridge/define.hpp"

#include <cstdio>

namespace bridge {
namespace {

// "RQPopupView" keeps its state in "RQPopupView_state".
struct StateName {
  char text[128];
  explicit StateName(const char* className) { std::snprintf(text, sizeof text, "%s_state", className); }
};

constexpr int lastNumber = 99;
constexpr uint8_t stateAlignment = 3;  // as a power of two

}  // namespace

Class openClass(Class superclass, const char* name) {
  if (!superclass) return nullptr;
  Class made = objc_allocateClassPair(superclass, name, 0);
  for (int number = 2; !made && number <= lastNumber; ++number) {
    char other[128];
    std::snprintf(other, sizeof other, "%s.%d", name, number);
    made = objc_allocateClassPair(superclass, other, 0);
  }
  return made;
}

bool claim(const char* name) {
  Class made = objc_allocateClassPair(objc_getClass("NSObject"), name, 0);
  if (made) objc_registerClassPair(made);
  return made != nullptr;
}

void addMethod(Class cls, const MethodEntry& entry) {
  Class owner = entry.ofClass ? classOf(reinterpret_cast<id>(cls)) : cls;
  class_addMethod(owner, sel_registerName(entry.selector), entry.implementation, entry.types);
}

void addProtocol(Class cls, const ProtocolEntry& entry) {
  if (objc_protocol* protocol = objc_getProtocol(entry.name)) class_addProtocol(cls, protocol);
}

void addState(Class cls, size_t size) {
  class_addIvar(cls, StateName(class_getName(cls)).text, size, stateAlignment, "?");
}

ptrdiff_t stateOffset(Class cls) {
  objc_ivar* variable = class_getInstanceVariable(cls, StateName(class_getName(cls)).text);
  return variable ? ivar_getOffset(variable) : 0;
}

}  // namespace bridge
