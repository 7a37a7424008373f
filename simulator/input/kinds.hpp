// What the arguments of a script's steps may be: kinds, each of which reads a word of a line.
#pragma once

#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace sim {

/** A word of a line, without its quotes. */
struct Token {
  std::string text;
  bool quoted;
};

/** A number in the unit of its step, or a text: a word of the step's vocabulary, a file, a name or
 * "KEY=VALUE". */
using StepArgument = std::variant<double, std::string>;

struct Kind {
  std::string_view shown;  // in usage lines
  /** None for a word that is not of the kind. A relative file counts from `folder`. */
  std::optional<StepArgument> (*read)(const Kind&, const Token&,
                                      const std::filesystem::path& folder) = nullptr;
  double least = 0, most = 0;  // of numbers

  explicit operator bool() const { return read != nullptr; }
};

namespace kinds {

std::optional<StepArgument> readNumber(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readWhole(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readChoice(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readWord(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readName(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readAny(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readText(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readSetting(const Kind&, const Token&, const std::filesystem::path&);
std::optional<StepArgument> readFile(const Kind&, const Token&, const std::filesystem::path&);

inline constexpr double anything = std::numeric_limits<double>::max();

constexpr Kind number(std::string_view shown, double least, double most) {
  return {shown, readNumber, least, most};
}
constexpr Kind whole(std::string_view shown, double least, double most) {
  return {shown, readWhole, least, most};
}
/** One of some words, which bars separate. */
constexpr Kind choice(std::string_view words) { return {words, readChoice}; }

// Eleven days, far more than a script can mean.
inline constexpr Kind seconds = number("SECONDS", 0, 1e6);
inline constexpr Kind x = number("X", -anything, anything), y = number("Y", -anything, anything);
inline constexpr Kind word{"NAME", readWord};
inline constexpr Kind name{"\"NAME\"", readName};
inline constexpr Kind text{"\"TEXT\"", readText};
inline constexpr Kind setting{"KEY=VALUE", readSetting};
inline constexpr Kind file{"FILE", readFile};

}  // namespace kinds

}  // namespace sim
