// References that do not keep their object and are empty once it is gone.
#pragma once

#include "bridge/object.hpp"

namespace sim {

/** Refers to an object without owning it; nil as soon as the object is deallocated. */
class Weak {
 public:
  Weak() = default;
  explicit Weak(bridge::Object object);
  Weak(const Weak& other) : Weak(other.object) {}
  Weak& operator=(const Weak& other);
  Weak& operator=(bridge::Object other) { return *this = Weak(other); }
  ~Weak();

  bridge::Object get() const { return object; }
  operator bridge::Object() const { return object; }

 private:
  friend void forgetWeak(id dead);

  void refer(bridge::Object to);

  bridge::Object object;
};

}  // namespace sim
