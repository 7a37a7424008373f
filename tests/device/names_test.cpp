// Names of the slices' functions, from the file that has their symbols.
#include "device/loader/names.hpp"

#include <gtest/gtest.h>

#include "device/tools/macho_image.hpp"

namespace {

using device::loader::Names;

const std::string withSymbols = LINKED "/Tilo.dylib";
constexpr const char* padding = "__ZN4tilo5hooks19verticalIconPaddingE14SBIconListView";

class FunctionNames : public testing::TestWithParam<const char*> {
 protected:
  uint64_t addressOf(const std::string& symbol) const {
    for (const device::Slice& slice : device::readImage(withSymbols))
      if (slice.architecture == GetParam())
        for (const device::Symbol& found : slice.symbols)
          if (found.name == symbol) return found.value;
    ADD_FAILURE() << "no symbol " << symbol;
    return 0;
  }

  const Names names{withSymbols, GetParam()};
};

TEST_P(FunctionNames, AreAsTheSourceHasThem) {
  EXPECT_EQ(names.at(addressOf(padding)).name, "tilo::hooks::verticalIconPadding(SBIconListView)");
}

TEST_P(FunctionNames, AreThoseOfThePlatformWhereTheyAreNoneOfCpp) {
  EXPECT_EQ(names.at(addressOf("_iconGridCalc")).name, "iconGridCalc");
}

TEST_P(FunctionNames, AreOfAllTheirCode) {
  const uint64_t start = addressOf(padding);
  EXPECT_EQ(names.at(start + 4).start, start);
  EXPECT_NE(names.at(start - 4).start, start);
}

TEST_P(FunctionNames, AreNoneOfData) {
  const uint64_t data = addressOf("_framing");
  EXPECT_LT(names.at(data).start, data);
  EXPECT_NE(names.at(data).name, "framing");
}

INSTANTIATE_TEST_SUITE_P(OfBoth, FunctionNames, testing::Values("arm64", "armv7"));

// The armv7 linker has a name for the image's first byte.
TEST(FunctionNamesBeforeAllCode, AreWhereItLies) {
  EXPECT_EQ(Names(withSymbols, "arm64").at(0x10).name, "0x10");
  EXPECT_EQ(Names(withSymbols, "arm64").at(0x10).start, 0x10u);
}

TEST(FunctionNamesWithoutTheFile, AreWhereTheyLie) {
  EXPECT_EQ(Names("nowhere", "arm64").at(0x1234).name, "0x1234");
}

}  // namespace
