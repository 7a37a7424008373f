// PSViewController, PSListController and PSListItemsController.
#include "simulator/preferences/list_controller.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "platform/corefoundation/preferences.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/preferences/bundle_loading.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/preferences/navigation.hpp"
#include "simulator/preferences/specifier.hpp"
#include "simulator/preferences/table.hpp"
#include "simulator/preferences/table_cell.hpp"

namespace sim::preferences {

// A variable of the class itself, which classes below it reach by name.
struct ObjectVariable {
  const char* name;
};

void addRow(Class, const ObjectVariable&) {}
void addVariable(Class cls, const ObjectVariable& row) { class_addIvar(cls, row.name, sizeof(id), 3, "@"); }

namespace {

using bridge::Strong;

struct ViewState {
  Strong<PSSpecifier> specifier;
};
using ViewController = bridge::Implementation<PSViewController, ViewState>;

PSSpecifier specifier(PSViewController self) { return ViewController::state(self).specifier.get(); }
void setSpecifier(PSViewController self, PSSpecifier row) {
  ViewController::state(self).specifier = bridge::retained(row);
}

NSString domainOf(PSSpecifier row) { return bridge::as<NSString>(row.propertyForKey("defaults"_ns)); }
NSString keyOf(PSSpecifier row) { return bridge::as<NSString>(row.propertyForKey("key"_ns)); }

bridge::Object readPreferenceValue(PSViewController, PSSpecifier row) {
  if (!keyOf(row) || !domainOf(row)) return row.propertyForKey("default"_ns);
  auto keys = bridge::make<NSMutableArray, &NSObject::init>();
  keys->addObject(keyOf(row));
  const auto stored = bridge::adopt<NSDictionary>(CFPreferencesCopyMultiple(
      keys.get().raw, domainOf(row).raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  const auto found = bridge::as<NSObject>(stored->objectForKey(keyOf(row)));
  return found ? bridge::retained(found).autoreleased() : row.propertyForKey("default"_ns);
}

void setPreferenceValue(PSViewController, bridge::Object value, PSSpecifier row) {
  if (!keyOf(row) || !domainOf(row)) return;
  CFPreferencesSetValue(keyOf(row).raw, value.raw, domainOf(row).raw, kCFPreferencesCurrentUser,
                        kCFPreferencesAnyHost);
}

struct ListState {
  id* specifiers = nullptr;  // the variable of that name
  std::vector<PSTableCell> cells;
  Strong<NSString> largeTitle;
  Strong<PSSpecifier> chosen;  // whose page stands beside this one

  ~ListState() {
    if (specifiers) bridge::release(std::exchange(*specifiers, nullptr));
  }
};
using ListController = bridge::Implementation<PSListController, ListState>;
using ItemsController = bridge::Implementation<PSListItemsController>;

id& variable(PSListController self) {
  ListState& state = ListController::state(self);
  if (!state.specifiers) {
    objc_ivar* const found = class_getInstanceVariable(ListController::cls, "_specifiers");
    state.specifiers = reinterpret_cast<id*>(reinterpret_cast<char*>(self.raw) + ivar_getOffset(found));
  }
  return *state.specifiers;
}

NSArray keep(PSListController self, NSArray made) {
  variable(self) = bridge::retain(made.raw);
  return made;
}

NSArray specifiers(PSListController self) {
  if (const id held = variable(self)) return bridge::as<NSArray>(held);
  return keep(self, NSArray::array());
}

NSBundle bundle(PSListController) { return {}; }

NSArray loadSpecifiers(PSListController self, NSString name, bridge::Object target) {
  const NSString path =
      self.bundle().bundlePath().stringByAppendingPathComponent(name.stringByAppendingString(".plist"_ns));
  return specifiersFrom(NSDictionary::dictionaryWithContentsOfFile(path), target);
}

void markChosen(PSListController self) {
  const ListState& state = ListController::state(self);
  for (const PSTableCell cell : state.cells) setSelected(cell, cell.specifier() == state.chosen.get());
}

void build(PSListController self) {
  self.specifiers();
  ListState& state = ListController::state(self);
  state.cells = buildTable(bridge::as<UIScrollView>(self.view()), self, state.largeTitle);
  markChosen(self);
}

void reloadSpecifiers(PSListController self) {
  bridge::release(std::exchange(variable(self), nullptr));
  if (self.isViewLoaded()) build(self);
}

void reloadSpecifier(PSListController self, PSSpecifier row) {
  for (const PSTableCell cell : ListController::state(self).cells)
    if (cell.specifier() == row) refresh(cell);
}

void loadView(PSListController self) {
  const auto table = makeTable([self] { build(self); }, [self] { followScrolling(self); });
  self.view.set(table);
}

// What another page has changed meanwhile.
void viewWillAppear(PSListController self, BOOL) {
  for (const PSTableCell cell : ListController::state(self).cells) refresh(cell);
}

// The page that a row has led to is left.
void viewDidAppear(PSListController self, BOOL) {
  for (const PSTableCell cell : ListController::state(self).cells) deselect(cell);
}

PSTableCell cellForRow(PSListController self, UIView table, NSIndexPath path) {
  const NSArray all = self.specifiers();
  const PSSpecifier row = rowAt(all, path);
  return makeCell(row, self, table.bounds().size.width).autoreleased();
}

PSSpecifier listOf(PSListController self) { return self.specifier(); }

NSArray choiceSpecifiers(PSListItemsController self) {
  if (const id held = variable(self)) return bridge::as<NSArray>(held);
  auto made = bridge::make<NSMutableArray, &NSObject::init>();
  const PSSpecifier list = listOf(self);
  const auto group = makeSpecifier({}, self, Row{Cell::group});
  group->setProperty_forKey(list.propertyForKey("staticTextMessage"_ns), "footerText"_ns);
  made->addObject(group.get());
  for (NSUInteger i = 0; i < list.values().count(); ++i) {
    const bridge::Object value = list.values().objectAtIndex(i);
    const auto row = makeSpecifier(bridge::as<NSString>(list.titleDictionary().objectForKey(value)), self,
                                   Row{Cell::listItem});
    row->setProperty_forKey(value, "value"_ns);
    made->addObject(row.get());
  }
  return keep(self, std::move(made).autoreleased());
}

void check(PSListController self) {
  const auto chosen = bridge::as<NSObject>(valueOf(listOf(self)));
  for (const PSTableCell cell : ListController::state(self).cells)
    setChecked(cell, chosen && chosen.isEqual(cell.specifier().propertyForKey("value"_ns)));
}

PSTableCell choiceCell(PSListItemsController self, UIView table, NSIndexPath path) {
  const PSTableCell cell =
      ItemsController::super<&PSListController::tableView_cellForRowAtIndexPath>(self, table, path);
  const auto chosen = bridge::as<NSObject>(valueOf(listOf(self)));
  setChecked(cell, chosen && chosen.isEqual(cell.specifier().propertyForKey("value"_ns)));
  return cell;
}

// The page that a row leads to.
void open(PSListController self, PSSpecifier row) {
  if (const std::string bundle = textOf(row, "bundlePath"_ns); !bundle.empty()) loadBundle(bundle);
  const std::string& name = rowOf(row).detail;
  const Class cls = objc_getClass(name.c_str());
  if (!cls) throw UsageError("Settings finds no page '" + name + "'");
  const auto page = bridge::makeOf<PSListController, &NSObject::init>(cls);
  page->specifier.set(row);
  push(page.get(), self, row.name());
  if (!standsBeside(self)) return;
  ListController::state(self).chosen = bridge::retained(row);
  markChosen(self);
}

}  // namespace

void select(PSListController controller, PSSpecifier row) {
  switch (rowOf(row).cell) {
    case Cell::link:
    case Cell::linkList:
      return open(controller, row);
    case Cell::button:
      return performAction(row);
    case Cell::listItem:
      setValue(listOf(controller), row.propertyForKey("value"_ns));
      return check(controller);
    default:
      return;
  }
}

std::vector<PSTableCell> cellsOf(PSListController controller) {
  return ListController::state(controller).cells;
}

void setLargeTitle(PSListController controller, NSString title) {
  ListController::state(controller).largeTitle = bridge::retained(title);
}

CGFloat largeTitleSeen(PSListController controller) {
  if (!ListController::state(controller).largeTitle) return 0;
  const CGFloat scrolled = bridge::as<UIScrollView>(controller.view()).contentOffset().y;
  return std::clamp<CGFloat>(largeTitleHeight - scrolled, 0, largeTitleHeight);
}

void defineListControllers() {
  using bridge::method;
  using List = PSListController;
  ViewController::define<UIViewController>(
      bridge::property<&PSViewController::specifier, specifier, setSpecifier>(),
      method<&PSViewController::readPreferenceValue, readPreferenceValue>(),
      method<&PSViewController::setPreferenceValue_specifier, setPreferenceValue>());
  ListController::define<PSViewController>(
      ObjectVariable{"_specifiers"}, method<&List::specifiers, specifiers>(), method<&List::bundle, bundle>(),
      method<&List::loadSpecifiersFromPlistName_target, loadSpecifiers>(),
      method<&List::reloadSpecifiers, reloadSpecifiers>(), method<&List::reloadSpecifier, reloadSpecifier>(),
      method<&UIViewController::loadView, loadView>(),
      method<&UIViewController::viewWillAppear, viewWillAppear>(),
      method<&UIViewController::viewDidAppear, viewDidAppear>(),
      method<&List::tableView_cellForRowAtIndexPath, cellForRow>());
  ItemsController::define<PSListController>(method<&List::specifiers, choiceSpecifiers>(),
                                            method<&List::tableView_cellForRowAtIndexPath, choiceCell>());
}

}  // namespace sim::preferences
