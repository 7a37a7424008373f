// The grammar of script lines, and the table of steps.
#include "simulator/input/script.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "simulator/device/usage_error.hpp"
#include "simulator/input/step_arguments.hpp"

namespace sim {
namespace {

constexpr std::size_t mostArguments = 6;

// One form of a step. A step with several forms has a row for each.
struct Form {
  std::string_view name;
  StepKind kind;
  std::array<Shape, mostArguments> shapes = {};
  Shape more = Shape::none;  // any number of these may follow

  std::size_t count() const {
    return static_cast<std::size_t>(std::ranges::find(shapes, Shape::none) - shapes.begin());
  }
  bool takes(std::size_t given) const { return more == Shape::none ? given == count() : given >= count(); }
  Shape shapeOf(std::size_t index) const { return index < count() ? shapes[index] : more; }
};

constexpr Form forms[] = {
    {"wait", StepKind::wait, {Shape::seconds}},
    {"swipe", StepKind::swipe, {Shape::direction}},
    {"swipe", StepKind::swipe, {Shape::direction, Shape::coordinate, Shape::coordinate}},
    {"tap", StepKind::tap, {Shape::name}},
    {"tap", StepKind::tap, {Shape::coordinate, Shape::coordinate}},
    {"two-finger-tap", StepKind::twoFingerTap},
    {"two-finger-tap", StepKind::twoFingerTap, {Shape::coordinate, Shape::coordinate}},
    {"press", StepKind::press, {Shape::force}},
    {"press", StepKind::press, {Shape::force, Shape::coordinate, Shape::coordinate}},
    {"drag", StepKind::drag, {Shape::coordinate, Shape::coordinate, Shape::coordinate, Shape::coordinate}},
    {"drag",
     StepKind::drag,
     {Shape::coordinate, Shape::coordinate, Shape::coordinate, Shape::coordinate, Shape::seconds}},
    {"finger", StepKind::finger, {Shape::finger, Shape::phase, Shape::coordinate, Shape::coordinate}},
    {"finger",
     StepKind::finger,
     {Shape::finger, Shape::phase, Shape::coordinate, Shape::coordinate, Shape::force}},
    {"page", StepKind::page, {Shape::page}},
    {"increment", StepKind::increment, {Shape::name}},
    {"increment", StepKind::increment, {Shape::name, Shape::times}},
    {"decrement", StepKind::decrement, {Shape::name}},
    {"decrement", StepKind::decrement, {Shape::name, Shape::times}},
    {"slide", StepKind::slide, {Shape::name, Shape::value}},
    {"type", StepKind::type, {Shape::name, Shape::text}},
    {"paste", StepKind::paste, {Shape::name, Shape::text}},
    {"apply", StepKind::apply, {Shape::name}},
    {"cancel", StepKind::cancel, {Shape::name}},
    {"launch", StepKind::launch, {Shape::name}},
    {"home", StepKind::home},
    {"open", StepKind::open, {Shape::name}},
    {"edit", StepKind::edit},
    {"rotate", StepKind::rotate, {Shape::orientation}},
    {"lock", StepKind::lock},
    {"unlock", StepKind::unlock},
    {"snapshot", StepKind::snapshot, {Shape::file}},
    {"report", StepKind::report, {Shape::file}},
    {"write", StepKind::write, {Shape::setting}},
    {"message", StepKind::message, {Shape::word}, Shape::setting},
    {"pick", StepKind::pick, {Shape::row}},
    {"choose", StepKind::choose, {Shape::name}},
    {"enter", StepKind::enter, {Shape::text}},
    {"call", StepKind::call, {Shape::selector}},
};

std::string usage(const Form& form) {
  std::string text(form.name);
  for (std::size_t index = 0; index < form.count(); ++index)
    text += fmt::format(" {}", description(form.shapes[index]));
  if (form.more != Shape::none) text += fmt::format(" {} ...", description(form.more));
  return text;
}

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v'; }

// Takes what stands in quotes off the front, and the quotes.
std::string takeQuoted(std::string_view& line, const std::string& place) {
  std::string text;
  for (std::size_t index = 1; index < line.size(); ++index) {
    char c = line[index];
    if (c == '"') {
      line.remove_prefix(index + 1);
      return text;
    }
    if (c == '\\') {
      c = ++index < line.size() ? line[index] : '\0';
      if (c != '"' && c != '\\')
        throw UsageError(
            fmt::format("{}: a backslash in quotes stands before \" or \\ only: {}", place, line));
    }
    text += c;
  }
  throw UsageError(fmt::format("{}: no closing quote: {}", place, line));
}

// The words of a line up to its comment. Quotes may begin inside a word, as in key="a value".
std::vector<Token> tokens(std::string_view line, const std::string& place) {
  std::vector<Token> result;
  bool inside = false;
  while (!line.empty() && line.front() != '#') {
    const char c = line.front();
    if (isSpace(c)) {
      inside = false;
      line.remove_prefix(1);
      continue;
    }
    if (!inside) result.push_back({"", c == '"'});
    inside = true;
    if (c == '"') {
      result.back().text += takeQuoted(line, place);
    } else {
      result.back().text += c;
      line.remove_prefix(1);
    }
  }
  return result;
}

// Says what is wrong about arguments that fit no form, by the one that this is most likely meant to be: the
// last.
[[noreturn]] void refuse(const Form& form, std::span<const Token> given, const std::string& place,
                         const std::filesystem::path& folder) {
  for (std::size_t index = 0; !form.takes(index) || index < given.size(); ++index) {
    if (form.shapeOf(index) == Shape::none) break;
    if (index == given.size())
      throw UsageError(fmt::format("{}: '{}' lacks {}", place, form.name, description(form.shapeOf(index))));
    if (!argument(form.shapeOf(index), given[index], folder))
      throw UsageError(fmt::format("{}: '{}' is not what '{}' takes", place, given[index].text, usage(form)));
  }
  throw UsageError(
      fmt::format("{}: '{}' is too much for '{}'", place, given[form.count()].text, usage(form)));
}

}  // namespace

std::optional<Step> parseStep(std::string_view line, const std::string& place,
                              const std::filesystem::path& folder) {
  const std::vector<Token> words = tokens(line, place);
  if (words.empty()) return std::nullopt;
  const std::span<const Token> given(words.begin() + 1, words.end());
  const Form* named = nullptr;
  for (const Form& form : forms) {
    if (words[0].quoted || form.name != words[0].text) continue;
    named = &form;
    if (!form.takes(given.size())) continue;
    Step step{form.kind, {}, place};
    for (std::size_t index = 0; index < given.size(); ++index) {
      std::optional<StepArgument> value = argument(form.shapeOf(index), given[index], folder);
      if (!value) break;
      step.arguments.push_back(std::move(*value));
    }
    if (step.arguments.size() == given.size()) return step;
  }
  if (!named) throw UsageError(fmt::format("{}: unknown step '{}'", place, words[0].text));
  refuse(*named, given, place, folder);
}

}  // namespace sim
