// Random use of home screens, step by step, with promises that hold after each: what a person who presses
// everything would find.
//
//   monkey --steps N --seed S [--device NAME]... [--library FILE]... [--told FILE]
//
// A failure is repeated with fewer and fewer steps, until none can be left out, and told as a script that
// tilo-sim runs. Exit status 1 when something was wrong, 2 for a command line that makes no sense.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "simulator/device/catalogue.hpp"
#include "tests/monkey/trial.hpp"
#include "tests/support/home.hpp"

namespace {

using test::monkey::Setup;
using test::monkey::Trial;

// "iPhone 7" or "iPhone 7, 10.3.3".
std::vector<std::string> optionsOf(const std::string& phone, const std::vector<std::string>& libraries) {
  const size_t comma = phone.rfind(", ");
  sim::findDevice(phone.substr(0, comma));  // or throws
  std::vector<std::string> options{"--device", phone.substr(0, comma)};
  if (comma != std::string::npos) options.insert(options.end(), {"--ios", phone.substr(comma + 2)});
  for (const char* setting : {"enabled=YES", "quick=YES", "labels=YES", "page=YES", "custom_preset=-1"})
    options.insert(options.end(), {"--set", setting});
  for (const std::string& library : libraries) options.insert(options.end(), {"--library", library});
  return options;
}

sim::Json stockReport(const std::vector<std::string>& options, const char* orientation) {
  // Of the options only the model and its system.
  std::vector<std::string> stock(options.begin(), options.begin() + (options[2] == "--ios" ? 4 : 2));
  stock.insert(stock.end(), {"--stock", "--orientation", orientation, "--report", "-"});
  const test::Run run = test::runSimulator(stock);
  if (run.status != 0) throw std::runtime_error(run.errors);
  return sim::Json::read(run.output).value();
}

void show(const std::string& phone, const Setup& setup, uint64_t seed, const Trial& trial) {
  fmt::print("{}, seed {}: {}\n", phone, seed, *trial.failure);
  std::fflush(stdout);
  const std::vector<std::string> steps = shrunk(setup, trial);
  fmt::print("{} steps, of which these are enough, with", trial.steps.size());
  for (const std::string& option : setup.options)
    fmt::print(" {}", option.contains(' ') ? '"' + option + '"' : option);
  fmt::print(":\n");
  for (const std::string& step : steps) fmt::print("  {}\n", step);
}

// A line a step, so that two runs can be laid side by side.
void tell(const std::string& file, const std::string& phone, const Trial& trial) {
  if (file.empty()) return;
  std::ofstream out(file, std::ios::app);
  for (size_t i = 0; i < trial.seen.size(); ++i)
    out << phone << '\t' << i << '\t' << trial.seen[i] << '\t' << trial.steps[i] << '\n';
  if (!out.flush()) throw std::runtime_error("cannot write '" + file + "'");
}

bool isWellUsed(const std::string& phone, const std::vector<std::string>& libraries, uint64_t seed, int steps,
                const std::string& told) {
  Setup setup{.options = optionsOf(phone, libraries), .stock = {}, .watched = !told.empty()};
  for (const char* orientation : {"portrait", "landscape"})
    setup.stock[orientation] = stockReport(setup.options, orientation);
  const Trial trial = play(setup, seed, steps);
  tell(told, phone, trial);
  if (trial.failure) {
    show(phone, setup, seed, trial);
    return false;
  }
  fmt::print("{}, seed {}: {} of {} steps could be done, nothing wrong\n", phone, seed, trial.steps.size(),
             steps);
  std::fflush(stdout);
  return true;
}

int run(int count, char** arguments) {
  CLI::App app("Random use of home screens");
  int steps = 1000;
  uint64_t seed = 1;
  std::vector<std::string> phones{"iPhone 5s, 9.3.3", "iPhone 7, 10.2",  "iPhone 8 Plus, 11.4",
                                  "iPhone X, 12.1",   "iPad Air 2, 9.2", "iPad Pro (12.9-inch), 11.1"};
  std::vector<std::string> libraries;
  std::string told;
  app.add_option("--steps", steps, "on each device")->check(CLI::PositiveNumber);
  app.add_option("--seed", seed, "another one, other steps");
  app.add_option("--device", phones, "a model, and after a comma its system; may repeat");
  app.add_option("--library", libraries, "in place of the library; may repeat");
  app.add_option("--told", told, "a file that gets a line for each step: a sum of the report, and the step");
  CLI11_PARSE(app, count, arguments);
  try {
    bool good = true;
    for (const std::string& phone : phones) good = isWellUsed(phone, libraries, seed, steps, told) && good;
    return good ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "monkey: " << error.what() << '\n';
    return 2;
  }
}

}  // namespace

int main(int count, char** arguments) {
  const int status = run(count, arguments);
  std::fflush(stdout);
  // What tests share belongs to a program of tests, and would be taken down as one.
  std::_Exit(status);
}
