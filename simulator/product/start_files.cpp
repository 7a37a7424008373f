// The files that the library finds when it starts.
#include "simulator/product/start_files.hpp"

#include <filesystem>

#include "platform/foundation/dictionary.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/names.hpp"
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

}  // namespace

void checkPreferenceFile(const std::string& file) {
  bridge::Pool pool;
  readPreferenceFile(file);
}

void writePreferenceFile(const std::string& file, const std::string& base,
                         const std::vector<Setting>& settings) {
  bridge::Pool pool;
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  if (!base.empty()) {
    values = readPreferenceFile(base);
  }
  for (const Setting& setting : settings)
    values->setObject_forKey(settingObject(setting.value), string(setting.key));
  if (!values->writeToFile_atomically(string(file), YES)) throw UsageError("cannot write '" + file + "'");
}

void putPreferences(Simulation& simulation) {
  const Options& options = simulation.startOptions();
  fs::path place = simulation.fileSystem().hostPath(preferencesPath);
  if (options.settings.empty()) {
    if (!options.prefs) return;
    checkPreferenceFile(options.prefs->string());
    fs::copy_file(*options.prefs, place, fs::copy_options::overwrite_existing);
    return;
  }
  writePreferenceFile(place.string(), options.prefs ? options.prefs->string() : "", options.settings);
}

void putPresets(Simulation& simulation) {
  const Options& options = simulation.startOptions();
  if (!options.presets) return;
  fs::path place = simulation.fileSystem().hostPath(presetsPath);
  fs::create_directories(place.parent_path());
  fs::copy_file(*options.presets, place, fs::copy_options::overwrite_existing);
}

}  // namespace sim::product
