// What handles ask of the runtime, the same on every platform.
#include "bridge/object.hpp"

namespace bridge {

bool isKindOf(Object object, Class cls) {
  if (!cls) return false;
  for (Class at = classOf(object.raw); at; at = class_getSuperclass(at))
    if (at == cls) return true;
  return false;
}

}  // namespace bridge
