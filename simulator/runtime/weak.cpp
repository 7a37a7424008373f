// References that do not keep their object.
#include "simulator/runtime/weak.hpp"

#include <mutex>
#include <unordered_map>

#include "simulator/runtime/dealloc.hpp"

namespace sim {
namespace {

// Objects die on any thread.
struct References : std::unordered_multimap<id, Weak*> {
  std::mutex lock;
};

References& references() {
  static auto& all = *new References();
  return all;
}

}  // namespace

void forgetWeak(id dead) {
  const std::lock_guard guard(references().lock);
  const auto [first, last] = references().equal_range(dead);
  for (auto one = first; one != last; ++one) one->second->object = {};
  references().erase(first, last);
}

void Weak::refer(bridge::Object to) {
  static const bool watching = [] {
    whenMarkedObjectsDie(forgetWeak);
    return true;
  }();
  const std::lock_guard guard(references().lock);
  if (object && watching) {
    const auto [first, last] = references().equal_range(object.raw);
    for (auto one = first; one != last; ++one) {
      if (one->second != this) continue;
      references().erase(one);
      break;
    }
  }
  object = to;
  if (!object) return;
  mark(object.raw);
  references().emplace(object.raw, this);
}

Weak::Weak(bridge::Object referred) { refer(referred); }
Weak::~Weak() { refer({}); }

Weak& Weak::operator=(const Weak& other) {
  refer(other.object);
  return *this;
}

}  // namespace sim
