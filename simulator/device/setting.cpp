// Finds the type of a written value.
#include "simulator/device/setting.hpp"

#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

// The whole text as a number; the locale plays no part.
template <typename Number>
std::optional<Number> number(std::string_view text) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

void checkText(std::string_view text) {
  if (!isText(text)) throw UsageError(fmt::format("'{}' is not text in UTF-8", text));
}

}  // namespace

SettingValue settingValue(std::string_view text) {
  checkText(text);
  if (text == "YES") return true;
  if (text == "NO") return false;
  std::string_view digits = text;
  if (digits.starts_with('+') && !digits.substr(1).starts_with('-')) digits.remove_prefix(1);
  // Keeps out "inf" and "nan", which from_chars would take.
  if (digits.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::string(text);
  if (const auto integer = number<long long>(digits)) return *integer;
  if (const auto real = number<double>(digits)) return *real;
  return std::string(text);
}

Setting parseSetting(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || equals == 0)
    throw UsageError(fmt::format("'{}' is not KEY=VALUE", text));
  checkText(text);
  return {std::string(text.substr(0, equals)), settingValue(text.substr(equals + 1))};
}

}  // namespace sim
