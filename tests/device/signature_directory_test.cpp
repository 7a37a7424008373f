// What code directories say of the slice that they are of.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "device/signature/format.hpp"
#include "device/signature/sign.hpp"
#include "device/signature/verify.hpp"
#include "spoiled.hpp"

namespace {

using namespace device;
using test::Bytes;
using test::get32;
using test::put32;

// The smallest image before it is signed, which is then made another.
class SignatureOfAnotherImage : public testing::TestWithParam<const char*> {
 protected:
  // Where the load command of the oldest system's version is.
  size_t version() const {
    size_t at = readImage(image).front().is64 ? 32 : 28;
    while (get32(image, at) != 0x25) at += get32(image, at + 4);
    return at + 8;
  }
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

}  // namespace
