// The loader and segments and sections that are not where they may be.
#include "loader_fixture.hpp"

namespace {

using namespace device;
using namespace device::test;

class LoaderOfPlaces : public test::Loader {
 protected:
  // Of a section: its address, and its size behind that.
  void place(const std::string& name, uint64_t address, uint32_t size) {
    const size_t at = section(name) + 32;
    set32(at, static_cast<uint32_t>(address));
    set32(at + word, size);
  }

  size_t word = slice.is64 ? 8 : 4;
  const Segment& data = *std::ranges::find(slice.segments, "__DATA", &Segment::name);
  uint64_t end = data.address + data.size;
};

INSTANTIATE_TEST_SUITE_P(Slices, LoaderOfPlaces, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(LoaderOfPlaces, RefusesLoadCommandsThatNoSegmentHas) {
  const size_t offset = section("__TEXT") + 16 + 2 * word, size = offset + word;
  set32(size, static_cast<uint32_t>(slice.commandsEnd) - 1);
  expectRefused("segment __TEXT does not hold the load commands");
  set32(size, static_cast<uint32_t>(slice.commandsEnd));
  EXPECT_EQ(refusal(file, GetParam()).find("does not hold the load commands"), std::string::npos);
}

TEST_P(LoaderOfPlaces, RefusesLoadCommandsBeforeTheFirstSegment) {
  const size_t offset = section("__TEXT") + 16 + 2 * word, size = offset + word;
  set32(offset, 0x4000);
  set32(size, get32(size) - 0x4000);
  expectRefused("segment __TEXT does not hold the load commands");
}

TEST_P(LoaderOfPlaces, RefusesASectionOfASegmentThatIsNotThere) {
  file[slice.start + section("__bss") + 16] = 'x';
  expectRefused("section __bss lies outside its segment");
}

TEST_P(LoaderOfPlaces, RefusesASectionThatIsPartlyOutsideItsSegment) {
  place("__bss", end - 8, 9);
  expectRefused("section __bss lies outside its segment");
  place("__bss", data.address - 1, 8);
  expectRefused("section __bss lies outside its segment");
}

TEST_P(LoaderOfPlaces, RefusesASectionBehindItsSegment) {
  place("__bss", end + 1, 0);
  expectRefused("section __bss lies outside its segment");
}

TEST_P(LoaderOfPlaces, HasTheInitialisersInTheirOrder) {
  ASSERT_EQ(slice.initialisers.size(), 2u);
  EXPECT_EQ(layOut(shipped(), GetParam()).initialisers, slice.initialisers);
}

// All that is wrong then is that somebody changed it.
TEST_P(LoaderOfPlaces, TakesASectionThatEndsWithItsSegment) {
  place("__bss", end - 8, 8);
  expectRefused("the hash of page ");
  place("__bss", end, 0);
  expectRefused("the hash of page ");
}

TEST(LoaderOfAnotherProcessor, FindsNoSlice) { EXPECT_EQ(refusal(shipped(), "x86_64"), "no x86_64 slice"); }

}  // namespace
