// Where a signature lies in its slice, and what its parts are called when they are missing.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "device/signature/sign.hpp"
#include "device/signature/verify.hpp"
#include "spoiled.hpp"

namespace {

using namespace device;
using Lines = std::vector<std::string>;

// A signed slice of the smallest image, which is then told of otherwise than it is.
class SignatureInASlice : public testing::TestWithParam<const char*> {
 protected:
  Lines found() const { return signature::findings(file, told); }

  test::Bytes file =
      signature::withSignature(test::contentsOf(fmt::format("{}/good-{}.dylib", IMAGES, GetParam())), "test");
  Slice told = readImage(file).front();
  uint32_t start = told.signatures.front().offset;
};

INSTANTIATE_TEST_SUITE_P(Slices, SignatureInASlice, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return info.param; });

TEST_P(SignatureInASlice, BeginsWhereTheNamesEnd) {
  told.strings = {start - 8, 8};
  EXPECT_EQ(found(), Lines{});
  told.strings = {start - 8, 9};
  EXPECT_EQ(found(), Lines{"the symbols' names run into the signature"});
}

TEST_P(SignatureInASlice, IsInTheLastSegment) {
  told.segments.back().name = "__OTHER";
  EXPECT_EQ(found(), Lines{"__LINKEDIT is not the last segment"});
  told.segments.clear();
  EXPECT_EQ(found(), Lines{"__LINKEDIT is not the last segment"});
}

TEST_P(SignatureInASlice, NamesTheDirectoryThatIsMissing) {
  test::put32(file, start + 12, 0x77, true);
  const Lines lines = found();
  ASSERT_GE(lines.size(), 1u);
  EXPECT_EQ(lines[0], "no code directory");
}

TEST(SignatureOfAFile, IsNamedByItsSliceWhereThatIsTheOnlyOneAnnounced) {
  const auto file = test::contentsOf(std::string(IMAGES) + "/missing_slice.dylib");
  EXPECT_EQ(signature::findings(file), Lines{"arm64: no signature"});
}

}  // namespace
