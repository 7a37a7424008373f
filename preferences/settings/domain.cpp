// Reading and writing the domain, and announcing what has changed.
#include "preferences/settings/domain.hpp"

#include "platform/appsupport/messaging_center.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/specifiers.hpp"
#include "settings/store/domain.hpp"

namespace tilo::pane {
NSDictionary storedValues() {
  synchroniseDomain();
  NSDictionary values = valuesOfDomain();
  return values ? values : NSDictionary::dictionary();
}

bool store(NSNumber value, NSString key) {
  return storeInDomain(NSDictionary::dictionaryWithObject_forKey(value, key), NSArray::array());
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
    else
      others.addObject(keyOf(item));
  }
  return storeInDomain(values, others);
}

}  // namespace tilo::pane
