// A day of use, and what it leaves behind: memory and living objects after each part of it.
//
//   day [--of N] [--device NAME] [--told FILE]
//
// A day has 5,000 panels, 50,000 presses, 200,000 steps of scrolling, 1,000 turns and 500 layouts saved and
// deleted, in a hundred parts. `--of N` takes the Nth part of each amount. Exit status 1 when at the end more
// than 1 % more memory is taken than after the first part, or when some class has more objects than then.
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <thread>

#include "tests/day/use.hpp"

namespace {

using namespace test::day;

constexpr int parts = 100;
constexpr double allowed = 0.01;

struct Left {
  std::size_t bytes;
  std::map<std::string, long> objects;
};

Left measured(test::Home& home) {
  // What was read of the preferences' file is kept once it has not changed for a while.
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  home.report();
  const bridge::Pool pool;
  auto counts = objects();
  return {memory(), std::move(counts)};
}

long sum(const std::map<std::string, long>& objects) {
  long all = 0;
  for (const auto& [name, count] : objects) all += count;
  return all;
}

// A class has more when it has so at the end, by more than one that happens to be on its way.
bool grew(const Left& first, const Left& last) {
  bool more = false;
  for (const auto& [name, count] : last.objects) {
    const auto before = first.objects.find(name);
    const long had = before == first.objects.end() ? 0 : before->second;
    if (count == had) continue;
    fmt::print("  {}: {} after the first part, {} at the end\n", name, had, count);
    more = more || count > had + 1;
  }
  return more;
}

int use(const Amounts& day, int count, const std::string& device, const std::string& told) {
  // Opened first: a home screen works in a folder of its own.
  std::ofstream out;
  if (!told.empty() && (out.open(told), !out)) throw std::runtime_error("cannot write '" + told + "'");
  test::Home home({"--device", device, "--set", "enabled=YES", "--set", "quick=YES", "--set", "labels=YES",
                   "--set", "page=YES", "--set", "custom_preset=-1", "--set", "topIconInset=30"});
  measured(home);
  Left first{}, last{};
  for (int part = 1; part <= count; ++part) {
    usePart(home, day, count);
    last = measured(home);
    if (part == 1) first = last;
    if (out.is_open()) out << part << '\t' << last.bytes << '\t' << sum(last.objects) << std::endl;
  }
  const double more = static_cast<double>(last.bytes) / static_cast<double>(first.bytes) - 1;
  fmt::print("{} panels, {} presses, {} steps of scrolling, {} turns, {} layouts, on {}, in {} parts\n",
             day.panels, day.presses, day.scrolls, day.rotations, day.layouts, device, count);
  fmt::print("memory: {} bytes after the first part, {} at the end, {:+.3f} %\n", first.bytes, last.bytes,
             100 * more);
  fmt::print("objects: {} after the first part, {} at the end\n", sum(first.objects), sum(last.objects));
  return grew(first, last) || more > allowed ? 1 : 0;
}

int run(int count, char** arguments) {
  CLI::App app("A day of use");
  int fraction = 1;
  std::string device = "iPhone 8 Plus", told;
  app.add_option("--of", fraction, "the Nth part of a day")->check(CLI::Range(1, 500));
  app.add_option("--device", device, "the model");
  app.add_option("--told", told, "a file that gets a line for each part: its number, bytes, objects");
  CLI11_PARSE(app, count, arguments);
  const Amounts whole;
  const Amounts day{whole.panels / fraction, whole.presses / fraction, whole.scrolls / fraction,
                    whole.rotations / fraction, whole.layouts / fraction};
  try {
    return use(day, std::max(2, parts / fraction), device, told);
  } catch (const std::exception& error) {
    std::cerr << "day: " << error.what() << '\n';
    return 2;
  }
}

}  // namespace

int main(int count, char** arguments) {
  // The C library counts what it keeps for each thread's next use as taken.
  if (!std::getenv("GLIBC_TUNABLES")) {
    ::setenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=0", 0);
    ::execv("/proc/self/exe", arguments);
  }
  const int status = run(count, arguments);
  std::fflush(stdout);
  // What tests share belongs to a program of tests, and would be taken down as one.
  std::_Exit(status);
}
