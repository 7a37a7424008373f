// A device's files, for readers that go by way of Foundation. There is one for the life of the process.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace fuzz {

inline constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/com.wexor.tilo.plist";
inline constexpr const char* presetsFolder = "/var/mobile/Documents/com.wexor.tilo3/custom";
inline constexpr const char* presetsPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.json";

// From the first call on there is a device, with Foundation as it is there, and no preferences.
std::filesystem::path onHost(const char* devicePath);

std::string textOf(const unsigned char* bytes, std::size_t length);
void write(const char* devicePath, const std::string& contents);
std::string contents(const char* devicePath);

// Ends the process, as a fault that the fuzzer notes.
void mustHold(bool condition);

}  // namespace fuzz
