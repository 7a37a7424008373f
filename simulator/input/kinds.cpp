// Reading words of a script as arguments.
#include "simulator/input/kinds.hpp"

#include <charconv>
#include <cmath>

namespace sim::kinds {
namespace {

namespace fs = std::filesystem;

using Read = std::optional<StepArgument>;

Read textIf(bool fits, const Token& token) { return fits ? Read(token.text) : std::nullopt; }

}  // namespace

Read readNumber(const Kind& kind, const Token& token, const fs::path&) {
  double value = 0;
  const char* const end = token.text.data() + token.text.size();
  const auto [stop, error] = std::from_chars(token.text.data(), end, value);
  if (token.quoted || error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
  if (value < kind.least || value > kind.most) return std::nullopt;
  return value;
}

Read readWhole(const Kind& kind, const Token& token, const fs::path& folder) {
  const Read value = readNumber(kind, token, folder);
  return value && std::get<double>(*value) == std::floor(std::get<double>(*value)) ? value : std::nullopt;
}

Read readChoice(const Kind& kind, const Token& token, const fs::path&) {
  const bool isOne = !token.text.empty() && !token.text.contains('|');
  const std::string all = "|" + std::string(kind.shown) + "|";
  return textIf(!token.quoted && isOne && all.contains("|" + token.text + "|"), token);
}

Read readWord(const Kind&, const Token& token, const fs::path&) { return textIf(!token.text.empty(), token); }

Read readName(const Kind&, const Token& token, const fs::path&) {
  return textIf(token.quoted && !token.text.empty(), token);
}

Read readAny(const Kind&, const Token& token, const fs::path&) { return textIf(true, token); }

Read readText(const Kind&, const Token& token, const fs::path&) { return textIf(token.quoted, token); }

Read readSetting(const Kind&, const Token& token, const fs::path&) {
  return textIf(token.text.find('=', 1) != std::string::npos && token.text[0] != '=', token);
}

Read readFile(const Kind&, const Token& token, const fs::path& folder) {
  if (token.text.empty() || token.text == "-") return textIf(!token.text.empty(), token);
  return (folder / token.text).string();
}

}  // namespace sim::kinds
