// Handlers for signals and for exceptions. They allocate and read files, which a signal's handler had better
// not: the process is lost anyhow, and the worst that can happen is that it says less.
#include "simulator/crash/crash.hpp"

#include <dlfcn.h>
#include <execinfo.h>
#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <span>

#include "bridge/runtime.hpp"
#include "simulator/crash/trace.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/runtime/uncaught.hpp"

namespace sim::crash {
namespace {

constexpr int signals[]{SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGFPE, SIGABRT};
constexpr unsigned patience = 10;  // seconds, where the fault holds what telling of it needs
constexpr std::size_t mostFrames = 48;

// Where calls will go on, the innermost first.
struct Trail {
  std::array<void*, mostFrames> addresses;
  std::size_t count = 0, first = 0;

  // From the function that goes on at `place` outwards.
  void take(void* place) {
    count = static_cast<std::size_t>(::backtrace(addresses.data(), mostFrames));
    const auto end = addresses.begin() + static_cast<std::ptrdiff_t>(count);
    const auto found = std::find(addresses.begin(), end, place);
    first = found == end ? 0 : static_cast<std::size_t>(found - addresses.begin());
  }
  std::span<void* const> from(std::size_t skipped) const {
    return std::span(addresses).subspan(std::min(first + skipped, count),
                                        count - std::min(first + skipped, count));
  }
};

// Where this thread raised an exception last.
thread_local Trail raisedAt;

// A handler goes on in what the system has put between it and the place that was interrupted.
void tellOfSignal(int signal, siginfo_t* what, void*) {
  for (const int each : signals) ::signal(each, SIG_DFL);
  ::signal(SIGALRM, SIG_DFL);
  ::alarm(patience);
  Trail trail;
  trail.take(__builtin_return_address(0));
  if (signal == SIGSEGV || signal == SIGBUS)
    std::fprintf(stderr, "%s at the address %p\n", ::sigdescr_np(signal), what->si_addr);
  else if (signal != SIGABRT)  // whoever aborts has said why
    std::fprintf(stderr, "%s\n", ::sigdescr_np(signal));
  std::fputs(described(trail.from(1), true).c_str(), stderr);
  std::fflush(stderr);
  ::raise(signal);
}

void tellOfException() { std::fputs(described(raisedAt.from(0), false).c_str(), stderr); }

}  // namespace

void tellOfFaults() {
  whenUncaught(tellOfException);
  // A stack of its own: what is told when the other has come to its end.
  static std::array<char, 1 << 18> stack;
  const stack_t own{.ss_sp = stack.data(), .ss_flags = 0, .ss_size = stack.size()};
  ::sigaltstack(&own, nullptr);
  struct sigaction action{};
  action.sa_sigaction = tellOfSignal;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  for (const int each : signals) ::sigaction(each, &action, nullptr);
}

}  // namespace sim::crash

// Stands before the class runtime's own, which it goes on to: when nobody catches an exception, its place may
// be left already.
SIMULATOR_EXPORT [[noreturn]] void objc_exception_throw(id exception) {
  static const auto raise = reinterpret_cast<void (*)(id)>(::dlsym(RTLD_NEXT, "objc_exception_throw"));
  sim::crash::raisedAt.take(__builtin_return_address(0));
  sim::endIfOutOfMemory(exception);
  raise(exception);
  __builtin_unreachable();
}
