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
  // Of another length, with all that the slice says of it.
  void lengthen(uint32_t size) {
    file.resize(start + size);
    told.signatures.front().size = size;
    told.segments.back().fileSize = start + size - told.segments.back().fileOffset;
  }

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

TEST_P(SignatureInASlice, EndsWithTheFile) {
  file.resize(file.size() - 16);
  EXPECT_EQ(found(), Lines{"the signature ends 16 bytes behind the file"});
}

TEST_P(SignatureInASlice, LeavesTheSectionBehindTheLoadCommandsAlone) {
  told.sections.front().offset = static_cast<uint32_t>(told.commandsEnd);
  EXPECT_EQ(found(), Lines{});
}

TEST_P(SignatureInASlice, IsInASegmentOfWholePages) {
  Segment& last = told.segments.back();
  const uint64_t page = told.is64 ? 0x4000 : 0x1000, end = last.fileOffset + last.fileSize;
  last.size = 0;
  EXPECT_EQ(found(), Lines{"__LINKEDIT takes 0x0 bytes of memory"});
  last.size = 16 * page + 8;
  EXPECT_EQ(found(), Lines{fmt::format("__LINKEDIT takes {:#x} bytes of memory", last.size)});
  last.size = last.fileSize = page;
  last.fileOffset = end - page;
  EXPECT_EQ(found(), Lines{});
}

TEST_P(SignatureInASlice, HasLessThanSixteenBytesBehindIt) {
  const uint32_t length = test::get32(file, start + 4, true);
  for (uint32_t size : {length, length + 15}) {
    lengthen(size);
    EXPECT_EQ(found(), Lines{}) << size - length;
  }
  lengthen(length + 16);
  EXPECT_EQ(found(), Lines{fmt::format("the signature is {} bytes long and says {}", length + 16, length)});
  lengthen(length - 1);
  EXPECT_EQ(found()[0], fmt::format("the signature is {} bytes long and says {}", length - 1, length));
}

TEST_P(SignatureInASlice, NamesThePartThatIsMissing) {
  const char* const names[] = {"code directory", "requirements blob", "entitlements blob",
                               "second code directory"};
  for (uint32_t number = 0; number < std::size(names); ++number) {
    const test::Bytes whole = file;
    test::put32(file, start + 12 + 8 * number, 0x77, true);
    EXPECT_EQ(found(), (Lines{std::string("no ") + names[number], "a blob of slot 0x77"}));
    file = whole;
  }
}

TEST(SignatureOfAFile, IsNamedByItsSliceWhereThatIsTheOnlyOneAnnounced) {
  const auto file = test::contentsOf(std::string(IMAGES) + "/missing_slice.dylib");
  EXPECT_EQ(signature::findings(file), Lines{"arm64: no signature"});
}

}  // namespace
