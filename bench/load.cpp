// What it costs to load the library, from the program's start to the first layout: SpringBoard alone, with a
// library that does the bare things (bare_load.c), and with ours, in one run: build/tilo-load [ROUNDS]. Each
// has a process of its own in each round, on a device that starts for the first time, then on the same again;
// told are medians of the processor's time.
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <iostream>
#include <string>
#include <vector>

#include "simulator/app/simulation.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/product.hpp"

namespace {

constexpr int usualRounds = 41;

// Of the processor, microseconds: other work on the machine is none of a library's.
double processorTime() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

struct Time {
  double fromStart, fromLoad;  // of the process, of the library
};

Time timeOfStart(std::vector<std::string> options, const std::string& root) {
  // All methods that the library knows are there, so that it installs all.
  options.insert(options.end(), {"--springboard", "complete", "--root", root});
  std::vector<const char*> arguments{"tilo-load"};
  for (const std::string& option : options) arguments.push_back(option.c_str());
  const sim::Program& program = sim::product::program();
  sim::Simulation simulation(
      sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(), program.options), program);
  const double before = processorTime();
  simulation.start();
  const double now = processorTime();
  return {now, now - before};
}

// In a process of its own: there is one home screen in each.
Time timeElsewhere(const std::vector<std::string>& options, const std::string& root) {
  int channel[2];
  if (::pipe(channel) != 0) throw sim::UsageError("no channel to a home screen");
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      const Time time = timeOfStart(options, root);
      if (::write(channel[1], &time, sizeof time) == sizeof time) std::_Exit(0);
    } catch (const std::exception& error) {
      std::cerr << "tilo-load: " << error.what() << "\n";
    }
    std::_Exit(2);
  }
  ::close(channel[1]);
  Time time{};
  const bool told = ::read(channel[0], &time, sizeof time) == sizeof time;
  ::close(channel[0]);
  ::waitpid(child, nullptr, 0);
  if (!told) throw sim::UsageError("a home screen has ended");
  return time;
}

struct Start {
  std::vector<std::string> options;
  std::vector<Time> first, later;

  // The roots stay to the end: a disk that has just removed files takes longer to make some.
  void measure(std::deque<sim::TemporaryRoot>& roots) {
    const std::string root = roots.emplace_back().path();
    first.push_back(timeElsewhere(options, root));
    later.push_back(timeElsewhere(options, root));
  }
};

double median(const std::vector<Time>& times, double Time::* part) {
  std::vector<double> all;
  for (const Time& time : times) all.push_back(time.*part);
  std::ranges::nth_element(all, all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2));
  return all[all.size() / 2];
}

void tell(const char* name, double none, double bare, double ours) {
  std::cout << fmt::format("| {} | {:.0f} | {:.0f} | {:.0f} | {:.2f} | {:.2f} |\n", name, none, bare, ours,
                           ours / bare, (ours - none) / (bare - none));
}

void measure(int rounds) {
  Start none{{"--library", BARE_LABELS}, {}, {}}, bare{{"--library", BARE_LOAD}, {}, {}}, ours{{}, {}, {}};
  std::deque<sim::TemporaryRoot> roots;
  for (int i = 0; i < rounds; ++i)
    for (Start* start : {&none, &bare, &ours}) start->measure(roots);
  std::cout << "| to the first layout, µs | labels | bare | ours | ours / bare | without labels |\n"
               "|---|---|---|---|---|---|\n";
  const auto row = [&](const char* name, std::vector<Time> Start::* which, double Time::* part) {
    tell(name, median(none.*which, part), median(bare.*which, part), median(ours.*which, part));
  };
  row("a first start, from the program's on", &Start::first, &Time::fromStart);
  row("a later one", &Start::later, &Time::fromStart);
  row("a first start, from the library's on", &Start::first, &Time::fromLoad);
  row("a later one", &Start::later, &Time::fromLoad);
}

int roundsIn(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : usualRounds;
  if (count > 2 || rounds < 1) throw sim::UsageError("it takes a number of rounds, 1 or more");
  return rounds;
}

}  // namespace

int main(int count, char** arguments) try {
  measure(roundsIn(count, arguments));
} catch (const std::exception& error) {
  std::cerr << "tilo-load: " << error.what() << "\n";
  return 2;
}
