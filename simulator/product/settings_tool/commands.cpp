// The commands of tilo-settings.
#include "simulator/product/settings_tool/commands.hpp"

#include <fmt/format.h>

#include <iostream>

#include "simulator/appsupport/client.hpp"
#include "simulator/device/setting.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/settings_tool/pane.hpp"
#include "simulator/runtime/number_form.hpp"
#include "simulator/runtime/setting_object.hpp"

namespace sim::product {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;
using appsupport::Outcome;

NSString string(std::string_view text) {
  if (!isText(text)) throw UsageError(fmt::format("'{}' is not text in UTF-8", text));
  return NSString::stringWithUTF8String(std::string(text).c_str());
}

std::string textAt(NSDictionary item, NSString key) {
  const bridge::Object found = item.objectForKey(key);
  return bridge::isKindOf<NSString>(found) ? bridge::as<NSString>(found).UTF8String() : "";
}

// As `set` would take it.
std::string text(bridge::Object value) {
  if (!bridge::isKindOf<NSNumber>(value)) return bridge::as<NSObject>(value).description().UTF8String();
  const auto number = bridge::as<NSNumber>(value);
  const NumberForm form = formOf(number);
  if (form == NumberForm::truth) return number.boolValue() ? "YES" : "NO";
  if (form == NumberForm::whole) return fmt::format("{}", number.longLongValue());
  const std::string digits = fmt::format("{}", number.doubleValue());
  return digits.find_first_not_of("-0123456789") == std::string::npos ? digits + ".0" : digits;
}

NSDictionary itemNamed(const std::string& name) {
  if (const NSDictionary found = TiloSettings::itemNamed(string(name))) return found;
  throw UsageError(fmt::format("there is no setting '{}'", name));
}

double number(NSDictionary item, NSString key) {
  return bridge::as<NSNumber>(item.objectForKey(key)).doubleValue();
}

// What a setting may be: "YES or NO", "1 to 15, whole", "Custom, Wide".
std::string range(NSDictionary item) {
  if (textAt(item, "kind"_ns) == "boolean") return "YES or NO";
  if (const auto titles = bridge::as<NSArray>(item.objectForKey("validTitles"_ns))) {
    std::string all;
    for (NSUInteger i = 0; i < titles.count(); ++i)
      all += (i ? ", " : "") + std::string(bridge::as<NSString>(titles.objectAtIndex(i)).UTF8String());
    return all;
  }
  const bool whole = bridge::as<NSNumber>(item.objectForKey("whole"_ns)).boolValue();
  return fmt::format("{} to {}{}", number(item, "min"_ns), number(item, "max"_ns), whole ? ", whole" : "");
}

void list(const fs::path&, const Words&) {
  const NSDictionary values = TiloSettings::storedValues();
  const NSArray items = TiloSettings::items();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    const auto item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    const bridge::Object value = values.objectForKey(item.objectForKey("key"_ns));
    fmt::print("{:<31}  {:<17}  {:<7}  {:<6}  {}\n", textAt(item, "label"_ns), textAt(item, "key"_ns),
               textAt(item, "kind"_ns), value ? text(value) : "-", range(item));
  }
}

void get(const fs::path&, const Words& words) {
  const NSDictionary item = itemNamed(words[0]);
  const bridge::Object value = TiloSettings::storedValues().objectForKey(item.objectForKey("key"_ns));
  if (!value) throw UsageError(fmt::format("'{}' is not set", words[0]));
  fmt::print("{}\n", text(value));
}

// False when nobody is there who could be told.
bool announce(const fs::path& root, NSDictionary item, NSObject value) {
  const Outcome outcome = appsupport::send(root, settingsCentre, announcement(item, value));
  if (outcome != Outcome::delivered && outcome != Outcome::unserved)
    throw UsageError(fmt::format("written; but the message {}", description(outcome)));
  return outcome == Outcome::delivered;
}

constexpr const char* unheard = "tilo-settings: written; no home screen runs that could be told\n";

// A choice's title goes before what else its letters may mean.
bridge::Object given(NSDictionary item, const std::string& word) {
  const auto titles = bridge::as<NSArray>(item.objectForKey("validTitles"_ns));
  const NSString title = string(word);
  for (NSUInteger i = 0; i < titles.count(); ++i)
    if (title.isEqual(bridge::as<NSObject>(titles.objectAtIndex(i)))) return title;
  return settingObject(settingValue(word));
}

void set(const fs::path& root, const Words& words) {
  const NSDictionary item = itemNamed(words[0]);
  const NSNumber value = storeSetting(item, words[0], words[1], bridge::as<NSObject>(given(item, words[1])));
  if (!announce(root, item, value)) std::cerr << unheard;
}

// Every setting's value as it is read now.
void announceAll(const fs::path& root) {
  const NSDictionary values = TiloSettings::storedValues();
  const NSArray items = TiloSettings::items();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    const auto item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    const auto stored = bridge::as<NSObject>(values.objectForKey(item.objectForKey("key"_ns)));
    if (announce(root, item, TiloSettings::nearestTo_stored(item, stored))) continue;
    std::cerr << unheard;
    return;
  }
}

void reset(const fs::path& root, const Words&) {
  if (!TiloSettings::reset())
    throw UsageError("the preferences file cannot be read, or not be written; it is as it was");
  announceAll(root);
}

NSString hostPath(const std::string& file) { return string(fs::absolute(file).native()); }

void backUp(const fs::path&, const Words& words) {
  if (const NSString fault = TiloSettings::backUpTo(hostPath(words[0])))
    throw UsageError(fmt::format("'{}': {}", words[0], fault.UTF8String()));
}

void restore(const fs::path& root, const Words& words) {
  if (const NSString fault = TiloSettings::restoreFrom(hostPath(words[0])))
    throw UsageError(fmt::format("'{}': {}", words[0], fault.UTF8String()));
  announceAll(root);
}

void copy(const fs::path&, const Words& words) {
  const NSString line = TiloSettings::textOfLayout(string(words[0]));
  if (!line) throw UsageError(fmt::format("there is no layout '{}'", words[0]));
  fmt::print("{}\n", line.UTF8String());
}

void paste(const fs::path&, const Words& words) {
  if (const NSString fault = TiloSettings::pasteLayout(string(words[0])))
    throw UsageError(fmt::format("'{}': {}", words[0], fault.UTF8String()));
}

void sendMessage(const fs::path& root, const Words& words) {
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (std::size_t i = 1; i < words.size(); ++i) {
    const Setting entry = parseSetting(words[i]);
    info->setObject_forKey(settingObject(entry.value), string(entry.key));
  }
  const Outcome outcome = appsupport::send(root, settingsCentre, {string(words[0]), info.get()});
  if (outcome != Outcome::delivered)
    throw UsageError(fmt::format("the message '{}' {}", words[0], description(outcome)));
}

}  // namespace

std::span<const SettingsCommand> settingsCommands() {
  static const auto& all = *new std::vector<SettingsCommand>{
      {"list", {}, "print titles, keys, kinds, values (- for none) and ranges", list},
      {"get", {"TITLE"}, "print a setting's value; its key will do for the title", get},
      {"set", {"TITLE", "VALUE"}, "write a value, and tell the home screen if one runs", set},
      {"reset", {}, "all settings as at the first start; layouts stay", reset},
      {"backup", {"FILE"}, "write all settings and layouts to a file", backUp},
      {"restore", {"FILE"}, "put them back, all or nothing", restore},
      {"copy", {"NAME"}, "print a saved layout as a line of text", copy},
      {"paste", {"TEXT"}, "add the layout that such a line is", paste},
      {"send",
       {"NAME", "INFO..."},
       "send a message with KEY=VALUE to the home screen's settings centre",
       sendMessage},
  };
  return all;
}

}  // namespace sim::product
