// Reading values by their keys, each as what it is: a wrong kind does not compile.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "settings/store/keys.hpp"

namespace tilo {

// Looks into the dictionary at every question. What is absent, and everything in no dictionary, is NO or
// zero.
class Values {
 public:
  explicit Values(NSDictionary of) : dictionary(of) {}

  BOOL flag(Key<Kind::flag> key) const { return stored(key).boolValue(); }
  float number(Key<Kind::number> key) const { return stored(key).floatValue(); }
  NSInteger count(Key<Kind::count> key) const { return stored(key).integerValue(); }
  int index(Key<Kind::index> key) const { return stored(key).intValue(); }
  NSDictionary values(Key<Kind::object> key) const { return bridge::as<NSDictionary>(object(key)); }

  // The stored number itself; nil when there is none.
  template <Kind kind>
    requires(kind != Kind::text && kind != Kind::object)
  NSNumber stored(Key<kind> key) const {
    return bridge::as<NSNumber>(object(key));
  }
  bridge::Object object(NSString key) const { return dictionary.objectForKey(key); }

 private:
  NSDictionary dictionary;
};

// The current preference values, nil when there are none: the very dictionary of ConfigurationManager.
// Written and read on the main thread only, and never destroyed: SpringBoard asks for layouts until its
// process ends.
extern bridge::Strong<NSMutableDictionary> rootObj;

inline Values settings() { return Values(rootObj.get()); }

}  // namespace tilo
