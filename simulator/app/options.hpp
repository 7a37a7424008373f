// What the command line asks for, and the table of what it may ask for.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/device/catalogue.hpp"
#include "simulator/device/file_system.hpp"
#include "simulator/springboard/class_facts.hpp"

namespace sim {

/** What is printed instead of running. */
enum class Listing { help, options, devices, steps, report };

/** Files are absolute, so that the working folder may change; "-" stays where it stands for a standard
 * stream. */
struct Options {
  const Device* device = nullptr;  // never null, of the catalogue
  Version ios{};                   // that the device ran
  std::optional<Listing> listing;
  Orientation orientation = Orientation::portrait;
  int pages = 3;                              // at least, 1 to 15; icons alone take as few as they need
  std::optional<int> icons;                   // in all; none: as many as fill the pages
  std::optional<std::filesystem::path> root;  // none: a temporary one
  bool again = false;  // with these options it has started before: files that they ask for are there
  bool stock = false;
  bool installed = false;  // what the root holds is loaded, and nothing put there
  bool iconSupport = false;
  springboard::Methods springboard = springboard::Methods::real;
  InjectionLoader loader = InjectionLoader::substrate;
  std::vector<std::filesystem::path> libraries;  // in the order of loading; none: the program's own
  std::optional<std::filesystem::path> script, snapshot, report;
  std::map<std::string_view, std::vector<std::string>>
      more;  // of options that a program adds, by their names
};

struct OptionRow {
  std::string_view name;   // with its dashes
  std::string_view value;  // what usage lines call it, in brackets where it may be left out; nothing for an
                           // option that takes none
  std::string_view help;   // what it means
  std::string_view standard;  // what holds without it, where that is not plain
  /** Throws UsageError, with the row's name where the text does not tell enough. Rows take in their table's
   * order. */
  void (*take)(Options&, const OptionRow& row, const std::string& text);
  bool repeats = false;
};

/** Those of any home screen. */
std::span<const OptionRow> homeScreenOptions();

/**
 * Reads the arguments of `main`. Files to read must be readable, and those to write must be in a folder that
 * exists. Throws UsageError for anything else.
 */
Options parseOptions(int count, const char* const* arguments, std::span<const OptionRow> table);

/** For options of others: keeps the text, or the name of a file that can be read, or be written. */
void keepText(Options& options, const OptionRow& row, const std::string& text);
void keepReadableFile(Options& options, const OptionRow& row, const std::string& name);
void keepWritableFile(Options& options, const OptionRow& row, const std::string& name);

/** An option with what it takes, as it is written. */
std::string usage(const OptionRow& row);

}  // namespace sim
