// Telling classes by their names.
#include "simulator/product/class_names.hpp"

#include <string_view>

namespace sim::product {

bool isKindOfNamed(bridge::Object object, const char* name) {
  const std::string_view wanted = name;
  for (Class cls = bridge::classOf(object.raw); cls; cls = class_getSuperclass(cls)) {
    const std::string_view found = class_getName(cls);
    if (found.starts_with(wanted) && (found.size() == wanted.size() || found[wanted.size()] == '.'))
      return true;
  }
  return false;
}

}  // namespace sim::product
