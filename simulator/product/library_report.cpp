// What the report says of the library itself: the array that it exports, and its files.
#include <dlfcn.h>

#include <fstream>
#include <iterator>

#include "bridge/runtime.hpp"
#include "platform/foundation/string.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/product.hpp"
#include "simulator/runtime/preferences.hpp"

namespace sim::product {
namespace {

std::ifstream open(Simulation& simulation, const char* devicePath) {
  return std::ifstream(simulation.fileSystem().hostPath(devicePath));
}

constexpr int deepestPresets = 32;  // far more than presets need, far less than would exhaust the stack

}  // namespace

// The library's exported array of four lengths.
Json reportFraming(Simulation& simulation) {
  auto* values =
      simulation.library() ? static_cast<const CGFloat*>(dlsym(simulation.library(), "framing")) : nullptr;
  if (!values) return nullptr;
  return Json::array({number(values[0]), number(values[1]), number(values[2]), number(values[3])});
}

Json reportPreferences(Simulation&) {
  return plain(preferenceDomain(NSString::stringWithUTF8String(domain)));
}

// A file that is no JSON, or none of presets, is shown as the text it is.
Json reportPresets(Simulation& simulation) {
  std::ifstream file = open(simulation, presetsPath);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (!file) return nullptr;
  return Json::read(text, deepestPresets).value_or(Json(text));
}

Json reportLog(Simulation& simulation) {
  Json lines = Json::array();
  std::ifstream file = open(simulation, logPath);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

}  // namespace sim::product
