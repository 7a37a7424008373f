// A process that is killed in the middle of its work.
#pragma once

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace test {

// Runs `work` in a copy of the process and asks at each stop, before and after every system call, whether it
// is to be killed there. Answers whether it was; otherwise it has done the work.
inline bool killWhere(const std::function<bool(int stop)>& isWanted, const std::function<void()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    work();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  for (int stop = 0; WIFSTOPPED(status); ++stop) {
    if (isWanted(stop)) {
      ::kill(child, SIGKILL);
      ::waitpid(child, &status, 0);
      return true;
    }
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
  }
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the work did not come to its end";
  return false;
}

// Kills it at that stop.
inline bool killAtStop(int stop, const std::function<void()>& work) {
  return killWhere([stop](int now) { return now == stop; }, work);
}

// Kills it as soon as what `state` answers, of the disk for one, has changed that often.
template <class State>
bool killAtChange(int changes, State state, const std::function<void()>& work) {
  auto last = state();
  return killWhere(
      [&](int) {
        auto now = state();
        const bool changed = now != last;
        last = std::move(now);
        return changed && --changes == 0;
      },
      work);
}

}  // namespace test
