// arm64: sending messages, arguments without names, and results below 32 bits, which Apple's callees widen
// and Linux's leave as they are. (Arguments below 32 bits Apple's callers widen and Linux's callees do not
// believe.)
#include "device/loader/crossings.hpp"

#include <bit>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <deque>

#include "bridge/runtime.hpp"
#include "device/loader/arm64/frames.hpp"
#include "device/loader/widened.hpp"
#include "simulator/runtime/console.hpp"

extern "C" {
void __register_frame(void* section);  // of the compiler's own library
void sliceMessageSend();
void sliceLog();
void sliceFormat();
}

// A message goes to what the runtime looks up; all that may hold arguments, and the place of a large result,
// is kept meanwhile. A message to nil answers zeros. Arguments without names all lie on the stack: its
// address goes along.
__asm__(R"(
  .text
  .balign 4
  .global sliceMessageSend
  .type sliceMessageSend, %function
sliceMessageSend:
  cbz x0, 1f
  stp x29, x30, [sp, #-224]!
  mov x29, sp
  stp x0, x1, [sp, #16]
  stp x2, x3, [sp, #32]
  stp x4, x5, [sp, #48]
  stp x6, x7, [sp, #64]
  str x8, [sp, #80]
  stp q0, q1, [sp, #96]
  stp q2, q3, [sp, #128]
  stp q4, q5, [sp, #160]
  stp q6, q7, [sp, #192]
  bl objc_msg_lookup
  mov x16, x0
  ldp q6, q7, [sp, #192]
  ldp q4, q5, [sp, #160]
  ldp q2, q3, [sp, #128]
  ldp q0, q1, [sp, #96]
  ldr x8, [sp, #80]
  ldp x6, x7, [sp, #64]
  ldp x4, x5, [sp, #48]
  ldp x2, x3, [sp, #32]
  ldp x0, x1, [sp, #16]
  ldp x29, x30, [sp], #224
  br x16
1:
  mov x1, xzr
  movi v0.2d, #0
  movi v1.2d, #0
  movi v2.2d, #0
  movi v3.2d, #0
  ret
  .size sliceMessageSend, . - sliceMessageSend

  .global sliceLog
  .type sliceLog, %function
sliceLog:
  mov x2, sp
  b sliceLogFrom
  .size sliceLog, . - sliceLog

  .global sliceFormat
  .type sliceFormat, %function
sliceFormat:
  mov x3, sp
  b sliceFormatFrom
  .size sliceFormat, . - sliceFormat
)");

namespace {

// A list of which everything is on the stack.
va_list argumentsOn(void* stack) {
  struct {
    void *stack, *generalTop, *vectorTop;
    int generalOffset, vectorOffset;
  } const parts{stack, nullptr, nullptr, 0, 0};
  return std::bit_cast<va_list>(parts);
}

}  // namespace

extern "C" __attribute__((used)) void sliceLogFrom(int, id format, void* stack) {
  sim::logFormatted(format, argumentsOn(stack));
}

extern "C" __attribute__((used)) int sliceFormatFrom(char* text, size_t size, const char* format,
                                                     void* stack) {
  return std::vsnprintf(text, size, format, argumentsOn(stack));
}

namespace device::loader {

// Both sides agree.
void* asImport(void* found) { return found; }
void* asFunction(void* code) { return code; }
void* ofSlice(void* function) { return function; }

void letUnwind(const Layout& layout, const uint8_t* base) {
  // For as long as the slice is loaded, which is for good.
  static std::deque<std::vector<uint8_t>> kept;
  kept.push_back(frameDescriptions(layout.unwinding, reinterpret_cast<uintptr_t>(base)));
  __register_frame(kept.back().data());
}

std::map<std::string, void*> crossings() {
  std::map<std::string, void*> table = widenedFunctions();
  table.emplace("_CFLog", reinterpret_cast<void*>(sliceLog));
  table.emplace("_objc_msgSend", reinterpret_cast<void*>(sliceMessageSend));
  table.emplace("_snprintf", reinterpret_cast<void*>(sliceFormat));
  return table;
}

}  // namespace device::loader
