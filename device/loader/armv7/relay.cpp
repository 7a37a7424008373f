// One routine copies the words; a stub of four words for each function leads to it with the function's relay.
#include "device/loader/armv7/relay.hpp"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <unordered_map>
#include <utility>

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
  mov r0, r1
  cmp r0, #4
  movlt r0, #4
  sub sp, sp, r0, lsl #2
  bic sp, sp, #7
  mov r0, #0
1:
  cmp r0, r1
  bge 2f
  add r2, r5, #8
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

// Loads what follows it into r12 and the program counter.
constexpr uint32_t stub[]{0xe59fc000, 0xe59ff000};

uint32_t* roomForStub() {
  constexpr size_t pageSize = 0x10000;
  static uint32_t *next = nullptr, *end = nullptr;
  if (next == end) {
    next = static_cast<uint32_t*>(
        mmap(nullptr, pageSize, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (next == MAP_FAILED) std::abort();
    end = next + pageSize / sizeof(uint32_t);
  }
  return std::exchange(next, next + 4);
}

std::mutex lock;
std::map<std::pair<void*, WordMap>, void*> made;
std::unordered_map<void*, void*> targets;

}  // namespace

Relay* makeRelay(void* target, const WordMap& map) {
  auto* relay = static_cast<Relay*>(std::malloc(sizeof(Relay) + map.size() * sizeof(uint32_t)));
  relay->target = target;
  relay->count = static_cast<uint32_t>(map.size());
  std::memcpy(relay->map, map.data(), map.size() * sizeof(uint32_t));
  return relay;
}

void* relayed(void* target, const WordMap& map) {
  const std::lock_guard guard(lock);
  void*& function = made[{target, map}];
  if (function) return function;
  uint32_t* room = roomForStub();
  const uint32_t words[]{stub[0], stub[1], reinterpret_cast<uintptr_t>(makeRelay(target, map)),
                         reinterpret_cast<uintptr_t>(&sliceRelay)};
  std::memcpy(room, words, sizeof words);
  __builtin___clear_cache(reinterpret_cast<char*>(room), reinterpret_cast<char*>(room + 4));
  targets[room] = target;
  return function = room;
}

void* relayTarget(void* function) {
  const std::lock_guard guard(lock);
  auto found = targets.find(function);
  return found == targets.end() ? function : found->second;
}

}  // namespace device::loader
