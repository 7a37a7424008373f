// Arrays of objects.
#pragma once

#include <vector>

#include "bridge/strong.hpp"
#include "platform/foundation/array.hpp"

namespace sim::uikit {

/** An array of the objects in their order; borrowed from the innermost pool. */
template <class T>
NSArray makeArray(const std::vector<T>& objects) {
  auto array = bridge::make<NSMutableArray, &NSObject::init>();
  for (const auto& object : objects) {
    if constexpr (bridge::Handle<T>)
      array->addObject(object);
    else
      array->addObject(object.get());
  }
  return std::move(array).autoreleased();
}

}  // namespace sim::uikit
