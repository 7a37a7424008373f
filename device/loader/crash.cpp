// A signal's handler that walks the stack. It reads a file and allocates, which a handler had better not: the
// process is lost anyhow, and the worst that can happen is that it says less.
#include "device/loader/crash.hpp"

#include <fmt/format.h>
#include <pthread.h>
#include <ucontext.h>

#include <array>
#include <csignal>
#include <vector>

#include "device/loader/methods.hpp"
#include "device/loader/names.hpp"
#include "device/loader/trail.hpp"

namespace device::loader {
namespace {

constexpr int signals[]{SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGFPE, SIGABRT};

struct Image {
  Place place;
  std::string symbols, architecture;
};

Image image;

// Where this thread's stack ends.
const uintptr_t* endOfStack() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return nullptr;
  stack_t stack{};
  pthread_attr_getstack(&attributes, &stack.ss_sp, &stack.ss_size);
  return reinterpret_cast<const uintptr_t*>(static_cast<char*>(stack.ss_sp) + stack.ss_size);
}

std::vector<uintptr_t> trail(const mcontext_t& context) {
  auto pointer = [](auto address) { return reinterpret_cast<const uintptr_t*>(address); };
#ifdef __aarch64__
  return trailOfFrames(
      {context.pc, context.regs[30], pointer(context.regs[29]), pointer(context.sp), endOfStack()});
#else
  return trailOfCalls({context.arm_pc, context.arm_lr, nullptr, pointer(context.arm_sp), endOfStack()},
                      image.place);
#endif
}

// The function that the address is in, and the method that it is there for.
std::string told(uintptr_t address, const Names& names, const Methods& methods) {
  const NamedFunction function = names.at(address - image.place.base);
  const std::string method = methods.answeredBy(function);
  if (method.empty()) return function.name;
  if (function.name.starts_with("bridge::Thunk<")) return method;
  return function.name + ", for " + method;
}

void tell(int signal, siginfo_t*, void* given) {
  for (int each : signals) std::signal(each, SIG_DFL);
  const Names names(image.symbols, image.architecture);
  const Methods methods(image.place, names);
  std::vector<std::string> lines;
  for (uintptr_t address : trail(static_cast<const ucontext_t*>(given)->uc_mcontext)) {
    if (!image.place.holds(address)) continue;
    const std::string line = fmt::format("  in {}\n", told(address, names, methods));
    if (lines.empty() || line != lines.back()) lines.push_back(line);
  }
  fmt::print(stderr, "tilo-sim: {}, {} the {} slice{}\n{}", sigdescr_np(signal),
             lines.empty() ? "outside" : "with", image.architecture,
             lines.empty() ? "" : " running:", fmt::join(lines, ""));
  std::raise(signal);
}

}  // namespace

void nameCrashes(const uint8_t* base, uint64_t size, const std::string& symbols,
                 const std::string& architecture) {
  image = {{reinterpret_cast<uintptr_t>(base), size}, symbols, architecture};
  // A stack of its own: what is told when the other has come to its end.
  static std::array<char, 0x100000> room;
  stack_t stack{};
  stack.ss_sp = room.data();
  stack.ss_size = room.size();
  sigaltstack(&stack, nullptr);
  struct sigaction action{};
  action.sa_sigaction = tell;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  for (int signal : signals) sigaction(signal, &action, nullptr);
}

}  // namespace device::loader
