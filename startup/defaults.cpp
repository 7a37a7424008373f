// The 20 seeded keys.
#include "startup/defaults.hpp"

#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/number.hpp"
#include "settings/store/keys.hpp"

namespace tilo {
namespace {

bridge::Strong<NSMutableDictionary> defaults() {
  auto made = bridge::make<NSMutableDictionary, &NSObject::init>();
  auto boolean = [&](NSString key, BOOL value) {
    made->setObject_forKey(NSNumber::numberWithBool(value), key);
  };
  auto integer = [&](NSString key, int value) {
    made->setObject_forKey(NSNumber::numberWithInt(value), key);
  };
  auto real = [&](NSString key, float value) {
    made->setObject_forKey(NSNumber::numberWithFloat(value), key);
  };
  integer(keys::qsBackgroundColor, 0);
  boolean(keys::isDarkMode, NO);
  real(keys::dockIcons, 4);
  boolean(keys::dockIconsEnabled, NO);
  boolean(keys::forceTouch, NO);
  boolean(keys::twoFinger, NO);
  boolean(keys::dock, NO);
  integer(keys::numOfPages, 1);
  real(keys::columns, 4);
  real(keys::rows, 5);
  boolean(keys::enabled, YES);
  boolean(keys::icons, NO);
  boolean(keys::labels, NO);
  boolean(keys::page, NO);
  real(keys::preset, -4);
  boolean(keys::quick, YES);
  real(keys::vertIconPadding, -13);
  real(keys::horiIconPadding, 1);
  real(keys::sideIconInset, 41);
  real(keys::topIconInset, 65);
  return made;
}

}  // namespace

void seedPreferences() {
  NSString path = "/var/mobile/Library/Preferences/com.wexor.tilo.plist"_ns;
  if (NSFileManager::defaultManager().fileExistsAtPath(path)) return;
  defaults()->writeToFile_atomically(path, YES);
}

}  // namespace tilo
