// The tables of a home screen by itself.
#include "simulator/app/program.hpp"

#include <algorithm>

#include "simulator/app/report.hpp"
#include "simulator/app/steps.hpp"

namespace sim {

void add(std::vector<StepRow>& table, StepTable rows) { table.insert(table.end(), rows.begin(), rows.end()); }

void addAfter(std::string_view key, std::vector<ReportRow>& table, std::initializer_list<ReportRow> rows) {
  table.insert(std::ranges::find(table, key, &ReportRow::key) + 1, rows);
}

Program homeScreenProgram() {
  Program program;
  program.name = "home-sim";
  for (const StepTable rows : {deviceSteps(), touchSteps(), homeSteps(), alertSteps()})
    add(program.steps, rows);
  const auto keys = homeScreenReport();
  program.report.assign(keys.begin(), keys.end());
  return program;
}

}  // namespace sim
