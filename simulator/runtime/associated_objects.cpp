// Associated objects, which GCC's runtime lacks: a table on the side, cleared when an object dies.
#include <mutex>
#include <unordered_map>

#include "bridge/method.hpp"
#include "bridge/strong.hpp"
#include "simulator/runtime/dealloc.hpp"
#include "simulator/runtime/export.hpp"

namespace {

// What is done with a value, by the last byte of the policy, as in Apple's runtime: with any other it is only
// remembered.
enum : uintptr_t { retained = 1, copied = 3, lastByte = 0xFF };

struct Association {
  id value = nullptr;
  bool owned = false;

  void drop() {
    if (owned) bridge::release(value);
  }
};

using Associations = std::unordered_map<const void*, Association>;

std::mutex& lock() {
  static std::mutex mutex;
  return mutex;
}

std::unordered_map<id, Associations>& table() {
  static auto& objects = *new std::unordered_map<id, Associations>();
  return objects;
}

// Values are released outside the lock: their own dealloc may come back here.
void forget(id object) {
  Associations gone;
  {
    std::lock_guard guard(lock());
    auto found = table().find(object);
    if (found == table().end()) return;
    gone = std::move(found->second);
    table().erase(found);
  }
  for (auto& [key, association] : gone) association.drop();
}

}  // namespace

SIMULATOR_EXPORT void objc_setAssociatedObject(id object, const void* key, id value, uintptr_t policy) {
  if (!object) return;
  static const bool watching = (sim::whenMarkedObjectsDie(forget), true);
  (void)watching;
  sim::mark(object);
  const uintptr_t way = policy & lastByte;
  Association next{value, value && (way == retained || way == copied)};
  if (way == copied)
    next.value = bridge::Message<"copy", id()>::send(value);
  else if (next.owned)
    bridge::retain(value);
  Association previous;
  {
    std::lock_guard guard(lock());
    Associations& mine = table()[object];
    previous = mine[key];
    if (value)
      mine[key] = next;
    else
      mine.erase(key);
  }
  previous.drop();
}

SIMULATOR_EXPORT id objc_getAssociatedObject(id object, const void* key) {
  std::lock_guard guard(lock());
  auto found = table().find(object);
  if (found == table().end()) return nullptr;
  auto association = found->second.find(key);
  return association == found->second.end() ? nullptr : association->second.value;
}
