// The 20 seeded keys.
#include "startup/defaults.hpp"

#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/number.hpp"

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
  integer("qsBackgroundColor"_ns, 0);
  boolean("isDarkMode"_ns, NO);
  real("dockIcons"_ns, 4);
  boolean("dockIconsEnabled"_ns, NO);
  boolean("forceTouch"_ns, NO);
  boolean("twoFinger"_ns, NO);
  boolean("dock"_ns, NO);
  integer("numOfPages"_ns, 1);
  real("columns"_ns, 4);
  real("rows"_ns, 5);
  boolean("enabled"_ns, YES);
  boolean("icons"_ns, NO);
  boolean("labels"_ns, NO);
  boolean("page"_ns, NO);
  real("preset"_ns, -4);
  boolean("quick"_ns, YES);
  real("vertIconPadding"_ns, -13);
  real("horiIconPadding"_ns, 1);
  real("sideIconInset"_ns, 41);
  real("topIconInset"_ns, 65);
  return made;
}

}  // namespace

void seedPreferences() {
  NSString path = "/var/mobile/Library/Preferences/com.wexor.tilo.plist"_ns;
  if (NSFileManager::defaultManager().fileExistsAtPath(path)) return;
  defaults()->writeToFile_atomically(path, YES);
}

}  // namespace tilo
