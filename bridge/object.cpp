// What handles ask of the runtime, the same on every platform.
#include "bridge/object.hpp"

#include "bridge/method.hpp"

namespace bridge {

Class lookedUp(Class& place, const char* name) {
  const Class found = objc_getClass(name);
  storeShared(place, found);
  return found;
}

SEL registered(SEL& place, const char* name) {
  const SEL found = sel_registerName(name);
  storeShared(place, found);
  return found;
}

bool isKindOf(Object object, Class cls) {
  if (!cls) return false;
  for (Class at = classOf(object.raw); at; at = class_getSuperclass(at))
    if (at == cls) return true;
  return false;
}

}  // namespace bridge
