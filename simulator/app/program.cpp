// The tables of a home screen by itself.
#include "simulator/app/program.hpp"

#include <algorithm>

#include "simulator/app/report.hpp"
#include "simulator/app/steps.hpp"

namespace sim {

void addAfter(std::string_view key, std::vector<ReportRow>& table, std::span<const ReportRow> rows) {
  table.insert(std::ranges::find(table, key, &ReportRow::key) + 1, rows.begin(), rows.end());
}

Program homeScreenProgram() {
  Program program;
  program.name = "home-sim";
  add(program.options, homeScreenOptions());
  for (const StepTable rows : {deviceSteps(), touchSteps(), homeSteps(), alertSteps()})
    add(program.steps, rows);
  add(program.report, homeScreenReport());
  return program;
}

}  // namespace sim
