// Snapshots and reports.
#include "simulator/app/output.hpp"

#include <fstream>
#include <iostream>

#include "simulator/app/report.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace sim {

void writeText(const std::string& file, const std::string& text) {
  if (file == "-") {
    if (!(std::cout << text << std::flush)) throw UsageError("cannot write to standard output");
    return;
  }
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text << std::flush)) throw UsageError("cannot write '" + file + "'");
}

void Simulation::snapshot(const std::string& file) {
  if (file == "-") throw UsageError("a picture cannot go to standard output");
  bridge::Pool pool;
  writePng(uikit::renderScreen(clock::now()).get(), file);
}

void Simulation::report(const std::string& file) { writeText(file, makeReport(*this).dump(2) + "\n"); }

}  // namespace sim
