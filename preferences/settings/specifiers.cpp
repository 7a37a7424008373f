// Reading the specifier file.
#include "preferences/settings/specifiers.hpp"

#include <cstdio>

#include "preferences/settings/checks.hpp"
#include "settings/store/keys.hpp"
#include "settings/store/presets_file.hpp"

namespace tilo::pane {
namespace {

[[clang::no_destroy]] constinit bridge::Strong<NSString> otherFile;

NSDictionary file() {
  NSString path = otherFile ? otherFile.get() : bundlePath().stringByAppendingPathComponent("Root.plist"_ns);
  return NSDictionary::dictionaryWithContentsOfFile(path);
}

NSArray dictionariesIn(NSArray list) {
  NSMutableArray found = NSMutableArray::array();
  for (NSUInteger i = 0; i < list.count(); ++i)
    if (bridge::Object each = list.objectAtIndex(i);
        bridge::isKindOf<NSDictionary>(each) && keyOf(bridge::as<NSDictionary>(each)))
      found.addObject(each);
  return found;
}

NSString nameOf(bridge::Object record, NSUInteger place) {
  if (bridge::isKindOf<NSDictionary>(record))
    if (NSString name = textIn(bridge::as<NSDictionary>(record), keys::name)) return name;
  char text[32];
  std::snprintf(text, sizeof text, "%lu", static_cast<unsigned long>(place));
  return NSString::stringWithUTF8String(text);
}

// "Custom" stands first, with a position that no layout has.
NSDictionary withLayouts(NSDictionary item) {
  NSArray names = layoutNames();
  NSMutableArray titles = NSMutableArray::array(), values = NSMutableArray::array();
  titles.addObject("Custom"_ns);
  values.addObject(NSNumber::numberWithInt(-1));
  for (NSUInteger i = 0; i < names.count(); ++i) {
    titles.addObject(names.objectAtIndex(i));
    values.addObject(NSNumber::numberWithInt(static_cast<int>(i)));
  }
  NSMutableDictionary made = item.mutableCopy().autoreleased();
  made.setObject_forKey(titles, "validTitles"_ns);
  made.setObject_forKey(values, "validValues"_ns);
  return made;
}

}  // namespace

void useSpecifierFile(NSString path) { otherFile = bridge::retained(path); }

NSArray settingItems() {
  NSArray all = dictionariesIn(listIn(file(), "items"_ns));
  NSMutableArray items = NSMutableArray::array();
  for (NSUInteger i = 0; i < all.count(); ++i) {
    NSDictionary item = bridge::as<NSDictionary>(all.objectAtIndex(i));
    if (is(textIn(item, "choices"_ns), "layouts"_ns)) item = withLayouts(item);
    if (isSound(item) && textIn(item, "label"_ns)) items.addObject(item);
  }
  return items;
}

NSArray unseenItems() {
  NSArray all = dictionariesIn(listIn(file(), "unseen"_ns));
  NSMutableArray items = NSMutableArray::array();
  for (NSUInteger i = 0; i < all.count(); ++i)
    if (isSound(bridge::as<NSDictionary>(all.objectAtIndex(i)))) items.addObject(all.objectAtIndex(i));
  return items;
}

NSDictionary itemNamed(NSString name) {
  NSArray items = settingItems();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    NSDictionary item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    if (is(keyOf(item), name) || is(textIn(item, "label"_ns), name)) return item;
  }
  return {};
}

NSArray layoutNames() {
  NSArray records = presets::load();
  NSMutableArray names = NSMutableArray::array();
  for (NSUInteger i = 0; i < records.count(); ++i) names.addObject(nameOf(records.objectAtIndex(i), i));
  return names;
}

}  // namespace tilo::pane
