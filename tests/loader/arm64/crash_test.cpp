// What is told of a crash: of code that is written here, at an address that the slice has a name for.
#include "device/loader/crash.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <csignal>
#include <cstring>

#include "bridge/runtime.hpp"
#include "device/tools/macho_image.hpp"

namespace {

using testing::KilledBySignal;

const std::string withSymbols = BUILT "/device/Tilo.dylib";
constexpr size_t pageSize = 0x1000;

// Three functions: one calls the next, that calls the last, and that is no instruction.
constexpr uint32_t code[]{
    0xa9bf7bfd,  // stp x29, x30, [sp, #-16]!
    0x910003fd,  // mov x29, sp
    0x94000003,  // bl, 12 bytes on
    0xa8c17bfd,  // ldp x29, x30, [sp], #16
    0xd65f03c0,  // ret
    0xa9bf7bfd, 0x910003fd, 0x94000003, 0xa8c17bfd, 0xd65f03c0, 0x00000000,
};
constexpr size_t second = 0x14, third = 0x28;

uint64_t addressOf(const std::string& symbol) {
  for (const device::Slice& slice : device::readImage(withSymbols))
    if (slice.architecture == "arm64")
      for (const device::Symbol& found : slice.symbols)
        if (found.name.starts_with(symbol)) return found.value;
  ADD_FAILURE() << "no symbol " << symbol;
  return 0;
}

struct Crash : testing::Test {
  uint8_t* page = static_cast<uint8_t*>(
      mmap(nullptr, pageSize, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));

  Crash() { std::memcpy(page, code, sizeof code); }

  void run(size_t offset = 0) const { reinterpret_cast<void (*)()>(page + offset)(); }

  // Has the second function lie where one of the slice's does.
  void lieAt(uint64_t address) const {
    device::loader::nameCrashes(page + second - address, address + pageSize, withSymbols, "arm64");
  }

  void beMethod(const char* selector, size_t offset) const {
    Class made = objc_allocateClassPair(objc_getClass("NSObject"), "Crashing", 0);
    class_addMethod(made, sel_registerName(selector), reinterpret_cast<IMP>(page + offset), "v@:");
    objc_registerClassPair(made);
  }
};

TEST_F(Crash, TellsTheFunctionsThatWereRunTheInnermostFirst) {
  device::loader::nameCrashes(page, pageSize, "nowhere", "arm64");
  EXPECT_EXIT(run(), KilledBySignal(SIGILL),
              "^tilo-sim: Illegal instruction, with the arm64 slice running:\n  in 0x28\n  in 0x1f\n  in "
              "0xb\n(qemu|$)");
}

TEST_F(Crash, TellsTheMethodThatAFunctionIsThereFor) {
  beMethod("fail", third);
  device::loader::nameCrashes(page, pageSize, "nowhere", "arm64");
  EXPECT_EXIT(run(), KilledBySignal(SIGILL), "running:\n  in 0x28, for -\\[Crashing fail\\]\n  in 0x1f\n");
}

TEST_F(Crash, TellsItsNameOnceForAllThatIsInOneFunction) {
  lieAt(addressOf("__ZN4tilo5hooks19verticalIconPaddingE"));
  EXPECT_EXIT(run(second), KilledBySignal(SIGILL),
              "running:\n  in tilo::hooks::verticalIconPadding\\(SBIconListView\\)\n(qemu|$)");
}

// What does nothing but call the function that is in its name.
TEST_F(Crash, TellsTheMethodAloneOfWhatTheRuntimeCalls) {
  lieAt(addressOf("__ZN6bridge5ThunkI"));
  beMethod("fail", second);
  EXPECT_EXIT(run(second), KilledBySignal(SIGILL), "running:\n  in -\\[Crashing fail\\]\n(qemu|$)");
}

TEST_F(Crash, OutsideTheSliceTellsThat) {
  static uint8_t elsewhere[4];
  device::loader::nameCrashes(elsewhere, sizeof elsewhere, "nowhere", "arm64");
  EXPECT_EXIT(run(), KilledBySignal(SIGILL),
              "^tilo-sim: Illegal instruction, outside the arm64 slice\n(qemu|$)");
}

TEST_F(Crash, EndsTheProcessWhereTheSignalWasSent) {
  device::loader::nameCrashes(page, pageSize, "nowhere", "arm64");
  EXPECT_EXIT((std::raise(SIGFPE), std::_Exit(0)), KilledBySignal(SIGFPE),
              "Floating point exception, outside");
}

// Where there is no stack left to tell it on.
TEST_F(Crash, IsToldWhenTheStackHasComeToItsEnd) {
  const uint32_t callsItself[]{0xa9bf7bfd, 0x910003fd, 0x97fffffe};
  std::memcpy(page, callsItself, sizeof callsItself);
  device::loader::nameCrashes(page, pageSize, "nowhere", "arm64");
  EXPECT_EXIT(run(), KilledBySignal(SIGSEGV),
              "Segmentation fault, with the arm64 slice running:\n  in 0x0\n");
}

}  // namespace
