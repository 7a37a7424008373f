// The settings beside a home screen on a page: the rows of the specifier file with their values, and setting
// one as Settings does.
#include <fmt/format.h>

#include "bridge/runtime.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/appsupport/messaging_center.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/product.hpp"
#include "simulator/product/settings_tool/pane.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/runtime/property_list.hpp"
#include "simulator/runtime/setting_object.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim::product {
namespace {

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

// With the value that is in these preferences, which may be nil.
Json shown(NSDictionary item, NSDictionary preferences) {
  const bridge::Object stored =
      preferences ? preferences.objectForKey(item.objectForKey("key"_ns)) : bridge::Object();
  Json row = plain(item);
  row["value"] = plain(TiloSettings::nearestTo_stored(item, bridge::as<NSObject>(stored)));
  return row;
}

NSDictionary itemNamed(NSString key) {
  loadPane();
  return TiloSettings::itemNamed(key);
}

// By their keys; of a list that is made anew each time, the choices as they are now. What is no setting, in a
// file that somebody has edited, is left out.
NSDictionary itemsByKey() {
  const NSArray items = TiloSettings::items();
  const NSMutableDictionary found = NSMutableDictionary::dictionary();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    const auto item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    const bridge::Object key = item.objectForKey("key"_ns);
    if (!found.objectForKey(key)) found.setObject_forKey(item, key);
  }
  return found;
}

bool isGroup(NSDictionary row) {
  const bridge::Object cell = row.objectForKey("cell"_ns);
  return bridge::isKindOf<NSString>(cell) && bridge::as<NSString>(cell).isEqualToString("PSGroupCell"_ns);
}

// In the file's order, group by group.
Json settings(Simulation&, const Json&) {
  loadPane();
  const NSDictionary file = propertyList(specifierFile()), items = itemsByKey(),
                     preferences = storedPreferences(string(domain));
  const bridge::Object listed = file.objectForKey("items"_ns);
  const NSArray rows = bridge::isKindOf<NSArray>(listed) ? bridge::as<NSArray>(listed) : NSArray();
  Json::Array all;
  for (NSUInteger i = 0; i < rows.count(); ++i) {
    if (!bridge::isKindOf<NSDictionary>(rows.objectAtIndex(i))) continue;
    const auto row = bridge::as<NSDictionary>(rows.objectAtIndex(i));
    const bridge::Object key = row.objectForKey("key"_ns);
    if (const auto item = key ? bridge::as<NSDictionary>(items.objectForKey(key)) : NSDictionary())
      all.push_back(shown(item, preferences));
    else if (!key && isGroup(row))
      all.push_back(plain(row));
  }
  return Json(std::move(all));
}

NSObject objectOf(const Json& value) {
  if (value.isBoolean()) return NSNumber::numberWithBool(value.get<bool>());
  if (value.isNumber()) return NSNumber::numberWithDouble(value.get<double>());
  return string(value.get<std::string>());
}

// What is set; `written` is what errors call the value.
NSDictionary setOne(Simulation& simulation, const std::string& key, const std::string& written,
                    NSObject given) {
  const NSDictionary item = itemNamed(string(key));
  if (!item) throw UsageError(fmt::format("no setting is called '{}'", key));
  const NSNumber value = storeSetting(item, key, written, given);
  if (appsupport::serves(settingsCentre))
    appsupport::send(simulation.fileSystem().root(), settingsCentre, announcement(item, value),
                     {.whileWaiting = [] { appsupport::serveMessages(); }});
  // The page beside the phone is left as soon as it has done its work.
  springboard::layOutHomeScreen();
  settle();
  return item;
}

Json set(Simulation& simulation, const Json& message) {
  const Json value = message.value("value");
  const NSDictionary item =
      setOne(simulation, message.value("key").get<std::string>(), value.dump(), objectOf(value));
  return shown(item, storedPreferences(string(domain)));
}

void setStep(Simulation& simulation, const Step& step) {
  const std::string& text = step.text(0);
  const Setting setting = parseSetting(text);
  setOne(simulation, setting.key, text.substr(text.find('=') + 1),
         bridge::as<NSObject>(settingObject(setting.value)));
}

constexpr PageMessage messages[] = {{"settings", settings}, {"set", set}};

constexpr StepRow steps[] = {
    {"set", setStep, with(kinds::setting),
     "a setting is changed as in Settings: checked, written and announced, and the icons laid out", "none"},
};

}  // namespace

std::span<const PageMessage> settingsMessages() { return messages; }

StepTable settingStep() { return steps; }

}  // namespace sim::product
