// Key-value coding and observing, and listening to notifications, as the platform offers them to any object.
#pragma once

#include <string>
#include <vector>

#include "bridge/define.hpp"
#include "platform/foundation/key_value.hpp"
#include "platform/foundation/notification_center.hpp"

namespace test {

using KeyValue = NSKeyValueObserving;

inline KeyValue coding(bridge::Object object) { return bridge::as<KeyValue>(object); }

struct Notification : bridge::Face<"NSNotification", NSObject> {
  MESSAGE Method<"name", NSString()> name;
};

struct Witness : bridge::Face<"TestWitness", NSObject> {
  MESSAGE Method<"notified:", void(Notification)> notified;
};

// Key paths that changed and names of notifications that were posted, in order.
inline std::vector<std::string> witnessed;

inline void observeChange(Witness, NSString key, bridge::Object, NSDictionary, void*) {
  witnessed.push_back(key.UTF8String());
}
inline void observeNotification(Witness, Notification posted) {
  witnessed.push_back(posted.name().UTF8String());
}

inline bridge::Strong<Witness> makeWitness() {
  using Class = bridge::Implementation<Witness>;
  if (!Class::cls)
    Class::define<NSObject>(
        bridge::method<&KeyValue::observeValueForKeyPath_ofObject_change_context, observeChange>(),
        bridge::method<&Witness::notified, observeNotification>());
  return bridge::make<Witness, &NSObject::init>();
}

// Witnesses changes of `keys` of an object for as long as it lives.
class Observation {
 public:
  Observation(bridge::Object observed, std::vector<NSString> watched)
      : object(coding(observed)), keys(std::move(watched)) {
    for (NSString key : keys) object.addObserver_forKeyPath_options_context(witness.get(), key, 0, nullptr);
  }
  ~Observation() {
    for (NSString key : keys) object.removeObserver_forKeyPath(witness.get(), key);
  }

 private:
  bridge::Strong<Witness> witness = makeWitness();
  KeyValue object;
  std::vector<NSString> keys;
};

// Witnesses every notification of the default centre for as long as it lives.
class Listening {
 public:
  Listening() {
    NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
        witness.get(), bridge::Descriptor<&Witness::notified>::selector(), {}, {});
  }
  ~Listening() { NSNotificationCenter::defaultCenter().removeObserver(witness.get()); }

 private:
  bridge::Strong<Witness> witness = makeWitness();
};

}  // namespace test
