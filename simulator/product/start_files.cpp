// The files that the library finds when it starts.
#include "simulator/product/start_files.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/foundation/dictionary.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/contents.hpp"
#include "simulator/device/unfinished_files.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/product.hpp"
#include "simulator/runtime/property_list.hpp"
#include "simulator/runtime/setting_object.hpp"

namespace sim::product {
namespace {

namespace fs = std::filesystem;

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

bridge::Strong<NSMutableDictionary> readPreferenceFile(const std::string& file) {
  NSDictionary read = propertyList(string(file));
  if (!read) throw UsageError("'" + file + "' is not a property list of keys and values");
  return read.mutableCopy();
}

// Empty without the option.
std::string fileOf(const Options& options, std::string_view option) {
  const auto given = options.more.find(option);
  return given == options.more.end() ? "" : given->second.front();
}

void takeSetting(Options& options, const OptionRow& row, const std::string& text) {
  try {
    parseSetting(text);
  } catch (const UsageError& error) {
    throw UsageError(fmt::format("{}: {}", row.name, error.what()));
  }
  keepText(options, row, text);
}

constexpr OptionRow rows[] = {
    {"--prefs", "FILE", "a property list, XML or binary, for the preference domain", "", keepReadableFile},
    {"--set", "KEY=VALUE", "a value of the preference domain; may repeat, of one key the last counts", "",
     takeSetting, true},
    {"--presets", "FILE", "the presets file to start with", "", keepReadableFile},
};

}  // namespace

std::span<const OptionRow> startFileOptions() { return rows; }

std::vector<Setting> settingsOf(const Options& options) {
  std::vector<Setting> settings;
  const auto given = options.more.find("--set");
  if (given == options.more.end()) return settings;
  for (const std::string& text : given->second) {
    Setting setting = parseSetting(text);
    const auto old = std::ranges::find(settings, setting.key, &Setting::key);
    if (old != settings.end())
      old->value = std::move(setting.value);
    else
      settings.push_back(std::move(setting));
  }
  return settings;
}

void checkPreferenceFile(const std::string& file) {
  bridge::Pool pool;
  readPreferenceFile(file);
}

void writePreferenceFile(const std::string& file, const std::string& base,
                         const std::vector<Setting>& settings) {
  bridge::Pool pool;
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  if (!base.empty()) values = readPreferenceFile(base);
  for (const Setting& setting : settings)
    values->setObject_forKey(settingObject(setting.value), string(setting.key));
  if (!values->writeToFile_atomically(string(file), YES)) throw UsageError("cannot write '" + file + "'");
}

void putPreferences(Simulation& simulation) {
  const std::string place = simulation.fileSystem().hostPath(preferencesPath);
  const std::string base = fileOf(simulation.startOptions(), "--prefs");
  const std::vector<Setting> settings = settingsOf(simulation.startOptions());
  if (simulation.startOptions().again) return;
  if (!settings.empty()) return writePreferenceFile(place, base, settings);
  if (base.empty()) return;
  checkPreferenceFile(base);
  fs::copy_file(base, place, fs::copy_options::overwrite_existing);
}

void putPresets(Simulation& simulation) {
  const fs::path place = simulation.fileSystem().hostPath(presetsPath);
  removeUnfinishedFiles(place.parent_path());
  const std::string given = fileOf(simulation.startOptions(), "--presets");
  if (given.empty() || simulation.startOptions().again) return;
  fs::create_directories(place.parent_path());
  std::ofstream file(place, std::ios::binary);
  if (!(file << contents(given) << std::flush)) throw UsageError("cannot write '" + place.string() + "'");
}

}  // namespace sim::product
