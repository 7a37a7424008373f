// An object that observes properties of its own, from its initialiser to its end.
#pragma once

#include <initializer_list>

#include "platform/foundation/key_value.hpp"

namespace tilo {

// Part of the object's state; the object answers observeValueForKeyPath:ofObject:change:context:.
class OwnObservation {
 public:
  OwnObservation() = default;
  OwnObservation(const OwnObservation&) = delete;
  OwnObservation& operator=(const OwnObservation&) = delete;
  ~OwnObservation();

  // `observed` is not retained. At most as many keys as there are places; they live as long as the process.
  void begin(bridge::Object observed, std::initializer_list<NSString> observedKeys);

 private:
  static constexpr size_t places = 9;

  NSKeyValueObserving object;
  NSString keys[places];
  size_t count = 0;
};

}  // namespace tilo
