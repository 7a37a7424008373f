// The options of any home screen: what they take, and what is wrong about it.
#include "simulator/app/options.hpp"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <type_traits>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;
using Text = const std::string&;
using Row = const OptionRow&;

constexpr int mostPages = 15;

fs::path readableFile(Row row, Text name) {
  std::error_code error;
  if (fs::is_directory(name, error)) throw UsageError(fmt::format("{}: '{}' is a folder", row.name, name));
  // It is not opened: who writes into a pipe would be told that its reader has gone.
  if (::access(name.c_str(), R_OK) != 0)
    throw UsageError(fmt::format("{}: '{}': {}", row.name, name, std::strerror(errno)));
  return fs::absolute(name);
}

fs::path writableFile(Row row, Text name) {
  std::error_code error;
  const fs::path path = fs::absolute(name, error);
  if (name.empty() || fs::is_directory(path, error) || !fs::is_directory(path.parent_path(), error))
    throw UsageError(fmt::format("{}: no file can be written at '{}'", row.name, name));
  return path;
}

void takeRoot(Options& options, Row row, Text name) {
  std::error_code error;
  options.root = fs::absolute(name, error).lexically_normal();
  if (name.empty() || options.root == "/" ||
      (fs::exists(*options.root, error) && !fs::is_directory(*options.root, error)))
    throw UsageError(fmt::format("{}: '{}' cannot be the device's folder", row.name, name));
}

// The words of a choice stand in the row's usage, and have the values 0 and 1.
template <auto member>
void takeChoice(Options& options, Row row, Text text) {
  const std::size_t bar = row.value.find('|');
  const bool second = text == row.value.substr(bar + 1);
  if (!second && text != row.value.substr(0, bar))
    throw UsageError(fmt::format("{}: unknown value '{}'", row.name, text));
  options.*member = static_cast<std::remove_reference_t<decltype(options.*member)>>(second);
}

// In decimal digits, whatever zeros they begin with.
int wholeNumber(Row row, Text text, int most) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool tooLarge = error == std::errc::result_out_of_range;
  if ((error != std::errc{} && !tooLarge) || end != text.data() + text.size())
    throw UsageError(fmt::format("{}: '{}' is not a whole number", row.name, text));
  if (tooLarge || value < 1 || value > most)
    throw UsageError(fmt::format("{}: {} is not between 1 and {}", row.name, text, most));
  return value;
}

void takeIcons(Options& options, Row row, Text text) {
  const StockGrid& grid = options.device->portrait;
  options.icons = wholeNumber(row, text, mostPages * grid.rows * grid.columns);
  options.pages = 1;
}

template <auto member>
void takeFlag(Options& options, Row, Text) {
  options.*member = true;
}

template <Listing listing>
void takeListing(Options& options, Row, Text) {
  options.listing = listing;
}

template <auto member, auto file, bool mayBeStream = false>
void takeFile(Options& options, Row row, Text name) {
  options.*member = mayBeStream && name == "-" ? fs::path("-") : file(row, name);
}

void takeLibrary(Options& options, Row row, Text name) {
  const fs::path file = readableFile(row, name);
  if (std::ranges::find(options.libraries, file) != options.libraries.end())
    throw UsageError(fmt::format("{}: '{}' is there twice", row.name, name));
  options.libraries.push_back(file);
}

static_assert(static_cast<int>(Orientation::portrait) == 0 &&
              static_cast<int>(InjectionLoader::substrate) == 0);

constexpr OptionRow rows[] = {
    {"--help", "", "print the options and end", "", takeListing<Listing::help>},
    {"--list-options", "", "print this table and end", "", takeListing<Listing::options>},
    {"--list-devices", "", "print the models and end; `--report FILE` writes them as a JSON array too", "",
     takeListing<Listing::devices>},
    {"--list-steps", "", "print the steps of a script, as below, and end", "", takeListing<Listing::steps>},
    {"--list-report", "", "print the keys of the report, as below, and end", "",
     takeListing<Listing::report>},
    {"--device", "NAME", "the model; names as `--list-devices` prints them", "`iPhone 7`",
     [](Options& options, Row, Text text) { options.device = &findDevice(text); }},
    {"--ios", "VERSION", "system version, one that the model ran, from 8.4 on",
     "10.3.3, or the nearest it ran",
     [](Options& options, Row, Text text) { options.ios = findVersion(*options.device, text); }},
    {"--orientation", "portrait|landscape", "at the start; only where the home screen turns", "`portrait`",
     takeChoice<&Options::orientation>},
    {"--icons", "N", "icons in all, 1 to what 15 stock pages hold", "as many as fill the pages", takeIcons},
    {"--pages", "N", "home-screen pages to fill, 1 to 15; of no effect beside `--icons`", "3",
     [](Options& options, Row row, Text text) { options.pages = wholeNumber(row, text, mostPages); }},
    {"--root", "DIR", "the device's file system, made if need be and kept",
     "a temporary folder, removed at the end (of a run that is killed: when the next one starts)", takeRoot},
    {"--stock", "", "do not load the library", "", takeFlag<&Options::stock>},
    {"--icon-support", "", "the device has IconSupport", "", takeFlag<&Options::iconSupport>},
    {"--springboard", "real|complete",
     "which methods SpringBoard's classes have: those of the version, or also every other that the library "
     "names",
     "`real`", takeChoice<&Options::springboard>},
    {"--loader", "substrate|sbinject", "the injection loader, which decides where the library lies",
     "`substrate`", takeChoice<&Options::loader>},
    {"--library", "FILE", "a library to load; may repeat, loaded in order",
     "the program's own, where it has one", takeLibrary, true},
    {"--installed", "",
     "load what the root holds, and put nothing of the build there; a file for devices is stood in for "
     "(below)",
     "", takeFlag<&Options::installed>},
    {"--script", "FILE", "steps, one a line; `-` reads standard input", "",
     takeFile<&Options::script, readableFile, true>},
    {"--snapshot", "FILE", "PNG of the screen at the end", "", takeFile<&Options::snapshot, writableFile>},
    {"--report", "FILE", "JSON at the end; `-` prints it", "",
     takeFile<&Options::report, writableFile, true>},
};

}  // namespace

std::span<const OptionRow> homeScreenOptions() { return rows; }

void keepText(Options& options, Row row, Text text) { options.more[row.name].push_back(text); }

void keepReadableFile(Options& options, Row row, Text name) {
  keepText(options, row, readableFile(row, name));
}

void keepWritableFile(Options& options, Row row, Text name) {
  keepText(options, row, writableFile(row, name));
}

}  // namespace sim
