// What a simulator is beside the machinery of its home screen: tables that its command line, scripts and
// reports follow, and the library that it loads. Whoever knows a library adds to those of the home screen
// alone.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "simulator/app/options.hpp"
#include "simulator/input/script.hpp"
#include "simulator/json/json.hpp"

namespace sim {

class Simulation;

/** A key of the report; without a value, a part of the one before that is worth a line of its own. */
struct ReportRow {
  std::string_view key;
  Json (*value)(Simulation&);
  std::string_view help;
};

/** What a page may ask of a home screen beside steps and the report. */
struct PageMessage {
  std::string_view type;
  /** Throws UsageError or JsonError for what is wrong with the message. */
  Json (*answer)(Simulation&, const Json& message);
};

/** Sees the home screen through its steps. */
struct Companion {
  virtual ~Companion() = default;
  /** The last step has been done. */
  virtual void finish() = 0;
};

struct Program {
  std::string name;  // its messages begin with it
  std::vector<OptionRow> options;
  std::vector<StepRow> steps;
  std::vector<ReportRow> report;  // in the order of the keys
  std::vector<PageMessage> pageMessages;
  // Files beside the program: what is loaded unless the options say otherwise, none when empty, and its
  // resources.
  std::string library, bundle;
  std::string installedAs;  // the library's name in the loader's folder; its own when empty
  /** Puts what else the options ask for into the device's files, before anything is loaded. */
  void (*prepare)(Simulation&) = nullptr;
  /** Runs in place of a script and what follows it, where the options ask for that: answers whether they do.
   */
  bool (*instead)(const Options&, const Program&) = nullptr;
  /** Goes along from the start of the home screen on; null where the options ask for none. */
  std::unique_ptr<Companion> (*companion)(Simulation&) = nullptr;
};

/** A home screen with any library or none. */
Program homeScreenProgram();

/** What `main` does: its arguments, and the status that the process ends with. */
int run(int count, const char* const* arguments, const Program& program);

// What else a program is to have.
template <class Row>
void add(std::vector<Row>& table, std::span<const std::type_identity_t<Row>> rows) {
  table.insert(table.end(), rows.begin(), rows.end());
}
/** Behind the row of that key; throws std::logic_error when there is none. */
void addAfter(std::string_view key, std::vector<ReportRow>& table, std::span<const ReportRow> rows);

}  // namespace sim
