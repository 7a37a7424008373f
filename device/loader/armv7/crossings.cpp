// armv7: every function of the process is entered by way of a relay, for the slice keeps its stack aligned to
// 4 bytes only and expects results below 32 bits to be widened.
#include "device/loader/crossings.hpp"

#include <dlfcn.h>
#include <elf.h>
#include <fmt/format.h>
#include <link.h>

#include <bit>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string_view>

#include "bridge/runtime.hpp"
#include "device/loader/armv7/messages.hpp"
#include "device/loader/armv7/relay.hpp"
#include "device/loader/widened.hpp"
#include "simulator/runtime/console.hpp"

extern "C" {
void sliceLog();
void sliceFormat();
}

// Arguments without names follow those with names in one row, without gaps.
__asm__(R"(
  .text
  .arm
  .balign 4
  .global sliceLog
  .type sliceLog, %function
sliceLog:
  push {r0-r3}
  push {r11, lr}
  mov r11, sp
  bic sp, sp, #7
  mov r0, r1
  add r1, r11, #16
  bl sliceLogFrom
  mov sp, r11
  pop {r11, lr}
  add sp, sp, #16
  bx lr
  .size sliceLog, . - sliceLog

  .global sliceFormat
  .type sliceFormat, %function
sliceFormat:
  push {r0-r3}
  push {r11, lr}
  mov r11, sp
  bic sp, sp, #7
  add r3, r11, #20
  bl sliceFormatFrom
  mov sp, r11
  pop {r11, lr}
  add sp, sp, #16
  bx lr
  .size sliceFormat, . - sliceFormat
)");

namespace {

// A list over words laid out as Linux has them: reals, which are 64 bits wide, at even places.
struct Arguments {
  alignas(8) uint32_t words[64] = {};
  va_list list = std::bit_cast<va_list>(&words[0]);

  Arguments(const char* format, const uint32_t* row) {
    uint32_t* out = words;
    for (const char* at = format; (at = std::strchr(at, '%')); ++at) {
      if (*++at == '%') continue;
      const char* options = at;
      at += std::strcspn(at, "@disouxXcpaAfFgGeE*");
      const std::string_view length(options, at);
      if (!*at || *at == '*' || out + 3 > std::end(words)) refuse(format);
      const bool wide = std::strchr("aAfFgGeE", *at) || length.ends_with("ll") || length.ends_with('q') ||
                        length.ends_with('j');
      if (wide) out += (out - words) % 2;
      for (int i = 0; i < 1 + wide; ++i) *out++ = *row++;
    }
  }

  [[noreturn]] static void refuse(const char* format) {
    fmt::print(stderr, "the arguments of '{}' cannot cross\n", format);
    std::abort();
  }
};

// Whether the address is a function's, by the table of symbols that it was found in.
bool isCode(void* address) {
  Dl_info info;
  const Elf32_Sym* symbol = nullptr;
  if (!dladdr1(address, &info, reinterpret_cast<void**>(const_cast<Elf32_Sym**>(&symbol)), RTLD_DL_SYMENT))
    return false;
  return !symbol || ELF32_ST_TYPE(symbol->st_info) != STT_OBJECT;
}

constexpr uint32_t mostWords = 12;

}  // namespace

extern "C" __attribute__((used)) void sliceLogFrom(id format, const uint32_t* row) {
  const char* text = reinterpret_cast<const char* (*)(id, SEL)>(class_getMethodImplementation(
      bridge::classOf(format), sel_registerName("UTF8String")))(format, sel_registerName("UTF8String"));
  sim::logFormatted(format, Arguments(text, row).list);
}

extern "C" __attribute__((used)) int sliceFormatFrom(char* text, size_t size, const char* format,
                                                     const uint32_t* row) {
  return std::vsnprintf(text, size, format, Arguments(format, row).list);
}

namespace device::loader {

void* asImport(void* found) { return found && isCode(found) ? relayed(found, plainWords(mostWords)) : found; }

void* asFunction(void* code) { return relayed(code, plainWords(mostWords)); }

void* ofSlice(void* function) { return relayTarget(function); }

// Apple's armv7 keeps a list of handlers instead of tables, which nothing on Linux reads.
void letUnwind(const Layout&, const uint8_t*) {}

std::map<std::string, void*> crossings() {
  std::map<std::string, void*> table = messageCrossings();
  for (auto& [name, function] : widenedFunctions()) table.emplace(name, asImport(function));
  table.emplace("_CFLog", reinterpret_cast<void*>(sliceLog));
  table.emplace("_snprintf", reinterpret_cast<void*>(sliceFormat));
  return table;
}

}  // namespace device::loader
