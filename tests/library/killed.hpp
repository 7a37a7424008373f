// A process that is killed in the middle of its work.
#pragma once

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace test {

// Runs `work` in a copy of the process and kills it at that stop, before or after a system call. Answers
// whether it came so far; otherwise it has done the work.
inline bool killAtStop(int stop, const std::function<void()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    work();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  for (int stops = 0; WIFSTOPPED(status); ++stops) {
    if (stops == stop) {
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

}  // namespace test
