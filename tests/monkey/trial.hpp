// A run of the monkey, in a process of its own: one SpringBoard lives in it, and may end it.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simulator/json/json.hpp"

namespace test::monkey {

struct Setup {
  std::vector<std::string> options;        // of tilo-sim
  std::map<std::string, sim::Json> stock;  // reports without the library, by orientation
  bool watched = false;                    // the report is looked at after each step
};

struct Trial {
  std::vector<std::string> steps;  // that could be done; the last is the one after which something was wrong
  std::vector<std::string> seen;  // after each step, where that was wanted: a sum of all that the report says
  std::optional<std::string> failure;  // a word, a colon and the particulars; none when all went well
};

/** Runs steps as a hand of that seed chooses them. */
Trial play(const Setup& setup, uint64_t seed, int steps);

/** Runs these steps; those that cannot be done are left out. */
Trial replay(const Setup& setup, const std::vector<std::string>& steps);

/** The fewest steps found, by leaving some out, that fail in the same way. */
std::vector<std::string> shrunk(const Setup& setup, const Trial& failed);

}  // namespace test::monkey
