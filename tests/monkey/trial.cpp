// The process of a trial tells its parent over a pipe, a line each: "do STEP" before a step, "left" when it
// could not be done, "saw SUM" of the report behind it, "wrong WHAT" when a promise is broken.
#include "tests/monkey/trial.hpp"

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <thread>

#include "simulator/device/usage_error.hpp"
#include "tests/monkey/hand.hpp"
#include "tests/monkey/promises.hpp"

namespace test::monkey {
namespace {

// The next step, given a home screen; none at the end.
using Source = std::function<std::optional<std::string>(Home&)>;

void say(int channel, const std::string& line) {
  const std::string whole = line + "\n";
  if (::write(channel, whole.data(), whole.size()) < 0) ::_exit(4);
}

// The same on every processor, other than the standard library's.
uint64_t sumOf(std::string_view text) {
  uint64_t sum = 0xcbf29ce484222325;
  for (const char letter : text) sum = (sum ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
  return sum;
}

void live(const Setup& setup, const Source& source, int channel) {
  Home home(setup.options);
  Promises promises(home, setup.stock);
  while (const std::optional<std::string> step = source(home)) {
    say(channel, "do " + *step);
    try {
      home.step(*step);
    } catch (const sim::UsageError&) {
      say(channel, "left");
      continue;
    }
    if (setup.watched) say(channel, fmt::format("saw {:016x}", sumOf(home.report().dump())));
    if (const auto wrong = promises.broken(*step)) return say(channel, "wrong " + *wrong);
  }
  say(channel, "end");
}

std::string all(int descriptor) {
  std::string text;
  std::array<char, 4096> buffer;
  for (ssize_t count; (count = ::read(descriptor, buffer.data(), buffer.size())) > 0;)
    text.append(buffer.data(), static_cast<size_t>(count));
  ::close(descriptor);
  return text;
}

// What a process that did not come to its end had to say: the sanitizer's finding, or its last line.
std::string lastWords(const std::string& errors) {
  for (const char* mark : {"ERROR: AddressSanitizer: ", "runtime error: "})
    if (const size_t at = errors.find(mark); at != std::string::npos)
      return errors.substr(at, errors.find('\n', at) - at);
  const size_t end = errors.find_last_not_of('\n'), start = errors.rfind('\n', end);
  return end == std::string::npos ? "" : errors.substr(start + 1, end - start);
}

Trial outcome(const std::string& told, const std::string& errors, int status) {
  Trial trial;
  bool ended = false;
  for (size_t from = 0, to; (to = told.find('\n', from)) != std::string::npos; from = to + 1) {
    const std::string line = told.substr(from, to - from);
    if (line.starts_with("do ")) trial.steps.push_back(line.substr(3));
    if (line == "left") trial.steps.pop_back();
    if (line.starts_with("saw ")) trial.seen.push_back(line.substr(4));
    if (line.starts_with("wrong ")) trial.failure = line.substr(6);
    ended = line == "end" || trial.failure;
  }
  if (!ended) {
    const std::string how =
        WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : fmt::format("exit {}", WEXITSTATUS(status));
    trial.failure = fmt::format("ended: {}, {}", how, lastWords(errors));
  }
  return trial;
}

Trial run(const Setup& setup, const Source& source) {
  int channel[2], errors[2];
  if (::pipe(channel) != 0 || ::pipe(errors) != 0) throw std::runtime_error("there is no pipe left");
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(errors[1], STDERR_FILENO);
    for (int end : {channel[0], errors[0], errors[1]}) ::close(end);
    live(setup, source, channel[1]);
    ::_exit(0);
  }
  ::close(channel[1]);
  ::close(errors[1]);
  std::string words;
  const std::string told = [&] {
    // Both are read to their ends; what one says must not wait for the other.
    std::string text;
    std::thread other([&] { words = all(errors[0]); });
    text = all(channel[0]);
    other.join();
    return text;
  }();
  int status = 0;
  ::waitpid(child, &status, 0);
  return outcome(told, words, status);
}

std::string kindOf(const std::string& failure) { return failure.substr(0, failure.find(':')); }

}  // namespace

Trial play(const Setup& setup, uint64_t seed, int steps) {
  Hand hand(seed);
  return run(setup, [&](Home& home) -> std::optional<std::string> {
    if (steps-- == 0) return std::nullopt;
    return hand.next(home);
  });
}

Trial replay(const Setup& setup, const std::vector<std::string>& steps) {
  size_t next = 0;
  return run(setup, [&](Home&) -> std::optional<std::string> {
    if (next == steps.size()) return std::nullopt;
    return steps[next++];
  });
}

std::vector<std::string> shrunk(const Setup& setup, const Trial& failed) {
  std::vector<std::string> steps = failed.steps;
  // These steps, if they fail alike.
  const auto takes = [&](const std::vector<std::string>& fewer) {
    const Trial trial = replay(setup, fewer);
    const bool failsAlike = trial.failure && kindOf(*trial.failure) == kindOf(*failed.failure);
    if (failsAlike) steps = trial.steps;
    return failsAlike;
  };
  // Most often the last ones are enough, and a long walk is not repeated for them.
  for (size_t last = 4; last < steps.size(); last *= 4)
    if (takes({steps.end() - static_cast<long>(last), steps.end()})) break;
  for (size_t size = std::max<size_t>(steps.size() / 2, 1);; size /= 2) {
    for (size_t from = 0; from < steps.size();) {
      std::vector<std::string> fewer = steps;
      const auto begin = fewer.begin() + static_cast<long>(from);
      fewer.erase(begin, begin + static_cast<long>(std::min(size, steps.size() - from)));
      if (!takes(fewer)) from += size;
    }
    if (size == 1) return steps;
  }
}

}  // namespace test::monkey
