// A home screen in the test's process, with the slice that ships in it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bridge/runtime.hpp"
#include "simulator/app/options.hpp"
#include "simulator/app/report.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/product/product.hpp"

namespace test {

inline const std::string shipped = BUILT "/Tilo.dylib";

class HomeScreen {
 public:
  explicit HomeScreen(std::vector<const char*> options = {}) {
    options.insert(options.begin(), {"tilo-sim", "--library", shipped.c_str()});
    const sim::Program& program = sim::product::program();
    simulation.emplace(sim::parseOptions(static_cast<int>(options.size()), options.data(), program.options),
                       program);
    simulation->start();
  }

  sim::Json report() { return sim::makeReport(*simulation); }
  void* library() const { return simulation->libraries().front(); }

 private:
  const bridge::Pool pool;
  std::optional<sim::Simulation> simulation;
};

}  // namespace test
