// What a simulator is beside the machinery of its home screen: tables that its scripts and reports follow,
// and the library that it loads. Whoever knows a library adds to those of the home screen alone.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/input/script.hpp"
#include "simulator/json/json.hpp"

namespace sim {

class Simulation;

/** A key of the report. */
struct ReportRow {
  std::string_view key;
  Json (*value)(Simulation&);
};

struct Program {
  std::string name;  // its messages begin with it
  std::vector<StepRow> steps;
  std::vector<ReportRow> report;  // in the order of the keys
  // Files beside the program: what is loaded unless the options say otherwise, none when empty, and its
  // resources.
  std::string library, bundle;
  std::string installedAs;  // the library's name in the loader's folder; its own when empty
  /** Puts what else the options ask for into the device's files, before anything is loaded. */
  void (*prepare)(Simulation&) = nullptr;
};

/** A home screen with any library or none. */
Program homeScreenProgram();

// What else a program's scripts and report are to have.
void add(std::vector<StepRow>& table, StepTable rows);
/** The key is there. */
void addAfter(std::string_view key, std::vector<ReportRow>& table, std::initializer_list<ReportRow> rows);

}  // namespace sim
