// What code directories say of the slice that they are of.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "device/signature/format.hpp"
#include "device/signature/sign.hpp"
#include "device/signature/verify.hpp"
#include "spoiled.hpp"

namespace {

using namespace device;
using test::Bytes;
using test::get32;
using test::put32;

std::string refusalOf(const Bytes& image) {
  try {
    signature::withSignature(image, "test");
    return "";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

// The smallest image before it is signed, which is then made another.
class SignatureOfAnotherImage : public testing::TestWithParam<const char*> {
 protected:
  size_t command(uint32_t number) const {
    size_t at = readImage(image).front().is64 ? 32 : 28;
    while (get32(image, at) != number) at += get32(image, at + 4);
    return at;
  }
  // Where that of the oldest system has its version.
  size_t version() const { return command(0x25) + 8; }
  size_t linkedit() const {
    const std::string name = "__LINKEDIT";
    return static_cast<size_t>(std::ranges::search(image, name).begin() - image.begin()) - 8;
  }
  std::string refusal() const { return refusalOf(image); }
  // Signs it, and is content with that.
  void sign() {
    file = signature::withSignature(image, "test");
    start = readImage(file).front().signatures.front().offset;
    EXPECT_EQ(signature::findings(file), std::vector<std::string>{});
  }
  uint32_t blobs() const { return get32(file, start + 8, true); }
  size_t directory() const { return start + get32(file, start + 16, true); }

  Bytes image = test::contentsOf(fmt::format("{}/good-{}.dylib", IMAGES, GetParam())), file;
  size_t start = 0;
};

INSTANTIATE_TEST_SUITE_P(Slices, SignatureOfAnotherImage, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return info.param; });

TEST_P(SignatureOfAnotherImage, HasOneDirectoryFromSystem11On) {
  put32(image, version(), 11 << 16);
  sign();
  EXPECT_EQ(blobs(), 3u);
  put32(image, version(), (11 << 16) - 1);
  sign();
  EXPECT_EQ(blobs(), 4u);
}

TEST_P(SignatureOfAnotherImage, SaysThatAProgramIsOne) {
  sign();
  EXPECT_EQ(get32(file, directory() + 84, true), 0u);
  put32(image, 12, 2);
  sign();
  EXPECT_EQ(get32(file, directory() + 84, true), 1u);
}

// The last page that is hashed is the last that has something in it.
TEST_P(SignatureOfAnotherImage, CoversWholePages) {
  const size_t more = 0x1000 - image.size() % 0x1000;
  const bool is64 = readImage(image).front().is64;
  const size_t size = linkedit() + (is64 ? 48 : 36);
  put32(image, size, get32(image, size) + static_cast<uint32_t>(more));
  image.resize(image.size() + more);
  sign();
  EXPECT_EQ(start % 0x1000, 0u);
}

TEST_P(SignatureOfAnotherImage, TakesNoMoreRoomInTheHeaderThanThereIs) {
  const auto end = static_cast<uint32_t>(readImage(image).front().commandsEnd);
  const auto spared = [&](uint32_t offset) {
    put32(image, test::firstSectionOffset(readImage(image).front()), offset);
    return refusal();
  };
  EXPECT_EQ(spared(end + 16), "");
  EXPECT_EQ(spared(end + 15).find("the header has 15 bytes to spare"), 0u);
  EXPECT_EQ(spared(end - 1).find("the header has 0 bytes to spare"), 0u);
}

TEST_P(SignatureOfAnotherImage, IsWrittenBehindTheSegmentOfThatNameAlone) {
  image[linkedit() + 8] = 'x';
  EXPECT_EQ(refusal(), "does not end with its segment __LINKEDIT");
}

// The loaders know no segment of 32 bits in a file of 64, nor the other way round.
TEST_P(SignatureOfAnotherImage, IsNotWrittenWhereASegmentIsOfTheOtherWidth) {
  uint8_t& number = image[linkedit()];
  number = number == 0x19 ? 0x1 : 0x19;
  EXPECT_EQ(refusal(), "a segment of the other width");
}

TEST_P(SignatureOfAnotherImage, IsNotWrittenWhereThereIsNoSegment) {
  put32(image, 16, 0);
  put32(image, 20, 0);
  EXPECT_EQ(refusal(), "does not end with its segment __LINKEDIT");
}

TEST(SignatureOfAUniversalFile, IsNotWrittenWhereThatHasOneSlice) {
  EXPECT_EQ(refusalOf(test::contentsOf(std::string(IMAGES) + "/missing_slice.dylib")),
            "a universal file; sign its slices");
}

// The count and size of the load commands, the last segment's sizes and the new command.
TEST_P(SignatureOfAnotherImage, ChangesNothingElseOfTheHeader) {
  sign();
  const Slice slice = readImage(image).front();
  const size_t word = slice.is64 ? 8 : 4;
  std::vector<size_t> changed;
  for (size_t at = 0; at < slice.commandsEnd; ++at)
    if (image[at] != file[at]) changed.push_back(at);
  for (size_t at : changed) {
    const size_t sizes = linkedit() + 24 + word;
    EXPECT_TRUE((at >= 16 && at < 24) || (at >= sizes && at < sizes + word) ||
                (at >= sizes + 2 * word && at < sizes + 3 * word))
        << at;
  }
}

}  // namespace
