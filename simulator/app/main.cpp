// tilo-sim: a phone's or tablet's home screen on the desktop.
#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include "simulator/app/output.hpp"
#include "simulator/app/outside.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/device_list.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/script.hpp"
#include "simulator/json/json.hpp"

namespace {

constexpr int usageStatus = 2;

// Whatever line breaks the culprit brought along.
std::string oneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

void listDevices(const sim::Options& options) {
  std::cout << sim::deviceTable();
  if (options.report) sim::writeText(options.report->string(), sim::deviceJson().dump(2) + "\n");
}

void act(const sim::Options& options) {
  // Files that the script names count from the folder of whoever wrote it, so it comes before the device's.
  std::optional<sim::Script> script;
  if (options.script) script.emplace(options.script->string(), sim::stepTable(), sim::serveUntilInput);
  sim::Simulation simulation(options);
  simulation.start();
  if (script)
    while (auto step = script->next()) {
      sim::perform(simulation, *step);
      sim::serve();
    }
  if (options.snapshot) simulation.snapshot(options.snapshot->string());
  if (options.report) simulation.report(options.report->string());
}

}  // namespace

int main(int count, char** arguments) {
  try {
    sim::Options options = sim::parseOptions(count, arguments);
    if (!options.help.empty()) {
      std::cout << options.help;
    } else if (options.listDevices) {
      listDevices(options);
    } else if (options.listSteps) {
      for (const sim::StepRow& row : sim::stepTable()) std::cout << sim::described(row) << "\n";
    } else {
      act(options);
    }
  } catch (const std::exception& error) {
    std::cerr << "tilo-sim: " << oneLine(error.what()) << "\n";
    return usageStatus;
  }
  return 0;
}
