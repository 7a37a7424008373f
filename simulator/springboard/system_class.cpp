// Which methods a class of SpringBoard gets.
#include "simulator/springboard/system_class.hpp"

#include <cstring>

namespace sim::springboard {
namespace {

constexpr const char* privatePrefix = "sim_";  // of methods that only the simulator knows

bool inherits(Class cls, const bridge::MethodEntry& entry) {
  Class parent = class_getSuperclass(cls);
  return class_getInstanceMethod(entry.ofClass ? bridge::classOf(reinterpret_cast<id>(parent)) : parent,
                                 sel_registerName(entry.selector));
}

}  // namespace

void addRow(Class cls, const SystemMethod& method) {
  const bridge::MethodEntry& entry = method.entry;
  const char* selector = entry.selector;
  const bool isPrivate = std::strncmp(selector, privatePrefix, std::strlen(privatePrefix)) == 0;
  if (isPrivate || hasOwnMethod(class_getName(cls), entry.ofClass, selector) ||
      (isComplete() && (!inherits(cls, entry) || isOnlyNamed(class_getName(cls), entry.ofClass, selector))))
    bridge::addMethod(cls, entry);
}

}  // namespace sim::springboard
