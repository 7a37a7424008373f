// --serve, --listen and --watch.
#include "simulator/serve/serving.hpp"

#include <arpa/inet.h>
#include <fmt/format.h>

#include <charconv>

#include "simulator/device/usage_error.hpp"
#include "simulator/serve/calls.hpp"
#include "simulator/serve/console_lines.hpp"
#include "simulator/serve/saved_steps.hpp"
#include "simulator/serve/server.hpp"

namespace sim::serve {
namespace {

void takePort(Options& options, const OptionRow& row, const std::string& text) {
  int port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (!text.empty() && (error != std::errc{} || end != text.data() + text.size() || port < 1 || port > 65535))
    throw UsageError(fmt::format("{}: '{}' is no port, 1 to 65535", row.name, text));
  options.more[row.name] = {std::to_string(port)};
}

void takeAddress(Options& options, const OptionRow& row, const std::string& text) {
  in_addr address{};
  if (::inet_pton(AF_INET, text.c_str(), &address) != 1)
    throw UsageError(fmt::format("{}: '{}' is no IPv4 address", row.name, text));
  keepText(options, row, text);
}

constexpr OptionRow rows[] = {
    {"--serve", "[PORT]",
     "the home screen lives in a browser: the first line on standard output is its address, with a token; "
     "ends with an "
     "interrupt or the page's \"Quit\"",
     "a free port", takePort},
    {"--listen", "ADDRESS", "with `--serve`: the IPv4 address to listen at", "`127.0.0.1`", takeAddress},
    {"--watch", "", "with `--serve`: SpringBoard starts anew when a library's file changes", "", keepText},
};

// Of an option that may stand there once.
const std::string* given(const Options& options, std::string_view name) {
  const auto found = options.more.find(name);
  return found == options.more.end() ? nullptr : &found->second.back();
}

bool serveInstead(const Options& options, const Program& program) {
  const std::string *port = given(options, "--serve"), *address = given(options, "--listen");
  const bool watch = given(options, "--watch") != nullptr;
  if (!port) {
    if (address || watch)
      throw UsageError(fmt::format("{} is for --serve", address ? "--listen" : "--watch"));
    return false;
  }
  if (options.script || options.snapshot || options.report)
    throw UsageError("--serve goes without --script, --snapshot and --report");
  serve(options, program,
        {.address = address ? *address : "127.0.0.1", .port = std::stoi(*port), .watch = watch});
  return true;
}

}  // namespace

void addServing(Program& program) {
  add(program.options, std::span<const OptionRow>(rows));
  add(program.pageMessages, callMessages());
  add(program.pageMessages, consoleMessages());
  add(program.pageMessages, savedStepMessages());
  program.instead = serveInstead;
}

}  // namespace sim::serve
