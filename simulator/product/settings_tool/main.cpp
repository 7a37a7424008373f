// tilo-settings: what a settings pane does to a simulated device, from another process.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "platform/foundation/dictionary.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/device/redirection.hpp"
#include "simulator/device/setting.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/settings_tool/settings.hpp"
#include "simulator/runtime/foundation.hpp"
#include "simulator/runtime/number_form.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/runtime/setting_object.hpp"

namespace sim::product {
namespace {

namespace fs = std::filesystem;
using appsupport::Outcome;

constexpr int usageStatus = 2;

struct Arguments {
  std::string root, key, value, name;
  std::vector<std::string> info;
};

NSString string(std::string_view text) {
  if (!isText(text)) throw UsageError(fmt::format("'{}' is not text in UTF-8", text));
  return NSString::stringWithUTF8String(std::string(text).c_str());
}

// From now on paths of the device mean the ones below its root.
fs::path enterDevice(const std::string& folder) {
  std::error_code error;
  const fs::path root = fs::canonical(folder, error);
  if (error || root == "/" || root.native().size() >= PATH_MAX ||
      !fs::is_directory(root / "var/mobile/Library/Preferences", error))
    throw UsageError(fmt::format("--root: '{}' is no device's folder", folder));
  redirection::keepReplacedFunctions();
  redirection::setRoot(root.native());
  prepareFoundation();
  return root;
}

// As `set` would take it.
std::string text(bridge::Object value) {
  if (!bridge::isKindOf<NSNumber>(value)) return bridge::as<NSObject>(value).description().UTF8String();
  auto number = bridge::as<NSNumber>(value);
  const NumberForm form = formOf(number);
  if (form == NumberForm::truth) return number.boolValue() ? "YES" : "NO";
  if (form == NumberForm::whole) return fmt::format("{}", number.longLongValue());
  const std::string digits = fmt::format("{}", number.doubleValue());
  return digits.find_first_not_of("-0123456789") == std::string::npos ? digits + ".0" : digits;
}

const SettingRow& row(const std::string& key) {
  if (const SettingRow* found = findSettingRow(key)) return *found;
  throw UsageError(fmt::format("there is no setting '{}'", key));
}

void list() {
  NSDictionary values = preferenceDomain(string(domain));
  for (const SettingRow& setting : settingRows()) {
    const bridge::Object value = values.objectForKey(string(setting.key));
    fmt::print("{:<17}  {:<31}  {}\n", setting.key, setting.title, value ? text(value) : "-");
  }
}

void get(const std::string& key) {
  const bridge::Object value = preferenceDomain(string(domain)).objectForKey(string(row(key).key));
  if (!value) throw UsageError(fmt::format("'{}' is not set", key));
  fmt::print("{}\n", text(value));
}

appsupport::Message announcement(const SettingRow& setting, NSObject value) {
  const bool byTitle = setting.announcement == Announcement::byTitle;
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  info->setObject_forKey(string(byTitle ? setting.title : setting.key), "name"_ns);
  info->setObject_forKey(value, byTitle ? "value"_ns : "index"_ns);
  return {byTitle ? "PreferencesDidChangeNotification"_ns : "ListPreferencesDidChangeNotification"_ns,
          std::move(info).autoreleased()};
}

void set(const fs::path& root, const std::string& key, const std::string& given) {
  const SettingRow& setting = row(key);
  NSObject value = settingObject(settingValue(given));
  if (!setPreference(string(domain), string(setting.key), value))
    throw UsageError("the preferences file cannot be read, or not be written; it is as it was");
  const Outcome outcome = appsupport::send(root, settingsCentre, announcement(setting, value));
  if (outcome == Outcome::unserved)
    std::cerr << "tilo-settings: written; no home screen runs that could be told\n";
  else if (outcome != Outcome::delivered)
    throw UsageError(fmt::format("written; but the message {}", description(outcome)));
}

// What was printed may not have reached a disk that is full.
void endOutput() {
  if (std::fflush(stdout) != 0) throw UsageError("cannot write to standard output");
}

void sendMessage(const fs::path& root, const std::string& name, const std::vector<std::string>& texts) {
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (const std::string& each : texts) {
    const Setting entry = parseSetting(each);
    info->setObject_forKey(settingObject(entry.value), string(entry.key));
  }
  const Outcome outcome = appsupport::send(root, settingsCentre, {string(name), info.get()});
  if (outcome != Outcome::delivered)
    throw UsageError(fmt::format("the message '{}' {}", name, description(outcome)));
}

int run(int count, const char* const* words) {
  CLI::App app("Changes a simulated device's settings, as its settings pane would.", "tilo-settings");
  Arguments arguments;
  app.add_option("--root", arguments.root, "the device's folder, as given to tilo-sim")->required();
  app.require_subcommand(0, 1);
  auto* const listing = app.add_subcommand("list", "print keys, titles and values (- for none)");
  auto* const getting = app.add_subcommand("get", "print the value of a key");
  getting->add_option("KEY", arguments.key)->required();
  auto* const setting = app.add_subcommand("set", "write a value, and tell the home screen if one runs");
  setting->add_option("KEY", arguments.key)->required();
  setting->add_option("VALUE", arguments.value, "YES, NO, a number or a text")->required();
  auto* const sending = app.add_subcommand("send", "send a message to the home screen's settings centre");
  sending->add_option("NAME", arguments.name)->required();
  sending->add_option("INFO", arguments.info, "KEY=VALUE of the user info; may repeat");
  try {
    app.parse(count, words);
  } catch (const CLI::CallForHelp&) {
    fmt::print("{}", app.help());
    endOutput();
    return 0;
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (app.get_subcommands().empty()) throw UsageError("a command is missing: list, get, set or send");
  bridge::Pool pool;
  const fs::path root = enterDevice(arguments.root);
  if (*listing) list();
  if (*getting) get(arguments.key);
  if (*setting) set(root, arguments.key, arguments.value);
  if (*sending) sendMessage(root, arguments.name, arguments.info);
  endOutput();
  return 0;
}

}  // namespace
}  // namespace sim::product

int main(int count, char** words) {
  try {
    return sim::product::run(count, words);
  } catch (const std::exception& error) {
    std::cerr << "tilo-settings: " << sim::messageLine(error.what()) << "\n";
    return sim::product::usageStatus;
  }
}
