// tilo-settings: what the page in Settings does to a simulated device, from another process.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "bridge/runtime.hpp"
#include "simulator/device/redirection.hpp"
#include "simulator/device/text.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/settings_tool/commands.hpp"
#include "simulator/product/settings_tool/pane.hpp"
#include "simulator/runtime/foundation.hpp"

using LogHandler = void(id message);
extern "C" LogHandler* _NSLog_printf_handler;

namespace sim::product {
namespace {

namespace fs = std::filesystem;

constexpr int usageStatus = 2;

// From now on paths of the device mean the ones below its root.
fs::path enterDevice(const std::string& folder) {
  std::error_code error;
  const fs::path root = fs::canonical(folder, error);
  if (error || root == "/" || root.native().size() >= PATH_MAX ||
      !fs::is_directory(root / "var/mobile", error))
    throw UsageError(fmt::format("--root: '{}' is no device's folder", folder));
  fs::create_directories(root / "var/mobile/Library/Preferences");  // every device that has started has it
  redirection::keepReplacedFunctions();
  redirection::setRoot(root.native());
  prepareFoundation();
  _NSLog_printf_handler = [](id) {};  // Foundation's own words for what a command says in one line
  return root;
}

// What was printed may not have reached a disk that is full.
void endOutput() {
  if (std::fflush(stdout) != 0) throw UsageError("cannot write to standard output");
}

// The command with its arguments, as CLI11 has read them.
struct Read {
  CLI::App* parsed;
  const SettingsCommand* command;
  std::vector<std::string> single, repeated;
};

void addCommand(CLI::App& app, const SettingsCommand& command, Read& read) {
  read.command = &command;
  read.parsed = app.add_subcommand(std::string(command.name), std::string(command.help));
  read.single.resize(command.arguments.size());
  for (std::size_t i = 0; i < command.arguments.size(); ++i) {
    const std::string name(command.arguments[i]);
    if (name.ends_with("..."))
      read.parsed->add_option(name.substr(0, name.size() - 3), read.repeated);
    else
      read.parsed->add_option(name, read.single[i])->required();
  }
}

std::vector<std::string> words(const Read& read) {
  std::vector<std::string> all;
  for (std::size_t i = 0; i < read.single.size(); ++i)
    if (!read.command->arguments[i].ends_with("...")) all.push_back(read.single[i]);
  all.insert(all.end(), read.repeated.begin(), read.repeated.end());
  return all;
}

int run(int count, const char* const* arguments) {
  CLI::App app("Changes a simulated device's settings, as their page in Settings would.", "tilo-settings");
  std::string folder;
  app.add_option("--root", folder, "the device's folder, as given to tilo-sim")->required();
  app.require_subcommand(0, 1);
  std::vector<Read> all(settingsCommands().size());
  for (std::size_t i = 0; i < all.size(); ++i) addCommand(app, settingsCommands()[i], all[i]);
  try {
    app.parse(count, arguments);
  } catch (const CLI::CallForHelp&) {
    fmt::print("{}", app.help());
    endOutput();
    return 0;
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (app.get_subcommands().empty()) {
    std::string names;
    for (const SettingsCommand& command : settingsCommands())
      names += (names.empty() ? "" : ", ") + std::string(command.name);
    throw UsageError("a command is missing: one of " + names);
  }
  bridge::Pool pool;
  const fs::path root = enterDevice(folder);
  loadPane();
  for (const Read& read : all)
    if (*read.parsed) read.command->perform(root, words(read));
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
