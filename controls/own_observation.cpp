// An object that observes properties of its own.
#include "controls/own_observation.hpp"

namespace tilo {

void OwnObservation::begin(bridge::Object observed, std::initializer_list<NSString> observedKeys) {
  object = bridge::as<NSKeyValueObserving>(observed);
  for (NSString key : observedKeys) {
    keys[count++] = key;
    object.addObserver_forKeyPath_options_context(object, key, 0, nullptr);
  }
}

OwnObservation::~OwnObservation() {
  while (count) object.removeObserver_forKeyPath(object, keys[--count]);
}

}  // namespace tilo
