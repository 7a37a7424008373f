// Knows Foundation's temporary files by their names.
#include "simulator/device/unfinished_files.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t letters = 6;  // that mkstemp puts in

bool isLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isUnfinished(std::string_view name) {
  if (name.size() <= letters) return false;
  const std::string_view meant = name.substr(0, name.size() - letters), added = name.substr(meant.size());
  return (meant.ends_with(".plist") || meant.ends_with(".json")) &&
         std::ranges::all_of(added, isLetterOrDigit);
}

}  // namespace

void removeUnfinishedFiles(const fs::path& folder) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder, ignored))
    if (entry.is_regular_file(ignored) && isUnfinished(entry.path().filename().native()))
      fs::remove(entry.path(), ignored);
}

}  // namespace sim
