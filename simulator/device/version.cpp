// Reading, writing and judging system versions.
#include "simulator/device/version.hpp"

#include <fmt/format.h>

#include <charconv>

namespace sim {
namespace {

// One part without sign and leading zeros; none when there is no such part at the front of the text.
std::optional<int> takePart(std::string_view& text) {
  const std::size_t length = std::min(text.find_first_not_of("0123456789"), text.size());
  if (length == 0 || length > 3 || (length > 1 && text.front() == '0')) return std::nullopt;
  int part = 0;
  std::from_chars(text.data(), text.data() + length, part);
  text.remove_prefix(length);
  return part;
}

bool takeDot(std::string_view& text) {
  if (!text.starts_with('.')) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

std::string Version::text() const {
  return patch == 0 ? fmt::format("{}.{}", major, minor) : fmt::format("{}.{}.{}", major, minor, patch);
}

std::optional<Version> Version::parse(std::string_view text) {
  const std::optional<int> major = takePart(text);
  if (!major || !takeDot(text)) return std::nullopt;
  const std::optional<int> minor = takePart(text);
  if (!minor) return std::nullopt;
  if (text.empty()) return Version{*major, *minor, 0};
  if (!takeDot(text)) return std::nullopt;
  const std::optional<int> patch = takePart(text);
  if (!patch || !text.empty()) return std::nullopt;
  return Version{*major, *minor, *patch};
}

bool Version::existed() const {
  constexpr int firstMajor = 8;
  constexpr int lastMinor[] = {4, 3, 3, 4, 5};  // of 8, 9, 10, 11, 12
  const int index = major - firstMajor;
  return index >= 0 && index < 5 && minor <= lastMinor[index] && patch <= 9;
}

}  // namespace sim
