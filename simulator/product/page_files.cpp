// The library's files beside a home screen on a page: new lines of its log, and its presets file, to be saved
// and put in place.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "simulator/app/simulation.hpp"
#include "simulator/device/contents.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/device/whole_file.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/product.hpp"

namespace sim::product {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostLines = 500;             // that are told at once: the last ones
constexpr std::size_t longestPresets = 512 << 10;  // bytes
constexpr std::size_t mostLayouts = 500;
constexpr int deepestPresets = 32;

// Of what is a file; of a folder or a pipe nothing.
std::string textOf(Simulation& simulation, const char* devicePath) {
  const fs::path path = simulation.fileSystem().hostPath(devicePath);
  return fs::is_regular_file(path) ? contents(path) : "";
}

// "after": how many bytes of the log a page has read. A log that has become shorter is another one.
Json log(Simulation& simulation, const Json& message) {
  const std::string text = textOf(simulation, logPath);
  const double asked = std::clamp(message.value("after").get<double>(), 0.0, 1e12);
  std::size_t at = static_cast<std::size_t>(asked);
  if (at > text.size()) at = 0;
  Json::Array lines;
  for (std::size_t end; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
    lines.emplace_back(text.substr(at, end - at));
  if (lines.size() > mostLines) lines.erase(lines.begin(), lines.end() - mostLines);
  return {{"lines", Json(std::move(lines))}, {"count", at}};
}

// The file's text; null when there is none.
Json presets(Simulation& simulation, const Json&) {
  const std::string text = textOf(simulation, presetsPath);
  return text.empty() ? Json() : Json(text);
}

// What is said of a text that is no presets file; empty when it is one.
std::string faultIn(const std::string& text) {
  if (text.size() > longestPresets) return "is too long";
  const std::optional<Json> document = Json::read(text, deepestPresets);
  if (!document || !document->isObject()) return "is no JSON object";
  const Json layouts = document->value("configurations");
  if (!layouts.isArray()) return "has no list 'configurations'";
  if (layouts.size() > mostLayouts) return fmt::format("has more than {} layouts", mostLayouts);
  for (std::size_t i = 0; i < layouts.size(); ++i)
    if (!layouts[i].isObject() || !layouts[i].value("name").isString() ||
        !layouts[i].value("configuration").isObject())
      return fmt::format("has no name and configuration for layout {}", i + 1);
  return "";
}

// The library reads it when SpringBoard starts, and its panel when it opens.
Json usePresets(Simulation& simulation, const Json& message) {
  const auto text = message.value("text").get<std::string>();
  if (const std::string fault = faultIn(text); !fault.empty())
    throw UsageError(fmt::format("the presets file {}", fault));
  std::error_code none;  // what could not be made has no place for a file
  fs::create_directories(simulation.fileSystem().hostPath(presetsPath).parent_path(), none);
  if (!replaceFile(presetsPath, text)) throw UsageError("the presets file cannot be written");
  return nullptr;
}

constexpr PageMessage messages[] = {{"log", log}, {"presets", presets}, {"use-presets", usePresets}};

}  // namespace

std::span<const PageMessage> fileMessages() { return messages; }

}  // namespace sim::product
