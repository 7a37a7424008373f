// Handles: an object type is a value of one word, so that a message to nothing is defined C++.
//
// A face names a class, its parent and the members in use:
//
//   struct UIView : bridge::Face<"UIView", UIResponder> {
//     MESSAGE Method<"frame", CGRect()> frame;
//   };
//
// A handle borrows; `Strong` (strong.hpp) owns.
#pragma once

#include <concepts>
#include <type_traits>

#include "bridge/name.hpp"
#include "bridge/runtime.hpp"

// A member of a face takes no room: it reads the handle it is part of through its own address.
#define MESSAGE [[no_unique_address]] ::bridge::

namespace bridge {

struct Object {
  id raw = nullptr;

  explicit operator bool() const { return raw != nullptr; }
};

inline bool operator==(Object one, Object other) { return one.raw == other.raw; }

template <Name ClassName, class Parent>
struct Face : Parent {
  static constexpr auto className = ClassName;
};

// A formal protocol: what an object may answer. It names no class, so nothing is looked up by it.
template <Name ProtocolName>
struct Protocol : Object {
  static constexpr auto protocolName = ProtocolName;
};

// False only for a class that has been declared and not yet defined: its header is missing where it is used.
template <class T>
inline constexpr bool isDefined = true;
template <class T>
  requires std::is_class_v<T>
inline constexpr bool isDefined<T> = requires { sizeof(T); };

template <class T>
concept Handle = std::derived_from<T, Object> && sizeof(T) == sizeof(id);

// The same object seen as another type: unchecked, as a C cast is.
template <Handle T>
T as(id object) {
  T handle;
  handle.raw = object;
  return handle;
}

template <Handle T>
T as(Object object) {
  return as<T>(object.raw);
}

// What a name stands for in this image: the class of ours that was defined for it, whatever the runtime knows
// by that name; else what it has been looked up to be.
template <Name ClassName>
inline constinit Class classOfName = nullptr;

// Looks a class up and keeps it where there is one.
Class lookedUp(Class& place, const char* name);

// Nil where the platform has none of that name. Looked up until it is there, then kept. Out of line: it is
// asked for everywhere.
template <Name ClassName>
[[gnu::noinline]] Class classCalled() {
  Class& cached = classOfName<ClassName>;
  const Class found = loadShared(cached);
  return found ? found : lookedUp(cached, ClassName.text);
}

// The class a face names.
template <class T>
Class classNamed() {
  return classCalled<T::className>();
}

// -[NSObject isKindOfClass:] for any object, by walking the superclasses; false for nil on either side.
bool isKindOf(Object object, Class cls);

template <class T>
bool isKindOf(Object object) {
  return isKindOf(object, classNamed<T>());
}

}  // namespace bridge
