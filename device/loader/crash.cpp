// A signal's handler that walks the stack. It reads a file and allocates, which a handler had better not: the
// process is lost anyhow, and the worst that can happen is that it says less.
#include "device/loader/crash.hpp"

#include <fmt/format.h>
#include <pthread.h>
#include <sys/mman.h>
#include <ucontext.h>

#include <csignal>
#include <cstdio>
#include <vector>

#include "device/loader/methods.hpp"
#include "device/loader/names.hpp"

namespace device::loader {
namespace {

constexpr size_t mostCallers = 64;
constexpr int signals[]{SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGFPE, SIGABRT};

struct Image {
  uintptr_t base = 0;
  uint64_t size = 0;
  std::string symbols, architecture;

  bool holds(uintptr_t address) const { return address >= base && address - base < size; }
};

Image image;

using Words = const uintptr_t*;

// Where this thread's stack ends.
Words endOfStack() {
  pthread_attr_t attributes;
  void* start = nullptr;
  size_t size = 0;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return nullptr;
  pthread_attr_getstack(&attributes, &start, &size);
  pthread_attr_destroy(&attributes);
  return reinterpret_cast<Words>(static_cast<char*>(start) + size);
}

// Where the process was, then where it would have returned to, the innermost first.
#ifdef __aarch64__
// Each frame begins with where the one around it does, and where it returns to.
std::vector<uintptr_t> trail(const mcontext_t& context) {
  std::vector<uintptr_t> found{context.pc, context.regs[30] - 1};
  const Words end = endOfStack();
  for (auto at = reinterpret_cast<Words>(context.regs[29]);
       at > reinterpret_cast<Words>(context.sp) && at + 1 < end && found.size() < mostCallers;) {
    found.push_back(at[1] - 1);
    auto around = reinterpret_cast<Words>(at[0]);
    if (around <= at) break;
    at = around;
  }
  return found;
}
#else
// Linux keeps no frames there. What is on the stack and comes after a call in the slice is taken for a place
// to return to; one may be left over from before.
std::vector<uintptr_t> trail(const mcontext_t& context) {
  std::vector<uintptr_t> found{context.arm_pc, context.arm_lr - 1};
  auto isCall = [](uint32_t word) { return word >> 24 == 0xeb || (word & 0xfffffff0) == 0xe12fff30; };
  const Words end = endOfStack();
  for (auto at = reinterpret_cast<Words>(context.arm_sp); at < end && found.size() < mostCallers; ++at)
    if (*at % 4 == 0 && image.holds(*at) && image.holds(*at - 4) && isCall(*reinterpret_cast<Words>(*at - 4)))
      found.push_back(*at - 1);
  return found;
}
#endif

void tell(int signal, siginfo_t*, void* given) {
  for (int each : signals) std::signal(each, SIG_DFL);
  const Names names(image.symbols, image.architecture);
  const Methods methods(image.base, image.size, names);
  std::vector<std::string> lines;
  for (uintptr_t address : trail(static_cast<const ucontext_t*>(given)->uc_mcontext)) {
    if (!image.holds(address)) continue;
    const NamedFunction function = names.at(address - image.base);
    const std::string method = methods.answeredBy(function);
    std::string line = "  in " + function.name + (method.empty() ? "" : ", for " + method) + '\n';
    if (!method.empty() && function.name.starts_with("bridge::Thunk<")) line = "  in " + method + '\n';
    if (lines.empty() || line != lines.back()) lines.push_back(line);
  }
  fmt::print(stderr, "tilo-sim: {}, {} the {} slice{}\n{}", sigdescr_np(signal),
             lines.empty() ? "outside" : "with", image.architecture,
             lines.empty() ? "" : " running:", fmt::join(lines, ""));
  std::fflush(stderr);
  std::raise(signal);
}

}  // namespace

void nameCrashes(const uint8_t* base, uint64_t size, const std::string& symbols,
                 const std::string& architecture) {
  image = {reinterpret_cast<uintptr_t>(base), size, symbols, architecture};
  // A stack of its own: what is told when the other has come to its end.
  constexpr size_t stackSize = 1 << 20;
  void* pages = mmap(nullptr, stackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  stack_t stack{};
  stack.ss_sp = pages;
  stack.ss_size = stackSize;
  sigaltstack(&stack, nullptr);
  struct sigaction action{};
  action.sa_sigaction = tell;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  for (int signal : signals) sigaction(signal, &action, nullptr);
}

}  // namespace device::loader
