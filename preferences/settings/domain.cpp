// Reading and writing the domain, and announcing what has changed.
#include "preferences/settings/domain.hpp"

#include "platform/appsupport/messaging_center.hpp"
#include "platform/corefoundation/preferences.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/specifiers.hpp"

namespace tilo::pane {
namespace {

bool synchronise() {
  return CFPreferencesSynchronize(domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
}

}  // namespace

NSDictionary storedValues() {
  synchronise();
  auto keys = bridge::adopt<NSArray>(
      CFPreferencesCopyKeyList(domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  if (!keys) return NSDictionary::dictionary();
  return bridge::adopt<NSDictionary>(CFPreferencesCopyMultiple(keys.get().raw, domain().raw,
                                                               kCFPreferencesCurrentUser,
                                                               kCFPreferencesAnyHost))
      .autoreleased();
}

bool store(NSDictionary values, NSArray removedKeys) {
  CFPreferencesSetMultiple(values.raw, removedKeys.raw, domain().raw, kCFPreferencesCurrentUser,
                           kCFPreferencesAnyHost);
  return synchronise();
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
  return store(values, others);
}

}  // namespace tilo::pane
