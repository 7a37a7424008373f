// What the simulator knows of the library that it is made for, as rows of the tables that its command line,
// scripts and reports follow.
#pragma once

#include <span>

#include "simulator/app/program.hpp"

namespace sim::product {

/** A home screen with the library: tilo-sim. */
const Program& program();

std::span<const OptionRow> startFileOptions();

StepTable panelSteps();
StepTable rowSteps();
StepTable settingsSteps();
StepTable settingStep();
StepTable paneSteps();

std::span<const PageMessage> settingsMessages();
std::span<const PageMessage> fileMessages();

std::span<const ReportRow> hooksKeys();
std::span<const ReportRow> framingKeys();
std::span<const ReportRow> panelKeys();
std::span<const ReportRow> hudKeys();
std::span<const ReportRow> filesKeys();

}  // namespace sim::product
