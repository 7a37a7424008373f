// The grammar of the command line: options of a table, each with its value behind it or behind an equals
// sign.
#include <fmt/format.h>

#include <algorithm>

#include "simulator/app/options.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

using Table = std::span<const OptionRow>;

const OptionRow& rowOf(std::string_view word, Table table) {
  const auto row = std::ranges::find(table, word == "-h" ? "--help" : word, &OptionRow::name);
  if (row == table.end()) throw UsageError(fmt::format("unknown option '{}' (--help shows them)", word));
  return *row;
}

bool mayStandAlone(const OptionRow& row) { return row.value.starts_with('['); }

}  // namespace

std::string usage(const OptionRow& row) {
  return row.value.empty() ? std::string(row.name) : fmt::format("{} {}", row.name, row.value);
}

Options parseOptions(int count, const char* const* arguments, Table table) {
  std::map<const OptionRow*, std::vector<std::string>> given;  // in the table's order
  for (int i = 1; i < count; ++i) {
    const std::string_view word = arguments[i];
    const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
    const OptionRow& row = rowOf(word.substr(0, equals), table);
    if (row.value.empty() && equals != std::string_view::npos)
      throw UsageError(fmt::format("{} takes no value: '{}'", row.name, word));
    if (!row.value.empty() && !row.repeats && given.contains(&row))
      throw UsageError(fmt::format("{} is there twice", row.name));
    std::vector<std::string>& values = given[&row];
    if (row.value.empty())
      values = {""};
    else if (equals != std::string_view::npos)
      values.emplace_back(word.substr(equals + 1));
    else if (mayStandAlone(row) && (i + 1 == count || std::string_view(arguments[i + 1]).starts_with("--")))
      values.emplace_back();
    else if (++i < count && std::ranges::find(table, arguments[i], &OptionRow::name) == table.end())
      values.emplace_back(arguments[i]);
    else
      throw UsageError(fmt::format("{} lacks its value: {}", row.name, usage(row)));
  }
  Options options;
  if (given.contains(&rowOf("--help", table))) {
    options.listing = Listing::help;
    return options;
  }
  options.device = &findDevice("iPhone 7");
  for (const auto& [row, values] : given)
    for (const std::string& value : values) row->take(options, *row, value);
  if (options.ios == Version{}) options.ios = options.device->defaultVersion();
  return options;
}

}  // namespace sim
