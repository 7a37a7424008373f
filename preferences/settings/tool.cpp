// The settings for another program that loads the page: the class TiloSettings. No device has it.
#include "bridge/define.hpp"
#include "preferences/settings/backup.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/domain.hpp"
#include "preferences/settings/layouts.hpp"
#include "preferences/settings/specifiers.hpp"
#include "settings/store/restoration.hpp"

namespace tilo::pane {
namespace {

struct TiloSettings : bridge::Face<"TiloSettings", NSObject> {
  static constexpr bridge::ClassMethod<"TiloSettings", "useSpecifierFile:", void(NSString)>
      useSpecifierFile{};
  static constexpr bridge::ClassMethod<"TiloSettings", "items", NSArray()> items{};
  static constexpr bridge::ClassMethod<"TiloSettings", "itemNamed:", NSDictionary(NSString)> itemNamed{};
  static constexpr bridge::ClassMethod<"TiloSettings", "storedValues", NSDictionary()> storedValues{};
  static constexpr bridge::ClassMethod<"TiloSettings", "valueOf:given:", NSNumber(NSDictionary, NSObject)>
      valueOf_given{};
  static constexpr bridge::ClassMethod<"TiloSettings", "faultOf:given:", NSString(NSDictionary, NSObject)>
      faultOf_given{};
  static constexpr bridge::ClassMethod<"TiloSettings", "nearestTo:stored:", NSNumber(NSDictionary, NSObject)>
      nearestTo_stored{};
  static constexpr bridge::ClassMethod<"TiloSettings", "store:at:", BOOL(NSNumber, NSString)> store_at{};
  static constexpr bridge::ClassMethod<"TiloSettings", "reset", BOOL()> reset{};
  static constexpr bridge::ClassMethod<"TiloSettings", "backUpTo:", NSString(NSString)> backUpTo{};
  static constexpr bridge::ClassMethod<"TiloSettings", "restoreFrom:", NSString(NSString)> restoreFrom{};
  static constexpr bridge::ClassMethod<"TiloSettings", "textOfLayout:", NSString(NSString)> textOfLayout{};
  static constexpr bridge::ClassMethod<"TiloSettings", "pasteLayout:", NSString(NSString)> pasteLayout{};
};

void useFile(Class, NSString path) {
  useSpecifierFile(path);
  restoration::finish();
}
NSArray allItems(Class) { return settingItems(); }
NSDictionary named(Class, NSString name) { return itemNamed(name); }
NSDictionary stored(Class) { return storedValues(); }
NSNumber valueOf(Class, NSDictionary item, NSObject given) { return checked(item, given).value; }
NSString faultOf(Class, NSDictionary item, NSObject given) { return checked(item, given).fault; }
NSNumber nearestTo(Class, NSDictionary item, NSObject value) { return nearest(item, value); }
BOOL storeOne(Class, NSNumber value, NSString key) { return store(value, key); }
BOOL resetAll(Class) { return resetSettings(); }
NSString backUp(Class, NSString path) { return backUpTo(path); }
NSString restore(Class, NSString path) { return restoreFrom(path); }
NSString copied(Class, NSString name) { return textOfLayout(name); }
NSString paste(Class, NSString text) { return pasteLayout(text); }

__attribute__((constructor)) void defineTool() {
  using bridge::method;
  using Face = TiloSettings;
  bridge::Implementation<Face>::define<NSObject>(
      method<&Face::useSpecifierFile, useFile>(), method<&Face::items, allItems>(),
      method<&Face::itemNamed, named>(), method<&Face::storedValues, stored>(),
      method<&Face::valueOf_given, valueOf>(), method<&Face::faultOf_given, faultOf>(),
      method<&Face::nearestTo_stored, nearestTo>(), method<&Face::store_at, storeOne>(),
      method<&Face::reset, resetAll>(), method<&Face::backUpTo, backUp>(),
      method<&Face::restoreFrom, restore>(), method<&Face::textOfLayout, copied>(),
      method<&Face::pasteLayout, paste>());
}

}  // namespace
}  // namespace tilo::pane
