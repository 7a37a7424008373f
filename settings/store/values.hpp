// Reading values by their keys, each as what it is: a wrong kind does not compile.
#pragma once

#include <optional>

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "settings/store/keys.hpp"

namespace tilo {

// What a hand has stored may be of any kind. A number is one that is finite, or a string that begins with
// such a one; everything else counts as absent.
NSNumber numberIn(bridge::Object stored);
// As single precision has it; what is beyond it is the largest there is. Zero when absent.
float floatIn(bridge::Object stored);
// Its whole part, nothing when absent.
std::optional<NSInteger> integerIn(bridge::Object stored);
// A string of truth counts as well, "YES" for one. NO when absent.
BOOL truthIn(bridge::Object stored);

// Looks into the dictionary at every question. What is absent, and everything in no dictionary, is NO or
// zero.
class Values {
 public:
  explicit Values(NSDictionary of) : dictionary(of) {}

  BOOL flag(Key<Kind::flag> key) const { return truthIn(object(key)); }
  float number(Key<Kind::number> key) const { return floatIn(object(key)); }
  NSInteger count(Key<Kind::count> key) const { return stored(key).value_or(0); }
  int index(Key<Kind::index> key) const { return numberIn(object(key)).intValue(); }
  // Nil when there is no dictionary.
  NSDictionary values(Key<Kind::object> key) const {
    bridge::Object found = object(key);
    return bridge::isKindOf<NSDictionary>(found) ? bridge::as<NSDictionary>(found) : NSDictionary{};
  }

  // Nothing when there is none.
  std::optional<NSInteger> stored(Key<Kind::count> key) const { return integerIn(object(key)); }
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
