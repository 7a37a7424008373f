// What tilo-settings can do.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sim::product {

struct SettingsCommand {
  std::string_view name;
  std::vector<std::string_view> arguments;  // what usage lines call them; "..." behind one that may repeat
  std::string_view help;
  /** Throws UsageError for what is wrong. */
  void (*perform)(const std::filesystem::path& root, const std::vector<std::string>& arguments);
};

/** In the order in which the help has them. */
std::span<const SettingsCommand> settingsCommands();

}  // namespace sim::product
