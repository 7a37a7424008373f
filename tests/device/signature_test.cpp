// Signatures: what is signed is found without fault, and what was done to it afterwards is found, whatever it
// was.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "command.hpp"
#include "device/signature/sign.hpp"
#include "device/signature/verify.hpp"
#include "spoiled.hpp"

namespace {

using namespace device;
using test::Bytes;
using test::get32;
using test::put32;
using Lines = std::vector<std::string>;

const Bytes& shipped() {
  static const Bytes file = test::contentsOf(LIBRARY);
  return file;
}

Bytes thin(const std::string& slice) {
  return test::contentsOf(fmt::format("{}/good-{}.dylib", IMAGES, slice));
}

// What is found, or why the file cannot be read.
Lines judged(const Bytes& file) {
  try {
    return signature::findings(file);
  } catch (const std::runtime_error& error) {
    return {error.what()};
  }
}

std::string refusal(const Bytes& file) {
  try {
    signature::withSignature(file, "test");
    return "";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

// A signed slice of the smallest image, under test by turns.
class Signature : public testing::TestWithParam<const char*> {
 protected:
  Slice slice() const { return readImage(file).front(); }
  size_t start() const { return slice().signatures.front().offset; }
  // Where a blob begins, by its place in the order.
  size_t blob(size_t number) const { return start() + get32(file, start() + 16 + 8 * number, true); }
  void expectFound(const std::string& words) const {
    const Lines lines = judged(file);
    EXPECT_TRUE(std::ranges::any_of(lines, [&](const auto& line) { return line.find(words) != line.npos; }))
        << words << "\nfound: " << testing::PrintToString(lines);
  }

  Bytes file = signature::withSignature(thin(GetParam()), "test");
};

INSTANTIATE_TEST_SUITE_P(Slices, Signature, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return std::string(info.param); });

TEST(Signature, OfWhatShipsIsWithoutFault) { EXPECT_EQ(judged(shipped()), Lines{}); }

TEST_P(Signature, IsWithoutFaultOnceWritten) { EXPECT_EQ(judged(file), Lines{}); }

TEST_P(Signature, IsTheSameEveryTime) { EXPECT_EQ(file, signature::withSignature(thin(GetParam()), "test")); }

TEST_P(Signature, LeavesTheRestOfTheSliceAsItWas) {
  const Bytes before = thin(GetParam());
  const size_t commands = slice().commandsEnd;
  EXPECT_TRUE(std::equal(before.begin() + static_cast<long>(commands), before.end(),
                         file.begin() + static_cast<long>(commands)));
}

TEST_P(Signature, ThatIsMissingIsFound) { EXPECT_EQ(judged(thin(GetParam())), Lines{"no signature"}); }

// Everything but the insides of pages byte by byte, and those by samples.
TEST_P(Signature, NoticesAnyChangedByte) {
  const size_t commands = slice().commandsEnd, signed_ = start();
  for (size_t at = 0; at < file.size(); at += at < commands || at >= signed_ ? 1 : 61) {
    const uint8_t bits = at % 3 == 0 ? 0x01 : at % 3 == 1 ? 0x80 : 0xff;
    file[at] ^= bits;
    EXPECT_NE(judged(file), Lines{}) << "byte " << at;
    file[at] ^= bits;
  }
}

TEST(Signature, NoticesAnyChangedByteOfWhatShips) {
  Bytes file = shipped();
  for (size_t at = 0; at < file.size(); at += at < 64 ? 1 : 2039) {
    file[at] ^= 0x10;
    EXPECT_NE(judged(file), Lines{}) << "byte " << at;
    file[at] ^= 0x10;
  }
}

TEST_P(Signature, NoticesACutAnywhere) {
  const Bytes whole = file;
  for (size_t size = 0; size < whole.size(); size += size < 4096 ? 7 : 997) {
    file.assign(whole.begin(), whole.begin() + static_cast<long>(size));
    EXPECT_NE(judged(file), Lines{}) << size << " bytes";
  }
}

TEST_P(Signature, NothingFollows) {
  file.resize(file.size() + 16);
  expectFound("16 bytes follow the signature");
}

TEST(Signature, NothingFollowsTheLastSlice) {
  Bytes file = shipped();
  file.push_back(0);
  EXPECT_EQ(judged(file), Lines{"1 bytes follow the last slice"});
}

TEST(Signature, LetsNothingStandBetweenSlices) {
  Bytes file = shipped();
  file[readImage(file)[1].start - 1] = 1;
  EXPECT_EQ(judged(file), Lines{readImage(file)[1].architecture + ": something stands before it"});
}

// The first slice may begin where the head ends.
TEST_P(Signature, LetsASliceFollowTheHeadAtOnce) {
  Bytes whole(28);
  put32(whole, 0, 0xcafebabe, true);
  put32(whole, 4, 1, true);
  for (size_t word : {0, 4}) put32(whole, 8 + word, get32(file, 4 + word), true);
  put32(whole, 16, 28, true);
  put32(whole, 20, static_cast<uint32_t>(file.size()), true);
  put32(whole, 24, 14, true);
  whole.insert(whole.end(), file.begin(), file.end());
  EXPECT_EQ(judged(whole), Lines{fmt::format("{}: not aligned to 0x4000", GetParam())});
}

TEST_P(Signature, NamesThePageWhoseHashIsWrong) {
  file[0x1000] ^= 1;
  EXPECT_EQ(judged(file), (Lines{"SHA-1 directory: the hash of page 1 (at 0x1000) is wrong",
                                 "SHA-256 directory: the hash of page 1 (at 0x1000) is wrong"}));
}

TEST_P(Signature, NamesTheSpecialSlotThatIsWrong) {
  file[blob(2) + 20] ^= 1;
  EXPECT_EQ(judged(file), (Lines{"SHA-1 directory: special slot -5 is wrong (entitlements blob)",
                                 "SHA-256 directory: special slot -5 is wrong (entitlements blob)"}));
}

TEST_P(Signature, NamesTheFieldThatIsWrong) {
  file[blob(0) + 15] |= 1;
  EXPECT_EQ(judged(file), Lines{"SHA-1 directory: flags is 0x3, not 0x2"});
}

// Where the kernel has the fields, in bytes from the directory's start (Apple's cs_blobs.h, version 0x20400).
TEST_P(Signature, HasEachFieldOfADirectoryWhereTheKernelReadsIt) {
  constexpr std::pair<size_t, const char*> last[] = {
      {11, "version"},       {15, "flags"},        {27, "nSpecialSlots"}, {31, "nCodeSlots"},
      {35, "codeLimit"},     {38, "platform"},     {39, "pageSize"},      {43, "spare2"},
      {47, "scatterOffset"}, {51, "teamOffset"},   {55, "spare3"},        {63, "codeLimit64"},
      {71, "execSegBase"},   {79, "execSegLimit"}, {87, "execSegFlags"}};
  for (const auto& [at, name] : last) {
    file[blob(0) + at] ^= 64;
    expectFound(fmt::format("SHA-1 directory: {} is ", name));
    file[blob(0) + at] ^= 64;
  }
}

TEST_P(Signature, IsOfNoPlatformOfItsOwn) { EXPECT_EQ(file[blob(0) + 38], 0); }

TEST_P(Signature, BearsOneName) {
  file[blob(3) + 88] ^= 1;
  EXPECT_EQ(judged(file), Lines{"the two code directories bear different names"});
}

TEST_P(Signature, NeedsItsEntitlementsBlob) {
  test::takeOutEntitlements(file, slice());
  expectFound("no entitlements blob");
}

TEST_P(Signature, StartsAtAMultipleOfSixteen) {
  const size_t at = slice().commandsEnd - 8;
  put32(file, at, get32(file, at) + 8);
  put32(file, at + 4, get32(file, at + 4) - 8);
  expectFound("no multiple of 16");
}

TEST_P(Signature, IsAskedForOnce) {
  // Another command of its kind, in the room that is left; the segment of the header has more of it.
  const size_t end = slice().commandsEnd;
  std::copy_n(file.begin() + static_cast<long>(end) - 16, 16, file.begin() + static_cast<long>(end));
  put32(file, 16, get32(file, 16) + 1);
  put32(file, 20, get32(file, 20) + 16);
  expectFound("more than one signature");
}

TEST_P(Signature, NeedsRoomInTheHeader) {
  Bytes image = thin(GetParam());
  put32(image, test::firstSectionOffset(readImage(image).front()),
        static_cast<uint32_t>(readImage(image).front().commandsEnd) + 8);
  EXPECT_EQ(refusal(image),
            "the header has 8 bytes to spare before section __text, and the signature needs 16");
}

TEST_P(Signature, FindsAHeaderThatIsTooShort) {
  put32(file, test::firstSectionOffset(slice()), static_cast<uint32_t>(slice().commandsEnd) - 16);
  expectFound("the header is 16 bytes too short for its load commands: section __text begins in them");
}

TEST_P(Signature, IsNotWrittenTwice) { EXPECT_EQ(refusal(file), "signed already"); }

TEST(Signature, IsOfASlice) { EXPECT_EQ(refusal(shipped()), "a universal file; sign its slices"); }

TEST_P(Signature, IsNotWrittenBehindALooseEnd) {
  Bytes image = thin(GetParam());
  image.push_back(0);
  EXPECT_EQ(refusal(image), "does not end with its segment __LINKEDIT");
}

TEST(Signature, OfALaterSystemHasOneDirectory) {
  const Bytes file =
      signature::withSignature(test::contentsOf(fmt::format("{}/later_system-arm64.dylib", IMAGES)), "test");
  EXPECT_EQ(judged(file), Lines{});
  const size_t start = readImage(file).front().signatures.front().offset;
  EXPECT_EQ(get32(file, start + 8, true), 3u);
  EXPECT_EQ(file[start + get32(file, start + 16, true) + 37], 2) << "SHA-256";
}

TEST(SignatureTools, SignAndVerifyFiles) {
  const std::string file = testing::TempDir() + "signature_test.dylib";
  const std::string image = fmt::format("{}/good-arm64.dylib", IMAGES);
  EXPECT_EQ(test::run(fmt::format("'{}' some.name '{}' '{}'", SIGN, image, file)).status, 0);
  const test::Outcome good = test::run(fmt::format("'{}' '{}'", VERIFY, file));
  EXPECT_EQ(good.status, 0);
  EXPECT_EQ(good.lines, Lines{});
  const test::Outcome bad = test::run(fmt::format("'{}' '{}' '{}'", VERIFY, file, image));
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.lines, Lines{image + ": no signature"});
}

TEST(SignatureTools, NameTheFileThatIsNone) {
  for (const std::string& tool : {fmt::format("'{}' name", SIGN), fmt::format("'{}'", VERIFY)}) {
    const test::Outcome missing =
        test::run(tool + " /nowhere " + (tool.find("name") != tool.npos ? "/tmp/out" : ""));
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.lines, Lines{"/nowhere: cannot be read"});
  }
  EXPECT_EQ(test::run(fmt::format("'{}' /etc/passwd", VERIFY)).status, 2);
}

// What knows nothing of our own reading of the format.
TEST(Signature, ReadsTheSameByOtherMeans) {
  const std::string reader = fmt::format("python3 '{}'", READER);
  const test::Outcome good = test::run(fmt::format("{} '{}'", reader, LIBRARY));
  EXPECT_EQ(good.status, 0) << testing::PrintToString(good.lines);
  ASSERT_EQ(good.lines.size(), 2u);
  for (const std::string& line : good.lines) EXPECT_TRUE(line.ends_with(" pages, com.wexor.tilo")) << line;
  Bytes file = shipped();
  file[readImage(file)[0].start + 0x5000] ^= 1;
  const std::string changed = testing::TempDir() + "signature_changed.dylib";
  test::writeContents(changed, file);
  EXPECT_EQ(test::run(fmt::format("{} '{}'", reader, changed)).status, 1);
}

}  // namespace
