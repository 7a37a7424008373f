// Where the library keeps its things, and what it is called by.
#pragma once

namespace sim::product {

inline constexpr const char* domain = "com.wexor.tilo";  // of its preferences
inline constexpr const char* settingsCentre = "com.wexor.tilo3.preferences.updated";
inline constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/com.wexor.tilo.plist";
inline constexpr const char* presetsPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.json";
inline constexpr const char* logPath = "/var/mobile/Documents/Tilo3.log";

}  // namespace sim::product
