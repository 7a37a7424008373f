// TiloRootController: the page in Settings. Its rows are those of the specifier file; values go through the
// checks.
#include "bridge/define.hpp"
#include "platform/preferences/list_controller.hpp"
#include "preferences/actions.hpp"
#include "preferences/colors_controller.hpp"
#include "preferences/settings/backup.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/domain.hpp"
#include "preferences/settings/specifiers.hpp"
#include "preferences/stepper_cell.hpp"
#include "settings/store/restoration.hpp"

namespace tilo::pane {
namespace {

using Root = bridge::Implementation<RootController>;

// Found by its path: a class that is made at run time belongs to no bundle.
NSBundle bundle(RootController) { return NSBundle::bundleWithPath(bundlePath()); }

// The framework reads the variable itself. Not on its own list's class, whose variable it is.
void keep(RootController self, NSArray rows) {
  objc_ivar* variable = class_getInstanceVariable(Root::cls, "_specifiers");
  if (!variable) return;
  auto place = reinterpret_cast<id*>(reinterpret_cast<char*>(self.raw) + ivar_getOffset(variable));
  bridge::release(*place);
  *place = bridge::retain(rows.raw);
}

NSArray kept(RootController self) {
  objc_ivar* variable = class_getInstanceVariable(Root::cls, "_specifiers");
  if (!variable) return {};
  return bridge::as<NSArray>(
      *reinterpret_cast<id*>(reinterpret_cast<char*>(self.raw) + ivar_getOffset(variable)));
}

NSArray positions(NSArray titles) {
  NSMutableArray all = NSMutableArray::array();
  for (NSUInteger i = 0; i < titles.count(); ++i) all.addObject(NSNumber::numberWithInt(static_cast<int>(i)));
  return all;
}

// Lists that are made anew each time: what there is to choose from now.
void fill(PSSpecifier row) {
  NSString choices = textIn(row.properties(), "choices"_ns);
  if (is(choices, "layouts"_ns)) {
    NSDictionary item = itemNamed(keyOf(row.properties()));
    NSArray values = listIn(item, "validValues"_ns), titles = listIn(item, "validTitles"_ns);
    row.setValues_titles(values, titles);
    row.setProperty_forKey(values, "validValues"_ns);
    row.setProperty_forKey(titles, "validTitles"_ns);
  } else if (is(choices, "layouts to copy"_ns)) {
    row.setValues_titles(positions(layoutNames()), layoutNames());
  } else if (is(choices, "backups"_ns)) {
    row.setValues_titles(positions(backupNames()), backupNames());
  }
}

NSArray specifiers(RootController self) {
  if (NSArray rows = kept(self)) return rows;
  restoration::finish();
  NSArray rows = self.loadSpecifiersFromPlistName_target("Root"_ns, self);
  for (NSUInteger i = 0; i < rows.count(); ++i) fill(bridge::as<PSSpecifier>(rows.objectAtIndex(i)));
  keep(self, rows);
  return rows;
}

// As the library reads it, and never what cannot be; nothing is written until somebody touches it.
bridge::Object readValue(RootController, PSSpecifier row) {
  NSDictionary item = row.properties();
  NSString key = keyOf(item);
  if (!key) return {};
  return nearest(item,
                 isBeforeFirstStart() ? item.objectForKey("default"_ns) : storedValues().objectForKey(key));
}

void setValue(RootController, bridge::Object given, PSSpecifier row) {
  NSDictionary item = row.properties();
  if (!keyOf(item)) return;
  NSNumber value = checked(item, given).value;
  if (!value) value = nearest(item, given);
  store(value, keyOf(item));
  announce(item, value);
}

bridge::Object nothing(RootController, PSSpecifier) { return {}; }

}  // namespace

void defineRootController() {
  using bridge::method;
  using Face = RootController;
  Root::define<PSListController>(
      method<&PSListController::bundle, bundle>(), method<&PSListController::specifiers, specifiers>(),
      method<&PSViewController::readPreferenceValue, readValue>(),
      method<&PSViewController::setPreferenceValue_specifier, setValue>(), method<&Face::nothing, nothing>(),
      method<&Face::copyLayout_specifier, copyLayout>(), method<&Face::pasteLayout, pasteFromPasteboard>(),
      method<&Face::backUp, backUp>(), method<&Face::restore_specifier, restore>(),
      method<&Face::resetToDefaults, resetToDefaults>(), method<&Face::respring, respring>());
}

namespace {

// Before Settings looks for the page's class by its name.
__attribute__((constructor)) void definePane() {
  bridge::Pool pool;
  defineRootController();
  defineColorsController();
  defineStepperCell();
}

}  // namespace
}  // namespace tilo::pane
