// Making a preferences file from a command line.
#pragma once

#include <string>
#include <vector>

#include "simulator/device/setting.hpp"

namespace sim {

// Throws UsageError when `file` is no property list of keys and values.
void checkPreferenceFile(const std::string& file);

// Writes the property list `file` with what `base` (a property list, none when empty) holds and `settings`
// over it. Throws UsageError when `base` is no property list of keys and values.
void writePreferenceFile(const std::string& file, const std::string& base,
                         const std::vector<Setting>& settings);

}  // namespace sim
