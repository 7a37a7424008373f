// Reading and writing the domain.
#include "settings/store/domain.hpp"

#include "platform/corefoundation/preferences.hpp"

namespace tilo {

bool synchroniseDomain() {
  return CFPreferencesSynchronize(domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
}

NSDictionary valuesOfDomain() {
  auto keys = bridge::adopt<NSArray>(
      CFPreferencesCopyKeyList(domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  if (!keys) return {};
  return bridge::adopt<NSDictionary>(CFPreferencesCopyMultiple(keys.get().raw, domain().raw,
                                                               kCFPreferencesCurrentUser,
                                                               kCFPreferencesAnyHost))
      .autoreleased();
}

bool storeInDomain(NSDictionary values, NSArray removedKeys) {
  CFPreferencesSetMultiple(values.raw, removedKeys.raw, domain().raw, kCFPreferencesCurrentUser,
                           kCFPreferencesAnyHost);
  return synchroniseDomain();
}

}  // namespace tilo
