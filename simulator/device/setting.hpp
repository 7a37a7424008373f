// A value for the preference domain as it is written on a command line.
#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace sim {

using SettingValue = std::variant<bool, long long, double, std::string>;

struct Setting {
  std::string key;
  SettingValue value;
  bool operator==(const Setting&) const = default;
};

/**
 * YES and NO are booleans; decimal digits with or without a sign are an integer (a real number when they are
 * too many for one); with a point or an exponent, a real number; everything else is a string.
 * Throws UsageError for bytes that are no text.
 */
SettingValue settingValue(std::string_view text);

/** Reads `KEY=VALUE`. Throws UsageError when there is no such form. */
Setting parseSetting(std::string_view text);

}  // namespace sim
