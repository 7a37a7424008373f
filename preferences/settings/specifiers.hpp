// The specifier file: every setting with its title, kind and range, in the order of the page in Settings.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"

namespace tilo::pane {

inline NSString bundlePath() { return "/Library/PreferenceBundles/Tilo.bundle"_ns; }

// Reads another file than the bundle's from now on.
void useSpecifierFile(NSString path);

// The settings that a person sees, each as its dictionary in the file; a list that is made anew each time has
// its titles and values as they are now. What somebody has edited so that it is no setting any more is left
// out. Empty without a file.
NSArray settingItems();
// Those that nobody sees and a backup keeps.
NSArray unseenItems();

// By key or title among those that a person sees; nil when there is none.
NSDictionary itemNamed(NSString name);

// What the file says of an item.
inline NSString textIn(NSDictionary item, NSString key) {
  bridge::Object found = item.objectForKey(key);
  return bridge::isKindOf<NSString>(found) ? bridge::as<NSString>(found) : NSString{};
}
inline NSArray listIn(NSDictionary item, NSString key) {
  bridge::Object found = item.objectForKey(key);
  return bridge::isKindOf<NSArray>(found) ? bridge::as<NSArray>(found) : NSArray{};
}
inline bool is(NSString text, NSString other) { return text && text.isEqualToString(other); }
inline NSString keyOf(NSDictionary item) { return textIn(item, "key"_ns); }

// The names of the saved layouts, in the file's order; what has none is called by its place.
NSArray layoutNames();

}  // namespace tilo::pane
