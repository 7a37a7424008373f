// Registering properties with their class.
#include "bridge/property.hpp"

#include "bridge/define.hpp"

namespace bridge {

void addProperty(Class cls, const PropertyEntry& entry) {
  addMethod(cls, entry.getter);
  addMethod(cls, entry.setter);
  objc_property_attribute attributes[5];
  unsigned int count = 0;
  attributes[count++] = {"T", entry.type};
  if (entry.keeping == Keeping::retained) attributes[count++] = {"&", ""};
  if (entry.keeping == Keeping::copied) attributes[count++] = {"C", ""};
  if (!entry.atomic) attributes[count++] = {"N", ""};
  // One text for both, where the getter bears the name.
  if (entry.getter.selector != entry.name) attributes[count++] = {"G", entry.getter.selector};
  attributes[count++] = {"V", entry.variable};
  class_addProperty(cls, entry.name, attributes, count);
}

}  // namespace bridge
