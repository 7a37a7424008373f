// A simulator's run, from the command line to the last report.
#include "simulator/app/run.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include "simulator/app/output.hpp"
#include "simulator/app/serving.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/device_list.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/script.hpp"
#include "simulator/json/json.hpp"

namespace sim {
namespace {

constexpr int usageStatus = 2;

// Whatever line breaks the culprit brought along.
std::string oneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

// As a line of a Markdown table each, as docs/simulator.md has them.
std::string described(const OptionRow& row) {
  return fmt::format("| `{}` | {} |{}{} |\n", escaped(usage(row)), row.help, row.standard.empty() ? "" : " ",
                     row.standard);
}
std::string described(const ReportRow& row) { return fmt::format("| `{}` | {} |\n", row.key, row.help); }

void print(Listing listing, const Options& options, const Program& program) {
  const auto all = [](const auto& rows) {
    for (const auto& row : rows) std::cout << described(row);
  };
  switch (listing) {
    case Listing::help:
      fmt::print("{} [OPTION]...\n\n", program.name);
      for (const OptionRow& row : program.options)
        fmt::print("{:<32}  {}{}\n", usage(row), row.help,
                   row.standard.empty() ? "" : fmt::format(" (otherwise: {})", row.standard));
      return;
    case Listing::options:
      return all(program.options);
    case Listing::steps:
      return all(program.steps);
    case Listing::report:
      return all(program.report);
    case Listing::devices:
      std::cout << deviceTable();
      if (options.report) writeText(options.report->string(), deviceJson().dump(2) + "\n");
  }
}

void act(const Options& options, const Program& program) {
  // Files that the script names count from the folder of whoever wrote it, so it comes before the device's.
  std::optional<Script> script;
  if (options.script) script.emplace(options.script->string(), program.steps, serveUntilInput);
  Simulation simulation(options, program);
  simulation.start();
  if (script)
    while (auto step = script->next()) {
      perform(simulation, *step);
      serve();
    }
  if (options.snapshot) simulation.snapshot(options.snapshot->string());
  if (options.report) simulation.report(options.report->string());
}

}  // namespace

int run(int count, const char* const* arguments, const Program& program) {
  try {
    const Options options = parseOptions(count, arguments, program.options);
    if (options.listing)
      print(*options.listing, options, program);
    else
      act(options, program);
  } catch (const std::exception& error) {
    std::cerr << program.name << ": " << oneLine(error.what()) << "\n";
    return usageStatus;
  }
  return 0;
}

}  // namespace sim
