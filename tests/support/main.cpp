// Runs the tests of a program, each in a process of its own: a process has one SpringBoard, whose classes
// cannot be taken back. The processes are forked from one that has started already, which is what makes
// thousands cheap.
//
//   PROGRAM [--jobs N] [--counts FILE] [--gtest_filter=…]   all of them, or some
//   PROGRAM --times FILE                    writes how many milliseconds each of them took as well
//   PROGRAM --names FILE                    those that FILE names, a line each, in its order
//   PROGRAM --limit SECONDS                 for one test, in place of 300
//   PROGRAM --gtest_fail_fast               ends with the first that fails
//   PROGRAM --gtest_filter=ONE              one alone runs in this process, as a debugger wants it
//   PROGRAM --list                          their names, a line each
//
// A test finds its own name in TEST_NAME. Each failing test's output is shown whole; the last line counts,
// and FILE gets both numbers. Exit status 1 when one failed, 2 when there was none to run.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Arguments {
  size_t jobs = 0;     // as many as are named; 0 where none are
  size_t limit = 300;  // seconds for one test
  bool list = false;
  const char* names = nullptr;
  const char* counts = nullptr;
  const char* times = nullptr;
};

size_t wholeNumber(char** arguments, int index) {
  std::string_view text = arguments[index];
  size_t number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && end == text.data() + text.size() && number > 0) return number;
  std::fprintf(stderr, "%s: %s takes a whole number above 0, not %s\n", arguments[0], arguments[index - 1],
               arguments[index]);
  std::exit(2);
}

Arguments takeArguments(int count, char** arguments) {
  Arguments taken;
  for (int i = 1; i < count; ++i) {
    std::string_view argument = arguments[i];
    if (argument == "--list") {
      taken.list = true;
    } else if (argument == "--names" && i + 1 < count) {
      taken.names = arguments[++i];
    } else if (argument == "--counts" && i + 1 < count) {
      taken.counts = arguments[++i];
    } else if (argument == "--times" && i + 1 < count) {
      taken.times = arguments[++i];
    } else if (argument == "--jobs" && i + 1 < count) {
      taken.jobs = wholeNumber(arguments, ++i);
    } else if (argument == "--limit" && i + 1 < count) {
      taken.limit = wholeNumber(arguments, ++i);
    } else {
      std::fprintf(stderr, "%s: what is %s?\n", arguments[0], arguments[i]);
      std::exit(2);
    }
  }
  return taken;
}

// One of the patterns of a filter, with * and ?.
bool matches(const char* pattern, const char* end, const char* name) {
  if (pattern == end) return !*name;
  if (*pattern == '*') return matches(pattern + 1, end, name) || (*name && matches(pattern, end, name + 1));
  return *name && (*pattern == '?' || *pattern == *name) && matches(pattern + 1, end, name + 1);
}

bool matchesAny(std::string_view patterns, const std::string& name) {
  while (true) {
    const size_t length = std::min(patterns.find(':'), patterns.size());
    if (matches(patterns.data(), patterns.data() + length, name.c_str())) return true;
    if (length == patterns.size()) return false;
    patterns.remove_prefix(length + 1);
  }
}

// The names that the filter lets through.
std::vector<std::string> chosenTests() {
  const std::string filter = testing::GTEST_FLAG(filter);
  const size_t dash = filter.find('-');
  const std::string wanted = dash == 0 ? "*" : filter.substr(0, dash);
  std::vector<std::string> names;
  const auto& all = *testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const auto& suite = *all.GetTestSuite(i);
    for (int k = 0; k < suite.total_test_count(); ++k) {
      std::string name = std::string(suite.name()) + "." + suite.GetTestInfo(k)->name();
      if (!matchesAny(wanted, name)) continue;
      if (dash != filter.npos && matchesAny(std::string_view(filter).substr(dash + 1), name)) continue;
      names.push_back(std::move(name));
    }
  }
  return names;
}

// Those of the file that there are, and that the filter lets through.
std::vector<std::string> namedTests(const char* file, const std::vector<std::string>& chosen) {
  const std::set<std::string> known(chosen.begin(), chosen.end());
  std::vector<std::string> names;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);)
    if (known.contains(line)) names.push_back(line);
  return names;
}

int runHere(const std::string& name) {
  testing::GTEST_FLAG(filter) = name;
  return RUN_ALL_TESTS();
}

struct Running {
  std::string name;
  int output;
  std::chrono::steady_clock::time_point start;
};

std::string contents(int file) {
  std::string text;
  char buffer[4096];
  lseek(file, 0, SEEK_SET);
  for (ssize_t got; (got = read(file, buffer, sizeof buffer)) > 0;)
    text.append(buffer, static_cast<size_t>(got));
  return text;
}

std::string howItEnded(int status, size_t limit) {
  if (WIFEXITED(status)) return "exit status " + std::to_string(WEXITSTATUS(status));
  if (WTERMSIG(status) == SIGALRM) return "took more than " + std::to_string(limit) + " seconds";
  return std::string("ended by signal ") + strsignal(WTERMSIG(status));
}

class Runner {
 public:
  Runner(std::vector<std::string> tests, const Arguments& arguments)
      : names(std::move(tests)),
        jobs(std::max<size_t>(arguments.jobs, 1)),
        limit(arguments.limit),
        counts(arguments.counts) {
    if (arguments.times) times.open(arguments.times);
  }

  // Exit status.
  int run() {
    for (const std::string& name : names) {
      if (running.size() == jobs) awaitOne();
      if (!failed.empty() && testing::GTEST_FLAG(fail_fast)) break;
      start(name);
    }
    while (!running.empty()) awaitOne();
    showProgress("");
    for (const std::string& name : failed) std::printf("failed: %s\n", name.c_str());
    const size_t passed = done - failed.size();
    std::printf("%zu passed, %zu failed\n", passed, failed.size());
    if (counts && !(std::ofstream(counts) << passed << " " << failed.size() << "\n")) return 2;
    return failed.empty() ? 0 : 1;
  }

 private:
  void start(const std::string& name) {
    const int output = memfd_create("output", MFD_CLOEXEC);
    std::fflush(nullptr);
    const pid_t child = output < 0 ? -1 : fork();
    if (child < 0) {
      std::perror("cannot start a test");
      std::exit(2);
    }
    if (child == 0) {
      dup2(output, STDOUT_FILENO);
      dup2(output, STDERR_FILENO);
      // What standard input holds is for none of the tests, and the output's other handle none of theirs.
      const int nothing = open("/dev/null", O_RDONLY);
      dup2(nothing, STDIN_FILENO);
      close(nothing);
      close(output);
      for (auto& [process, other] : running) close(other.output);
      setenv("TEST_NAME", name.c_str(), 1);
      alarm(static_cast<unsigned>(limit));
      const int status = runHere(name);
      std::fflush(nullptr);
      // Without the destructors of what is static: they would have the process touch, and so copy, all the
      // memory that it shares with the one it was forked from, which takes longer than most tests.
      _exit(status);
    }
    running[child] = {name, output, std::chrono::steady_clock::now()};
  }

  void awaitOne() {
    int status = 0;
    const pid_t child = wait(&status);
    auto found = running.find(child);
    if (found == running.end()) return;
    const Running ended = std::move(found->second);
    running.erase(found);
    ++done;
    if (times.is_open()) {
      const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - ended.start;
      times << took.count() << " " << ended.name << "\n";
    }
    if (status != 0) {
      failed.push_back(ended.name);
      showProgress("");
      std::printf("---- %s: %s\n%s\n", ended.name.c_str(), howItEnded(status, limit).c_str(),
                  contents(ended.output).c_str());
    }
    close(ended.output);
    showProgress(std::to_string(done) + " of " + std::to_string(names.size()));
  }

  // On a terminal alone, and on one line.
  void showProgress(const std::string& text) {
    static const bool isSeen = isatty(STDOUT_FILENO);
    if (!isSeen) return;
    std::printf("\r\033[K%s", text.c_str());
    std::fflush(stdout);
  }

  const std::vector<std::string> names;
  const size_t jobs;
  const size_t limit;
  const char* const counts;
  std::ofstream times;
  std::map<pid_t, Running> running;
  std::vector<std::string> failed;
  size_t done = 0;
};

}  // namespace

// What a program does for all of its tests before the first is forked; some have nothing to do.
__attribute__((weak)) void prepareTests();

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  const Arguments taken = takeArguments(count, arguments);
  std::vector<std::string> names = chosenTests();
  if (taken.names) names = namedTests(taken.names, names);
  if (taken.list) {
    for (const std::string& name : names) std::puts(name.c_str());
    return 0;
  }
  if (names.empty()) {
    std::fprintf(stderr, "%s: no test matches\n", arguments[0]);
    return 2;
  }
  if (names.size() == 1 && taken.jobs == 0) return runHere(names.front());
  if (prepareTests) prepareTests();
  return Runner(std::move(names), taken).run();
}
