// Scripts: one step a line, read as it is needed.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sim {

enum class StepKind {
  wait,
  swipe,
  tap,
  twoFingerTap,
  press,
  drag,
  finger,
  page,
  increment,
  decrement,
  slide,
  type,
  paste,
  apply,
  cancel,
  launch,
  home,
  open,
  edit,
  rotate,
  lock,
  unlock,
  snapshot,
  report,
  write,
  message,
  pick,
  choose,
  enter,
  call
};

/** A number in the unit of its step, or a text: a word of the step's vocabulary, a file, a name or
 * "KEY=VALUE". */
using StepArgument = std::variant<double, std::string>;

struct Step {
  StepKind kind;
  std::vector<StepArgument> arguments;  // as many as the step has, of the right kinds
  std::string place;                    // "FILE:LINE", for errors

  double number(std::size_t index) const { return std::get<double>(arguments.at(index)); }
  const std::string& text(std::size_t index) const { return std::get<std::string>(arguments.at(index)); }
};

/**
 * The step on one line; none on an empty line or one that holds a comment only. A relative file counts from
 * `folder`;
 * "-" stays as it is. Throws UsageError, beginning with the place, for anything else.
 */
std::optional<Step> parseStep(std::string_view line, const std::string& place,
                              const std::filesystem::path& folder);

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
  explicit Script(const std::string& file, Waiter waiter = {});
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  /** The next step, none at the end. Throws UsageError when a line is wrong or cannot be read. */
  std::optional<Step> next();

 private:
  std::optional<std::string> nextLine();

  std::string name;  // for errors
  std::filesystem::path folder;
  Waiter waiter;
  int descriptor;
  int lineNumber = 0;
  bool atEnd = false;
  std::string unread;
};

}  // namespace sim
