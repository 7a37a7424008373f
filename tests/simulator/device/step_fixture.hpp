// A line of a script as a test reads it: the step that it is, or what is wrong with it.
#pragma once

#include <string>
#include <string_view>

#include "simulator/device/usage_error.hpp"
#include "simulator/input/script.hpp"
#include "simulator/product/product.hpp"

namespace sim {

inline Step parse(std::string_view line) {
  return parseStep(line, "file:7", "/base", product::program().steps).value();
}

inline std::string errorOf(std::string_view line) {
  try {
    parse(line);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace sim
