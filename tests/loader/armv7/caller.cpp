// The odd word lies above the arguments.
#include "tests/loader/armv7/caller.hpp"

extern "C" uint64_t callAWordOff(void* function, const uint32_t* words, uint32_t* kept);

__asm__(R"(
  .text
  .arm
  .balign 4
  .global callAWordOff
  .type callAWordOff, %function
callAWordOff:
  push {r4-r11, lr}
  sub sp, sp, #4
  push {r2}
  mov r12, r0
  mov r3, r1
  add r4, r3, #48
  mov r5, #8
1:
  ldr r0, [r4, #-4]!
  push {r0}
  subs r5, r5, #1
  bne 1b
  ldm r3, {r0-r3}
  mov r4, #104
  mov r5, #105
  mov r9, #109
  mov r11, #111
  blx r12
  add sp, sp, #32
  pop {r2}
  str r4, [r2]
  str r5, [r2, #4]
  str r9, [r2, #8]
  str r11, [r2, #12]
  add sp, sp, #4
  pop {r4-r11, pc}
  .size callAWordOff, . - callAWordOff

  .global misalignmentOfTheStack
  .type misalignmentOfTheStack, %function
misalignmentOfTheStack:
  and r0, sp, #7
  bx lr
  .size misalignmentOfTheStack, . - misalignmentOfTheStack
)");

namespace test {

Answer callAsTheSlice(void* function, const Words& words) {
  Answer answer;
  answer.result = callAWordOff(function, words.data(), answer.kept.data());
  return answer;
}

}  // namespace test
