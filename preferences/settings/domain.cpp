// Reading and writing the domain, and announcing what has changed.
#include "preferences/settings/domain.hpp"

#include "platform/appsupport/messaging_center.hpp"
#include "platform/foundation/file_manager.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/specifiers.hpp"
#include "settings/store/domain.hpp"

namespace tilo::pane {
namespace {

NSString file() { return "/var/mobile/Library/Preferences/com.wexor.tilo.plist"_ns; }

void addFirst(NSMutableDictionary values, NSArray items) {
  for (NSUInteger i = 0; i < items.count(); ++i) {
    NSDictionary item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    if (bridge::Object first = item.objectForKey("default"_ns)) values.setObject_forKey(first, keyOf(item));
  }
}

}  // namespace

NSDictionary storedValues() {
  synchroniseDomain();
  NSDictionary values = valuesOfDomain();
  return values ? values : NSDictionary::dictionary();
}

bool isBeforeFirstStart() {
  return storedValues().count() == 0 && !NSFileManager::defaultManager().fileExistsAtPath(file());
}

bool store(NSNumber value, NSString key) {
  NSMutableDictionary values = NSMutableDictionary::dictionary();
  // The library writes its first values where there is no file, and reads as nothing what a file lacks.
  if (isBeforeFirstStart()) {
    addFirst(values, settingItems());
    addFirst(values, unseenItems());
  }
  values.setObject_forKey(value, key);
  return storeInDomain(values, NSArray::array());
}

void announce(NSDictionary item, bridge::Object value) {
  bool byTitle = is(textIn(item, "announced"_ns), "title"_ns);
  NSMutableDictionary info = NSMutableDictionary::dictionary();
  info.setObject_forKey(byTitle ? textIn(item, "label"_ns) : keyOf(item), "name"_ns);
  info.setObject_forKey(value, byTitle ? "value"_ns : "index"_ns);
  auto centre = CPDistributedMessagingCenter::centerNamed("com.wexor.tilo3.preferences.updated"_ns);
  centre.sendMessageName_userInfo(
      byTitle ? "PreferencesDidChangeNotification"_ns : "ListPreferencesDidChangeNotification"_ns, info);
}

bool resetSettings() {
  NSArray items = settingItems();
  NSMutableDictionary values = NSMutableDictionary::dictionary();
  NSMutableArray others = NSMutableArray::array();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    NSDictionary item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    if (bridge::Object initial = item.objectForKey("default"_ns))
      values.setObject_forKey(checked(item, initial).value, keyOf(item));
    else if (NSNumber shown = nearest(item, {}); item.objectForKey("choices"_ns) && shown.integerValue() != 0)
      // To SpringBoard what is missing means the first layout, be there one or not.
      values.setObject_forKey(shown, keyOf(item));
    else
      others.addObject(keyOf(item));
  }
  return storeInDomain(values, others);
}

}  // namespace tilo::pane
