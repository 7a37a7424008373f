// A slice in memory: what becomes of a pointer beside an import, and what of it runs first.
#include "device/loader/memory.hpp"
#include "loader_fixture.hpp"

namespace {

using namespace device;
using namespace device::test;

class LoaderOfMemory : public test::Loader {};

INSTANTIATE_TEST_SUITE_P(Slices, LoaderOfMemory, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(LoaderOfMemory, FillsInWhatIsBesideAnImport) {
  static char target[32];
  Layout layout = layOut(file, GetParam());
  layout.fillings.front().addend = 16;
  const uint8_t* base = loader::intoMemory(layout, [](const std::string&) -> void* { return target; });
  const auto wanted = reinterpret_cast<uintptr_t>(target + 16);
  EXPECT_EQ(std::memcmp(base + layout.fillings.front().address, &wanted, layout.word), 0);
}

// So that a trace of what it executes can be read.
TEST_P(LoaderOfMemory, HasTheSamePlaceInEveryProcess) {
  static char target;
  const auto* base =
      loader::intoMemory(layOut(file, GetParam()), [](const std::string&) -> void* { return &target; });
  EXPECT_EQ(reinterpret_cast<uintptr_t>(base), 0x200000000u);
}

std::vector<void*> asked;
std::vector<int> counts;

TEST_P(LoaderOfMemory, RunsTheInitialisersInTheirOrder) {
  uint8_t* const base = file.data();
  loader::initialise(layOut(file, GetParam()), base, [](void* code) {
    asked.push_back(code);
    return reinterpret_cast<void*>(
        +[](int count, const char**, const char**, const char**, const void*) { counts.push_back(count); });
  });
  EXPECT_EQ(asked, (std::vector<void*>{base + slice.initialisers[0], base + slice.initialisers[1]}));
  EXPECT_EQ(counts, (std::vector{0, 0})) << "of arguments";
}

}  // namespace
