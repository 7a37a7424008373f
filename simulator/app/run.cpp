// A simulator's run, from the command line to the last report.
#include <fmt/format.h>
#include <poll.h>

#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include "simulator/app/output.hpp"
#include "simulator/app/program.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/appsupport/messaging_center.hpp"
#include "simulator/crash/crash.hpp"
#include "simulator/device/device_list.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/script.hpp"
#include "simulator/json/json.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim {
namespace {

constexpr int usageStatus = 2;

// As a line of a Markdown table each, as docs/simulator.md has them.
std::string described(const OptionRow& row) {
  return fmt::format("| `{}` | {} |{}{} |\n", escaped(usage(row)), row.help, row.standard.empty() ? "" : " ",
                     row.standard);
}
std::string described(const ReportRow& row) { return fmt::format("| `{}` | {} |\n", row.key, row.help); }

std::string text(Listing listing, const Program& program) {
  std::string lines;
  const auto all = [&](const auto& rows) {
    for (const auto& row : rows) lines += described(row);
  };
  switch (listing) {
    case Listing::help:
      lines = fmt::format("{} [OPTION]...\n\n", program.name);
      for (const OptionRow& row : program.options)
        lines += fmt::format("{:<32}  {}{}\n", usage(row), row.help,
                             row.standard.empty() ? "" : fmt::format(" (otherwise: {})", row.standard));
      break;
    case Listing::options:
      all(program.options);
      break;
    case Listing::steps:
      all(program.steps);
      break;
    case Listing::report:
      all(program.report);
      break;
    case Listing::devices:
      lines = deviceTable();
  }
  return lines;
}

void print(Listing listing, const Options& options, const Program& program) {
  writeText("-", text(listing, program));
  if (listing == Listing::devices && options.report)
    writeText(options.report->string(), deviceJson().dump(2) + "\n");
}

// Hands over the messages that have arrived, and does what they make due. Time stands still.
void serve() {
  bridge::Pool pool;
  if (appsupport::serveMessages()) settle();
}

// Until there is something to read from the descriptor, or nothing more to come.
void serveUntilInput(int descriptor) {
  for (;;) {
    serve();
    std::vector<pollfd> all = appsupport::messageDescriptors();
    all.push_back({descriptor, POLLIN, 0});
    // A descriptor that cannot be polled is one whose reading does not wait, or tells what is wrong.
    if (::poll(all.data(), all.size(), -1) > 0 && all.back().revents != 0) return serve();
  }
}

void act(const Options& options, const Program& program) {
  // Files that the script names count from the folder of whoever wrote it, so it comes before the device's.
  std::optional<Script> script;
  if (options.script) script.emplace(options.script->string(), program.steps, serveUntilInput);
  crash::tellOfFaults();
  Simulation simulation(options, program);
  if (options.orientation == Orientation::landscape && !options.device->homeScreenTurns)
    std::cerr << program.name << ": --orientation landscape: the home screen of the " << options.device->name
              << " does not turn\n";
  simulation.start();
  const auto companion = program.companion ? program.companion(simulation) : nullptr;
  if (script)
    while (auto step = script->next()) {
      perform(simulation, *step);
      serve();
    }
  if (companion) companion->finish();
  if (options.snapshot) simulation.snapshot(options.snapshot->string());
  if (options.report) simulation.report(options.report->string());
}

}  // namespace

int run(int count, const char* const* arguments, const Program& program) {
  try {
    const Options options = parseOptions(count, arguments, program.options);
    if (options.listing)
      print(*options.listing, options, program);
    else if (!program.instead || !program.instead(options, program))
      act(options, program);
  } catch (const std::exception& error) {
    std::cerr << program.name << ": " << messageLine(error.what()) << "\n";
    return usageStatus;
  }
  return 0;
}

}  // namespace sim
