// The files that the library finds when it starts, as the command line asks for them.
#pragma once

#include <string>
#include <vector>

#include "simulator/device/setting.hpp"

namespace sim {
class Simulation;
struct Options;
}  // namespace sim

namespace sim::product {

// The preference domain's values, each key once with the value given last.
std::vector<Setting> settingsOf(const Options& options);

// Throws UsageError when `file` is no property list of keys and values.
void checkPreferenceFile(const std::string& file);

// Writes the property list `file` with what `base` (a property list, none when empty) holds and `settings`
// over it. Throws UsageError when `base` is no property list of keys and values.
void writePreferenceFile(const std::string& file, const std::string& base,
                         const std::vector<Setting>& settings);

// To their places on the device, where the options name any. Throw UsageError for a file that is none.
void putPreferences(Simulation& simulation);
/** The page in Settings, as the package installs it; not with a device as it was bought. */
void putPane(Simulation& simulation);

void putPresets(Simulation& simulation);

}  // namespace sim::product
