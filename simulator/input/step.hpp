// A step of a script: what it takes and what it does.
#pragma once

#include <array>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/input/kinds.hpp"

namespace sim {

class Simulation;
struct StepRow;

struct Step {
  const StepRow* row;
  std::vector<StepArgument> arguments;  // as many as the step has, of the right kinds
  std::string place;                    // "FILE:LINE", for errors

  std::string_view name() const;
  double number(std::size_t index) const { return std::get<double>(arguments.at(index)); }
  const std::string& text(std::size_t index) const { return std::get<std::string>(arguments.at(index)); }
  bool has(std::size_t index) const { return arguments.size() > index; }
};

/** One way of giving a step its arguments. */
struct Arguments {
  std::array<Kind, 6> kinds{};
  Kind more{};  // any number of these may follow

  std::size_t count() const;
  bool takes(std::size_t given) const { return more ? given >= count() : given == count(); }
  const Kind& kindOf(std::size_t index) const { return index < count() ? kinds[index] : more; }
};

template <std::same_as<Kind>... All>
constexpr Arguments with(All... kinds) {
  return {{kinds...}, {}};
}
/** These, and then any number of `more`. */
template <std::same_as<Kind>... All>
constexpr Arguments withMany(Kind more, All... kinds) {
  return {{kinds...}, more};
}

/** Time passes as long as the step takes. Throws UsageError, without the step's place, when it cannot be
 * done. */
using StepAction = void (*)(Simulation&, const Step&);

struct StepRow {
  std::string_view name;
  StepAction action;
  Arguments arguments;
  std::string_view help;                 // what happens
  std::string_view duration;             // how much simulated time it takes
  std::optional<Arguments> orElse = {};  // another way of giving the arguments
};

inline std::string_view Step::name() const { return row->name; }

}  // namespace sim
