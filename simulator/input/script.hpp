// Scripts: one step a line, read as it is needed.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/input/step.hpp"

namespace sim {

/** The steps that there are; it outlives the steps that are read. */
using StepTable = std::span<const StepRow>;

/**
 * The step on one line; none on an empty line or one that holds a comment only. A relative file counts from
 * `folder`;
 * "-" stays as it is. Throws UsageError, beginning with the place, for anything else.
 */
std::optional<Step> parseStep(std::string_view line, const std::string& place,
                              const std::filesystem::path& folder, StepTable table);

/** For a column of a Markdown table, which bars separate. */
std::string escaped(std::string text);
/** A row as a line of a Markdown table: how the step is written, what happens, how long it takes. */
std::string described(const StepRow& row);

/** The steps of a file or of standard input. A line is read no sooner than the step before it has been handed
 * out. */
class Script {
 public:
  /** Called with the descriptor before the script reads from it, so that others can be served until there is
   * input. */
  using Waiter = std::function<void(int descriptor)>;

  /**
   * "-" is standard input. Relative files in steps count from the working folder of this moment. Throws
   * UsageError when the file cannot be opened.
   */
  Script(const std::string& file, StepTable table, Waiter waiter = {});
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  /** The next step, none at the end. Throws UsageError when a line is wrong or cannot be read. */
  std::optional<Step> next();

 private:
  std::optional<std::string> nextLine();

  std::string name;  // for errors
  std::filesystem::path folder;
  StepTable table;
  Waiter waiter;
  int descriptor;
  int lineNumber = 0;
  bool atEnd = false;
  std::string unread;
};

}  // namespace sim
