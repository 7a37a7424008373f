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

Json settings(Simulation&, const Json&) {
  loadPane();
  const NSDictionary file = propertyList(specifierFile()), preferences = storedPreferences(string(domain));
  const auto rows = bridge::as<NSArray>(file.objectForKey("items"_ns));
  // The file's rows that have a key, in its order; a list that is made anew each time has its choices as they
  // are now.
  const NSArray items = TiloSettings::items();
  Json::Array all;
  NSUInteger next = 0;
  for (NSUInteger i = 0; i < rows.count(); ++i) {
    const auto row = bridge::as<NSDictionary>(rows.objectAtIndex(i));
    if (row.objectForKey("key"_ns))
      all.push_back(shown(bridge::as<NSDictionary>(items.objectAtIndex(next++)), preferences));
    else if (bridge::as<NSString>(row.objectForKey("cell"_ns)).isEqualToString("PSGroupCell"_ns))
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
