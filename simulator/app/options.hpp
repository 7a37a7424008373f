// What the command line asks for.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "simulator/device/catalogue.hpp"
#include "simulator/device/file_system.hpp"
#include "simulator/device/setting.hpp"

namespace sim {

/** Files are absolute, so that the working folder may change; "-" stays where it stands for a standard
 * stream. */
struct Options {
  const Device* device = nullptr;  // never null, of the catalogue
  Version ios{};                   // that the device ran
  bool listDevices = false;        // and nothing else but `report`
  bool listSteps = false;          // and nothing else
  Orientation orientation = Orientation::portrait;
  int pages = 3;                              // at least, 1 to 15; icons alone take as few as they need
  std::optional<int> icons;                   // in all; none: as many as fill the pages
  std::optional<std::filesystem::path> root;  // none: a temporary one
  std::optional<std::filesystem::path> prefs;
  std::vector<Setting> settings;  // each key once, with the value given last
  std::optional<std::filesystem::path> presets;
  bool stock = false;
  bool iconSupport = false;
  InjectionLoader loader = InjectionLoader::substrate;
  std::optional<std::filesystem::path> library;  // none: the one built beside the simulator
  std::optional<std::filesystem::path> script, snapshot, report;
  std::string help;  // not empty when it was asked for: the text to print instead of running
};

/**
 * Reads the arguments of `main`. Files to read must be readable, and those to write must be in a folder that
 * exists. Throws UsageError for anything else.
 */
Options parseOptions(int count, const char* const* arguments);

}  // namespace sim
