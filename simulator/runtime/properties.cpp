// Property records of classes: GCC's runtime has no way to add one, and answers that there are none.
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "bridge/runtime.hpp"
#include "simulator/runtime/export.hpp"

struct objc_property {
  std::string name, attributes;
};

namespace {

// A record lives as long as the process: whoever asked for it may keep it.
using Records = std::vector<std::unique_ptr<objc_property>>;

std::mutex& lock() {
  static std::mutex mutex;
  return mutex;
}

Records& recordsOf(Class cls) {
  static auto& classes = *new std::map<Class, Records>();
  return classes[cls];
}

objc_property* find(const Records& records, const char* name) {
  for (const auto& record : records)
    if (record->name == name) return record.get();
  return nullptr;
}

// "T@\"UIColor\",&,N,V_color": names longer than a letter stand in quotes.
std::string joined(const objc_property_attribute* attributes, unsigned int count) {
  std::string all;
  for (unsigned int i = 0; i < count; ++i) {
    const std::string name = attributes[i].name;
    if (i) all += ',';
    all += name.size() > 1 ? '"' + name + '"' : name;
    all += attributes[i].value;
  }
  return all;
}

}  // namespace

SIMULATOR_EXPORT BOOL class_addProperty(Class cls, const char* name,
                                        const objc_property_attribute* attributes, unsigned int count) {
  if (!cls || !name) return NO;
  const std::lock_guard guard(lock());
  Records& records = recordsOf(cls);
  if (find(records, name)) return NO;
  records.push_back(std::make_unique<objc_property>(objc_property{name, joined(attributes, count)}));
  return YES;
}

// The class's own alone, in the order in which they were added; to be freed. Null when there are none.
SIMULATOR_EXPORT objc_property** class_copyPropertyList(Class cls, unsigned int* count) {
  const std::lock_guard guard(lock());
  const Records& records = recordsOf(cls);
  if (count) *count = static_cast<unsigned int>(records.size());
  if (records.empty()) return nullptr;
  auto list = static_cast<objc_property**>(std::malloc((records.size() + 1) * sizeof(objc_property*)));
  for (size_t i = 0; i < records.size(); ++i) list[i] = records[i].get();
  list[records.size()] = nullptr;
  return list;
}

// The class's, or one of its parents'.
SIMULATOR_EXPORT objc_property* class_getProperty(Class cls, const char* name) {
  if (!name) return nullptr;
  const std::lock_guard guard(lock());
  for (Class at = cls; at; at = class_getSuperclass(at))
    if (objc_property* found = find(recordsOf(at), name)) return found;
  return nullptr;
}

SIMULATOR_EXPORT const char* property_getName(objc_property* property) { return property->name.c_str(); }
SIMULATOR_EXPORT const char* property_getAttributes(objc_property* property) {
  return property->attributes.c_str();
}
