// Strong<T>: a handle that owns one reference.
//
// It is made only by `adopt` (the reference is handed over) and `retained` (a new one is taken), assigns by
// swap, and empties before it releases, so that a dealloc that looks back finds nothing.
#pragma once

#include <utility>

#include "bridge/object.hpp"

namespace bridge {

template <class T>
class Strong {
 public:
  constexpr Strong() = default;
  constexpr Strong(std::nullptr_t) {}
  Strong(const Strong& other) : object(retain(other.object)) {}
  Strong(Strong&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
  template <std::derived_from<T> U>
  Strong(Strong<U> other) : object(other.leak()) {}
  ~Strong() { clear(); }

  Strong& operator=(Strong other) noexcept {
    std::swap(object, other.object);
    return *this;
  }

  void clear() {
    if (id old = std::exchange(object, nullptr)) release(old);
  }

  T get() const& { return as<T>(object); }
  operator T() const& { return get(); }
  operator T() const&& = delete;  // the borrowed handle would outlive its owner

  // Borrowed from the innermost pool: for an argument or a result that nobody keeps.
  [[nodiscard]] T autoreleased() && { return as<T>(autorelease(leak())); }

  // Gives the reference up to the caller.
  [[nodiscard]] id leak() { return std::exchange(object, nullptr); }

  explicit operator bool() const { return object != nullptr; }

  // A Strong is one word, the same one as the handle it holds.
  const T* operator->() const { return reinterpret_cast<const T*>(&object); }

 private:
  template <class U>
  friend Strong<U> adopt(id);

  id object = nullptr;
};

template <class T>
bool operator==(const Strong<T>& one, const Strong<T>& other) {
  return one.get() == other.get();
}

// Owns a reference that the caller already has.
template <class T>
[[nodiscard]] Strong<T> adopt(id object) {
  Strong<T> owner;
  owner.object = object;
  return owner;
}

// Owns a new reference.
template <class T>
[[nodiscard]] Strong<T> retained(T object) {
  return adopt<T>(retain(object.raw));
}

}  // namespace bridge
