// One routine copies the words; a stub of four words for each function leads to it with the function's relay.
#include "device/loader/armv7/relay.hpp"

#include <sys/mman.h>

#include <map>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>

#include "device/loader/pages.hpp"

extern "C" void sliceRelay();

// The relay is in r12. Pushed before the arguments on the stack, the four registers make one row with them.
__asm__(R"(
  .text
  .arm
  .balign 4
  .global sliceRelay
  .type sliceRelay, %function
sliceRelay:
  push {r0-r3}
  push {r4, r5, r9, r11, lr}
  mov r11, sp
  add r4, sp, #20
  mov r5, r12
  ldr r1, [r5, #4]
  add r0, r1, #4
  sub sp, sp, r0, lsl #2
  bic sp, sp, #7
  mov r0, #0
1:
  cmp r0, r1
  bge 2f
  ldr r2, [r5, #8]
  ldr r2, [r2, r0, lsl #2]
  ldr r3, [r4, r2, lsl #2]
  str r3, [sp, r0, lsl #2]
  add r0, r0, #1
  b 1b
2:
  ldr r12, [r5]
  pop {r0-r3}
  blx r12
  mov sp, r11
  pop {r4, r5, r9, r11, lr}
  add sp, sp, #16
  bx lr
  .size sliceRelay, . - sliceRelay
)");

namespace device::loader {
namespace {

// Loads the two words at its end into r12 and the program counter.
struct Stub {
  uint32_t loadRelay = 0xe59fc000, jump = 0xe59ff000;
  const Relay* relay;
  void (*routine)() = sliceRelay;
};

Stub* roomForStub() {
  constexpr size_t pageSize = 0x10000;
  static Stub *next = nullptr, *end = nullptr;
  if (next == end) {
    next = static_cast<Stub*>(newPages(nullptr, pageSize, PROT_READ | PROT_WRITE | PROT_EXEC));
    end = next + pageSize / sizeof(Stub);
  }
  return next++;
}

std::mutex lock;
std::map<std::pair<void*, WordMap>, void*> made;
std::unordered_map<void*, void*> targets;

}  // namespace

const Relay* makeRelay(void* target, const WordMap& map) {
  auto* relay = new Relay{target, static_cast<uint32_t>(map.size()), nullptr, map};
  relay->words = relay->map.data();
  return relay;
}

void* relayed(void* target, const WordMap& map) {
  const std::lock_guard guard(lock);
  void*& function = made[{target, map}];
  if (function) return function;
  Stub* stub = new (roomForStub()) Stub{.relay = makeRelay(target, map)};
  targets[stub] = target;
  return function = asCode(stub, sizeof *stub);
}

void* relayTarget(void* function) {
  const std::lock_guard guard(lock);
  auto found = targets.find(function);
  return found == targets.end() ? function : found->second;
}

}  // namespace device::loader
