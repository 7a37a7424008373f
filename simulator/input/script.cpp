// The grammar of script lines, and the table of steps.
#include "simulator/input/script.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <span>
#include <utility>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

struct Token {
  std::string text;
  bool quoted;
};

// What an argument may be; none where a form of a step has fewer arguments than there is room for.
enum class Shape { none, seconds, orientation, file };

constexpr std::size_t mostArguments = 6;

// One form of a step. A step with several forms has a row for each.
struct Form {
  std::string_view name;
  StepKind kind;
  std::array<Shape, mostArguments> shapes = {};

  std::size_t count() const {
    return static_cast<std::size_t>(std::ranges::find(shapes, Shape::none) - shapes.begin());
  }
};

constexpr Form forms[] = {
    {"wait", StepKind::wait, {Shape::seconds}},
    {"rotate", StepKind::rotate, {Shape::orientation}},
    {"lock", StepKind::lock},
    {"unlock", StepKind::unlock},
    {"snapshot", StepKind::snapshot, {Shape::file}},
    {"report", StepKind::report, {Shape::file}},
};

constexpr double longestWait = 1e6;  // seconds: eleven days, far more than a script can mean

std::string_view description(Shape shape) {
  switch (shape) {
    case Shape::seconds:
      return "SECONDS";
    case Shape::orientation:
      return "portrait|landscape";
    case Shape::file:
      return "FILE";
    case Shape::none:
      break;
  }
  return "";
}

std::string usage(const Form& form) {
  std::string text(form.name);
  for (std::size_t index = 0; index < form.count(); ++index)
    text += fmt::format(" {}", description(form.shapes[index]));
  return text;
}

std::optional<double> finiteNumber(const Token& token) {
  double value = 0;
  const char* const end = token.text.data() + token.text.size();
  const auto [stop, error] = std::from_chars(token.text.data(), end, value);
  if (token.quoted || error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

// The argument that a token is; none when it has not that shape.
std::optional<StepArgument> argument(Shape shape, const Token& token, const std::filesystem::path& folder) {
  switch (shape) {
    case Shape::seconds: {
      const std::optional<double> value = finiteNumber(token);
      if (!value || *value < 0 || *value > longestWait) return std::nullopt;
      return *value;
    }
    case Shape::orientation:
      if (token.quoted || (token.text != "portrait" && token.text != "landscape")) return std::nullopt;
      return token.text;
    case Shape::file:
      if (token.text.empty()) return std::nullopt;
      return token.text == "-" ? token.text : (folder / token.text).string();
    case Shape::none:
      break;
  }
  return std::nullopt;
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
  for (std::size_t index = 0; index < form.count(); ++index) {
    if (index == given.size())
      throw UsageError(fmt::format("{}: '{}' lacks {}", place, form.name, description(form.shapes[index])));
    if (!argument(form.shapes[index], given[index], folder))
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
    if (form.count() != given.size()) continue;
    Step step{form.kind, {}, place};
    for (std::size_t index = 0; index < given.size(); ++index) {
      std::optional<StepArgument> value = argument(form.shapes[index], given[index], folder);
      if (!value) break;
      step.arguments.push_back(std::move(*value));
    }
    if (step.arguments.size() == given.size()) return step;
  }
  if (!named) throw UsageError(fmt::format("{}: unknown step '{}'", place, words[0].text));
  refuse(*named, given, place, folder);
}

Script::Script(const std::string& file, Waiter whileWaiting)
    : name(file == "-" ? "<stdin>" : file),
      folder(std::filesystem::current_path()),
      waiter(std::move(whileWaiting)),
      descriptor(file == "-" ? STDIN_FILENO : ::open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor < 0) throw UsageError(fmt::format("{}: {}", name, std::strerror(errno)));
}

Script::~Script() {
  if (descriptor != STDIN_FILENO) ::close(descriptor);
}

std::optional<Step> Script::next() {
  while (const std::optional<std::string> line = nextLine()) {
    ++lineNumber;
    if (std::optional<Step> step = parseStep(*line, fmt::format("{}:{}", name, lineNumber), folder))
      return step;
  }
  return std::nullopt;
}

// Without its newline. What is left after the last newline is a line too.
std::optional<std::string> Script::nextLine() {
  for (;;) {
    if (const std::size_t end = unread.find('\n'); end != std::string::npos) {
      std::string line = unread.substr(0, end);
      unread.erase(0, end + 1);
      return line;
    }
    if (atEnd) {
      if (unread.empty()) return std::nullopt;
      return std::exchange(unread, {});
    }
    if (waiter) waiter(descriptor);
    char buffer[4096];
    const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw UsageError(fmt::format("{}: {}", name, std::strerror(errno)));
    atEnd = count == 0;
    unread.append(buffer, static_cast<std::size_t>(count));
  }
}

}  // namespace sim
