// PSSpecifier.
#include "simulator/preferences/specifier.hpp"

#include "bridge/define.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/uikit/base/action.hpp"

namespace sim::preferences {
namespace {

using bridge::Strong;

struct SpecifierState {
  Strong<NSString> name;
  bridge::Object target;  // the page, which outlives its rows
  Row row;
  Strong<NSMutableDictionary> properties;
  Strong<NSArray> values;
  Strong<NSDictionary> titles;
};

using Specifier = bridge::Implementation<PSSpecifier, SpecifierState>;

NSMutableDictionary properties(PSSpecifier self) {
  auto& all = Specifier::state(self).properties;
  if (!all) all = bridge::make<NSMutableDictionary, &NSObject::init>();
  return all.get();
}

NSString name(PSSpecifier self) { return Specifier::state(self).name.get(); }
bridge::Object target(PSSpecifier self) { return Specifier::state(self).target; }
bridge::Object property(PSSpecifier self, NSString key) { return properties(self).objectForKey(key); }
void setProperty(PSSpecifier self, bridge::Object value, NSString key) {
  properties(self).setValue_forKey(value, key);
}
NSArray values(PSSpecifier self) { return Specifier::state(self).values.get(); }
NSDictionary titleDictionary(PSSpecifier self) { return Specifier::state(self).titles.get(); }

void setValues(PSSpecifier self, NSArray all, NSArray titles) {
  auto dictionary = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (NSUInteger i = 0; i < all.count(); ++i)
    dictionary->setObject_forKey(titles.objectAtIndex(i), all.objectAtIndex(i));
  Specifier::state(self).values = bridge::retained(all);
  Specifier::state(self).titles = dictionary;
}

struct CellName {
  const char* name;
  Cell cell;
};
constexpr CellName cells[] = {
    {"PSGroupCell", Cell::group},     {"PSLinkCell", Cell::link},    {"PSLinkListCell", Cell::linkList},
    {"PSSliderCell", Cell::slider},   {"PSSwitchCell", Cell::onOff}, {"PSButtonCell", Cell::button},
    {"PSStaticTextCell", Cell::text},
};

Cell cellNamed(const std::string& name) {
  for (const CellName& each : cells)
    if (name == each.name) return each.cell;
  throw UsageError("Settings has no cell '" + name + "' here");
}

std::string text(NSDictionary item, NSString key) {
  const bridge::Object found = item.objectForKey(key);
  return bridge::isKindOf<NSString>(found) ? bridge::as<NSString>(found).UTF8String() : "";
}

SEL selectorAt(NSDictionary item, NSString key, const char* otherwise) {
  const std::string found = text(item, key);
  if (!found.empty()) return sel_registerName(found.c_str());
  return otherwise ? sel_registerName(otherwise) : nullptr;
}

Strong<PSSpecifier> specifierFrom(NSDictionary item, bridge::Object target) {
  const Row row{cellNamed(text(item, "cell"_ns)), text(item, "detail"_ns),
                selectorAt(item, "get"_ns, "readPreferenceValue:"),
                selectorAt(item, "set"_ns, "setPreferenceValue:specifier:"),
                selectorAt(item, "action"_ns, nullptr)};
  auto made = makeSpecifier(bridge::as<NSString>(item.objectForKey("label"_ns)), target, row);
  properties(made.get()).addEntriesFromDictionary(item);
  if (const auto all = bridge::as<NSArray>(item.objectForKey("validValues"_ns)))
    made->setValues_titles(all, bridge::as<NSArray>(item.objectForKey("validTitles"_ns)));
  return made;
}

}  // namespace

const Row& rowOf(PSSpecifier specifier) { return Specifier::state(specifier).row; }

NSArray specifiersFrom(NSDictionary list, bridge::Object target) {
  auto made = bridge::make<NSMutableArray, &NSObject::init>();
  const auto items = bridge::as<NSArray>(list.objectForKey("items"_ns));
  for (NSUInteger i = 0; i < items.count(); ++i)
    made->addObject(specifierFrom(bridge::as<NSDictionary>(items.objectAtIndex(i)), target).get());
  return std::move(made).autoreleased();
}

Strong<PSSpecifier> makeSpecifier(NSString name, bridge::Object target, Row row) {
  auto made = bridge::make<PSSpecifier, &NSObject::init>();
  SpecifierState& state = Specifier::state(made.get());
  state.name = bridge::retained(name);
  state.target = target;
  state.row = std::move(row);
  return made;
}

bridge::Object valueOf(PSSpecifier specifier) {
  const SpecifierState& state = Specifier::state(specifier);
  if (!state.target || !state.row.getter) return {};
  using Getter = id (*)(id, SEL, id);
  const auto getter = reinterpret_cast<Getter>(bridge::messenger(state.target.raw, state.row.getter, false));
  return bridge::as<bridge::Object>(getter(state.target.raw, state.row.getter, specifier.raw));
}

void setValue(PSSpecifier specifier, bridge::Object value) {
  const SpecifierState& state = Specifier::state(specifier);
  if (!state.target || !state.row.setter) return;
  using Setter = void (*)(id, SEL, id, id);
  const auto setter = reinterpret_cast<Setter>(bridge::messenger(state.target.raw, state.row.setter, false));
  setter(state.target.raw, state.row.setter, value.raw, specifier.raw);
}

void performAction(PSSpecifier specifier) {
  const SpecifierState& state = Specifier::state(specifier);
  if (!state.target || !state.row.action) return;
  uikit::sendAction(state.row.action, state.target, specifier, {});
}

std::string textOf(PSSpecifier specifier, NSString key) { return text(properties(specifier), key); }

double numberOf(PSSpecifier specifier, NSString key, double otherwise) {
  const bridge::Object found = properties(specifier).objectForKey(key);
  return bridge::isKindOf<NSNumber>(found) ? bridge::as<NSNumber>(found).doubleValue() : otherwise;
}

void defineSpecifier() {
  using bridge::method;
  Specifier::define<NSObject>(
      method<&PSSpecifier::name, name>(), method<&PSSpecifier::target, target>(),
      method<&PSSpecifier::properties, properties>(), method<&PSSpecifier::propertyForKey, property>(),
      method<&PSSpecifier::setProperty_forKey, setProperty>(), method<&PSSpecifier::values, values>(),
      method<&PSSpecifier::titleDictionary, titleDictionary>(),
      method<&PSSpecifier::setValues_titles, setValues>());
}

}  // namespace sim::preferences
