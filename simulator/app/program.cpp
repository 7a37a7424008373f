// The tables of a home screen by itself.
#include "simulator/app/program.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "simulator/app/inspector.hpp"
#include "simulator/app/report.hpp"
#include "simulator/app/steps.hpp"

namespace sim {

void addAfter(std::string_view key, std::vector<ReportRow>& table, std::span<const ReportRow> rows) {
  const auto before = std::ranges::find(table, key, &ReportRow::key);
  if (before == table.end()) throw std::logic_error(fmt::format("the report has no '{}'", key));
  table.insert(before + 1, rows.begin(), rows.end());
}

Program homeScreenProgram() {
  Program program;
  program.name = "home-sim";
  add(program.options, homeScreenOptions());
  for (const StepTable rows :
       {deviceSteps(), touchSteps(), homeSteps(), alertSteps(), keySteps(), objectSteps()})
    add(program.steps, rows);
  add(program.report, homeScreenReport());
  add(program.pageMessages, inspectorMessages());
  return program;
}

}  // namespace sim
