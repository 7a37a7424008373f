// A folder with a file for each name.
#include "simulator/serve/saved_steps.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "simulator/app/simulation.hpp"
#include "simulator/device/contents.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim::serve {
namespace {

namespace fs = std::filesystem;

constexpr const char* folder = "/var/mobile/Documents/steps";
constexpr std::string_view extension = ".txt";
constexpr std::size_t longestName = 40, mostNames = 100, longestText = 64 << 10;  // bytes

// What such a name makes is a file of the folder, and nothing else.
bool isName(const std::string& name) {
  const auto isFit = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ' ||
           c == '-' || c == '_';
  };
  return !name.empty() && name.size() <= longestName && std::ranges::all_of(name, isFit) &&
         name.front() != ' ' && name.back() != ' ';
}

std::vector<fs::path> files(const fs::path& place) {
  std::vector<fs::path> found;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(place, error))
    if (fs::is_regular_file(entry.symlink_status(error)) && entry.path().extension() == extension &&
        isName(entry.path().stem()) && entry.file_size(error) <= longestText)
      found.push_back(entry.path());
  std::ranges::sort(found);
  return found;
}

Json saved(Simulation& simulation, const Json&) {
  Json all = Json::object();
  for (const fs::path& file : files(simulation.fileSystem().hostPath(folder)))
    all[file.stem().string()] = contents(file);
  return all;
}

Json save(Simulation& simulation, const Json& message) {
  const auto name = message.value("name").get<std::string>(), text = message.value("text").get<std::string>();
  if (!isName(name))
    throw UsageError(fmt::format("'{}' is no name for steps: 1 to {} letters, digits, spaces, - and _", name,
                                 longestName));
  if (text.size() > longestText) throw UsageError(fmt::format("'{}' has too many steps to be saved", name));
  const fs::path place = simulation.fileSystem().hostPath(folder);
  const fs::path file = place / (name + std::string(extension));
  std::error_code error;
  if (text.empty()) {
    fs::remove(file, error);
    if (error) throw UsageError(fmt::format("'{}' cannot be removed", name));
    return nullptr;
  }
  if (!fs::exists(file, error) && files(place).size() >= mostNames)
    throw UsageError(fmt::format("'{}' cannot be saved: there are {} already", name, mostNames));
  // Where the disk refuses one of these, it does not take the file either.
  fs::create_directories(place, error);
  // Not through a link that somebody has put there.
  if (fs::is_symlink(fs::symlink_status(file, error))) fs::remove(file, error);
  std::ofstream out(file, std::ios::binary);
  if (!(out << text << std::flush)) throw UsageError(fmt::format("'{}' cannot be written", name));
  return nullptr;
}

constexpr PageMessage messages[] = {{"saved-steps", saved}, {"save-steps", save}};

}  // namespace

std::span<const PageMessage> savedStepMessages() { return messages; }

}  // namespace sim::serve
