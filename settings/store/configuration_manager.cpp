// ConfigurationManager's class.
#include "settings/store/configuration_manager.hpp"

#include "bridge/define.hpp"
#include "platform/corefoundation/preferences.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "settings/store/domain.hpp"
#include "settings/store/values.hpp"

namespace tilo {
namespace {

struct ManagerState {
  bridge::Strong<NSMutableDictionary> configuration;
};

using Manager = bridge::Implementation<ConfigurationManager, ManagerState>;

// What every layout and every step of scrolling asks for. A dictionary looks at a key's address before it
// compares letters, so these are put in as the very strings that they are asked for by. Of keys that share a
// place the one that came last is found first, so what is asked for most comes last.
void knowKeys(NSMutableDictionary values) {
  constexpr id (*asked[])() = {keys::numOfPages.constant,
                               keys::page.constant,
                               keys::labels.constant,
                               keys::square.constant,
                               keys::dockIcons.constant,
                               keys::dockIconsEnabled.constant,
                               keys::dock.constant,
                               keys::topIconInset.constant,
                               keys::sideIconInset.constant,
                               keys::horiIconPadding.constant,
                               keys::vertIconPadding.constant,
                               keys::customPreset.constant,
                               keys::columns.constant,
                               keys::rows.constant,
                               keys::icons.constant,
                               keys::enabled.constant};
  for (auto constant : asked) {
    const auto key = bridge::as<NSString>(constant());
    const auto stored = bridge::retained(values.objectForKey(key));
    if (!stored) continue;
    values.removeObjectForKey(key);
    values.setObject_forKey(stored, key);
  }
}

ConfigurationManager sharedManager(Class) {
  static constinit long once = 0;
  static constinit id shared = nullptr;
  dispatch::once(once, [](void*) { shared = bridge::make<ConfigurationManager, &NSObject::init>().leak(); });
  return bridge::as<ConfigurationManager>(shared);
}

bridge::Strong<NSObject> init(ConfigurationManager self) {
  auto made = Manager::superInit<&NSObject::init>(self);
  if (!made) return nullptr;
  made->sync();
  auto values = valuesOfDomain().mutableCopy();
  knowKeys(values);
  Manager::state(made.get()).configuration = std::move(values);
  return made;
}

void sync(ConfigurationManager) { synchroniseDomain(); }

int storedCountLessOne(ConfigurationManager self, Key<Kind::count> key, int absent) {
  const auto stored = Values(Manager::state(self).configuration).stored(key);
  // Without a sign, so that the smallest count wraps around.
  return stored ? static_cast<int>(static_cast<NSUInteger>(*stored) - 1) : absent;
}

int rows(ConfigurationManager self) { return storedCountLessOne(self, keys::rows, 6); }
int columns(ConfigurationManager self) { return storedCountLessOne(self, keys::columns, 4); }

void save(ConfigurationManager self, NSString key, bridge::Object value) {
  if (!key) return;
  CFPreferencesSetValue(key.raw, value.raw, domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  NSMutableDictionary known = Manager::state(self).configuration;
  if (value)
    known.setObject_forKey(value, key);
  else
    known.removeObjectForKey(key);
}

}  // namespace

void defineConfigurationManager() {
  using bridge::method;
  Manager::define<NSObject>(
      method<&ConfigurationManager::sharedManager, sharedManager>(), method<&NSObject::init, init>(),
      method<&ConfigurationManager::sync, sync>(), method<&ConfigurationManager::rows, rows>(),
      method<&ConfigurationManager::columns, columns>(),
      method<&ConfigurationManager::saveWithKey_value, save>(),
      Manager::property<&ConfigurationManager::configuration, &ManagerState::configuration>());
}

}  // namespace tilo
