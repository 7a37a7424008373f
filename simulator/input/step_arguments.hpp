// What the arguments of a script's steps may be.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/input/step.hpp"

namespace sim {

/** A word of a line, without its quotes. */
struct Token {
  std::string text;
  bool quoted;
};

/** How usage lines show it; nothing for none. */
std::string_view description(Shape shape);

/** The argument that a token is; none when it has not that shape. A relative file counts from `folder`. */
std::optional<StepArgument> argument(Shape shape, const Token& token, const std::filesystem::path& folder);

}  // namespace sim
