// What the report says of the library's files: preferences, named layouts, log.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "bridge/runtime.hpp"
#include "platform/foundation/string.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/product.hpp"
#include "simulator/runtime/preferences.hpp"

namespace sim::product {
namespace {

// A folder or a pipe has no contents that could be shown.
std::optional<std::ifstream> open(Simulation& simulation, const char* devicePath) {
  const std::filesystem::path path = simulation.fileSystem().hostPath(devicePath);
  if (!std::filesystem::is_regular_file(path)) return std::nullopt;
  return std::ifstream(path);
}

constexpr int deepestPresets = 32;  // far more than presets need, far less than would exhaust the stack

Json preferences(Simulation&) { return plain(storedPreferences(NSString::stringWithUTF8String(domain))); }

// A file that is no JSON, or none of presets, is shown as the text it is.
Json presets(Simulation& simulation) {
  std::optional<std::ifstream> file = open(simulation, presetsPath);
  if (!file) return nullptr;
  std::string text{std::istreambuf_iterator<char>(*file), {}};
  return Json::read(text, deepestPresets).value_or(Json(text));
}

Json log(Simulation& simulation) {
  Json lines = Json::array();
  std::optional<std::ifstream> file = open(simulation, logPath);
  for (std::string line; file && std::getline(*file, line);) lines.push_back(line);
  return lines;
}

constexpr ReportRow rows[] = {
    {"preferences", preferences, "the domain `com.wexor.tilo` as another process would read it, keys sorted"},
    {"presets", presets,
     "the presets file, parsed; as a string when it is no JSON or nested deeper than 32, null when there is "
     "none"},
    {"log", log, "lines of `/var/mobile/Documents/Tilo3.log`"},
};

}  // namespace

std::span<const ReportRow> filesKeys() { return rows; }

}  // namespace sim::product
