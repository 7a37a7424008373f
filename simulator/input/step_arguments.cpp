// What the arguments of a script's steps may be.
#include "simulator/input/step_arguments.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace sim {
namespace {

constexpr double mostFingers = 10;
constexpr double mostTimes = 10000;
constexpr double mostRows = 1e6;     // far more than a picker can have
constexpr double longestWait = 1e6;  // seconds: eleven days, far more than a script can mean

std::optional<double> finiteNumber(const Token& token) {
  double value = 0;
  const char* const end = token.text.data() + token.text.size();
  const auto [stop, error] = std::from_chars(token.text.data(), end, value);
  if (token.quoted || error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

bool isSetting(const std::string& text) {
  const std::size_t equals = text.find('=');
  return equals != std::string::npos && equals > 0;
}

std::optional<StepArgument> numberWithin(const Token& token, double least, double most) {
  const std::optional<double> value = finiteNumber(token);
  if (!value || *value < least || *value > most) return std::nullopt;
  return *value;
}

std::optional<StepArgument> wholeWithin(const Token& token, double least, double most) {
  const std::optional<double> value = finiteNumber(token);
  if (!value || *value < least || *value > most || *value != std::floor(*value)) return std::nullopt;
  return *value;
}

std::optional<StepArgument> oneOf(const Token& token, std::initializer_list<std::string_view> words) {
  if (token.quoted || std::ranges::find(words, token.text) == words.end()) return std::nullopt;
  return token.text;
}

}  // namespace

std::string_view description(Shape shape) {
  switch (shape) {
    case Shape::seconds:
      return "SECONDS";
    case Shape::orientation:
      return "portrait|landscape";
    case Shape::file:
      return "FILE";
    case Shape::coordinate:
      return "POINTS";
    case Shape::force:
      return "FORCE";
    case Shape::direction:
      return "up|down|left|right";
    case Shape::name:
      return "\"NAME\"";
    case Shape::finger:
      return "N";
    case Shape::phase:
      return "down|move|up";
    case Shape::page:
      return "0|1";
    case Shape::times:
      return "TIMES";
    case Shape::value:
      return "VALUE";
    case Shape::word:
      return "NAME";
    case Shape::setting:
      return "KEY=VALUE";
    case Shape::row:
      return "ROW";
    case Shape::text:
      return "\"TEXT\"";
    case Shape::selector:
      return "exportSettings|openSettings";
    case Shape::none:
      break;
  }
  return "";
}

std::optional<StepArgument> argument(Shape shape, const Token& token, const std::filesystem::path& folder) {
  switch (shape) {
    case Shape::seconds: {
      const std::optional<double> value = finiteNumber(token);
      if (!value || *value < 0 || *value > longestWait) return std::nullopt;
      return *value;
    }
    case Shape::coordinate:
      return numberWithin(token, -std::numeric_limits<double>::max(), std::numeric_limits<double>::max());
    case Shape::force:
      return numberWithin(token, 0, std::numeric_limits<double>::max());
    case Shape::finger:
      return wholeWithin(token, 0, mostFingers);
    case Shape::times:
      return wholeWithin(token, 1, mostTimes);
    case Shape::direction:
      return oneOf(token, {"up", "down", "left", "right"});
    case Shape::phase:
      return oneOf(token, {"down", "move", "up"});
    case Shape::page:
      return oneOf(token, {"0", "1"});
    case Shape::value:
      return numberWithin(token, -std::numeric_limits<float>::max(), std::numeric_limits<float>::max());
    case Shape::name:
      if (!token.quoted || token.text.empty()) return std::nullopt;
      return token.text;
    case Shape::orientation:
      if (token.quoted || (token.text != "portrait" && token.text != "landscape")) return std::nullopt;
      return token.text;
    case Shape::file:
      if (token.text.empty()) return std::nullopt;
      return token.text == "-" ? token.text : (folder / token.text).string();
    case Shape::word:
      if (token.text.empty()) return std::nullopt;
      return token.text;
    case Shape::setting:
      if (!isSetting(token.text)) return std::nullopt;
      return token.text;
    case Shape::row:
      return wholeWithin(token, 0, mostRows);
    case Shape::text:
      if (!token.quoted) return std::nullopt;
      return token.text;
    case Shape::selector:
      return oneOf(token, {"exportSettings", "openSettings"});
    case Shape::none:
      break;
  }
  return std::nullopt;
}

}  // namespace sim
