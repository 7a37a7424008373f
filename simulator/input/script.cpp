// The grammar of script lines.
#include "simulator/input/script.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <utility>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

std::string usage(std::string_view name, const Arguments& form) {
  std::string text(name);
  for (std::size_t index = 0; index < form.count(); ++index)
    text += fmt::format(" {}", form.kinds[index].shown);
  if (form.more) text += fmt::format(" {} ...", form.more.shown);
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
[[noreturn]] void refuse(const StepRow& row, std::span<const Token> given, const std::string& place,
                         const std::filesystem::path& folder) {
  const Arguments& form = row.orElse ? *row.orElse : row.arguments;
  for (std::size_t index = 0; !form.takes(index) || index < given.size(); ++index) {
    const Kind& kind = form.kindOf(index);
    if (!kind) break;
    if (index == given.size())
      throw UsageError(fmt::format("{}: '{}' lacks {}", place, row.name, kind.shown));
    if (!kind.read(kind, given[index], folder))
      throw UsageError(
          fmt::format("{}: '{}' is not what '{}' takes", place, given[index].text, usage(row.name, form)));
  }
  throw UsageError(
      fmt::format("{}: '{}' is too much for '{}'", place, given[form.count()].text, usage(row.name, form)));
}

// The arguments, if these are they.
std::optional<std::vector<StepArgument>> taken(const Arguments& form, std::span<const Token> given,
                                               const std::filesystem::path& folder) {
  if (!form.takes(given.size())) return std::nullopt;
  std::vector<StepArgument> values;
  for (std::size_t index = 0; index < given.size(); ++index) {
    const Kind& kind = form.kindOf(index);
    std::optional<StepArgument> value = kind.read(kind, given[index], folder);
    if (!value) return std::nullopt;
    values.push_back(std::move(*value));
  }
  return values;
}

}  // namespace

std::size_t Arguments::count() const {
  return static_cast<std::size_t>(std::ranges::find_if_not(kinds, &Kind::operator bool) - kinds.begin());
}

std::optional<Step> parseStep(std::string_view line, const std::string& place,
                              const std::filesystem::path& folder, StepTable table) {
  const std::vector<Token> words = tokens(line, place);
  if (words.empty()) return std::nullopt;
  for (const Token& word : words)
    if (!isText(word.text)) throw UsageError(fmt::format("{}: '{}' is not text in UTF-8", place, word.text));
  const auto row = std::ranges::find(table, words[0].text, &StepRow::name);
  if (words[0].quoted || row == table.end())
    throw UsageError(fmt::format("{}: unknown step '{}'", place, words[0].text));
  const std::span<const Token> given(words.begin() + 1, words.end());
  auto arguments = taken(row->arguments, given, folder);
  if (!arguments && row->orElse) arguments = taken(*row->orElse, given, folder);
  if (!arguments) refuse(*row, given, place, folder);
  return Step{&*row, std::move(*arguments), place};
}

std::string escaped(std::string text) {
  for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos; at += 2) text.insert(at, 1, '\\');
  return text;
}

std::string described(const StepRow& row) {
  std::string ways = "`" + usage(row.name, row.arguments) + "`";
  if (row.orElse) ways += ", `" + usage(row.name, *row.orElse) + "`";
  return fmt::format("| {} | {} | {} |\n", escaped(ways), row.help, row.duration);
}

}  // namespace sim
