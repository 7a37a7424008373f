// How a slice tells the way out of its frames, read, and told again in Linux's way.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>

#include "device/loader/arm64/frames.hpp"
#include "device/tools/macho_image.hpp"
#include "device/tools/unwind_info.hpp"

namespace {

using namespace device;
using Bytes = std::vector<uint8_t>;

Bytes bytesOf(std::initializer_list<uint32_t> words) {
  Bytes bytes(4 * words.size());
  std::memcpy(bytes.data(), std::data(words), bytes.size());
  return bytes;
}

// What a table of these bytes says, and why it is refused where it is.
std::string refusal(const Bytes& section) {
  try {
    readUnwindInfo(section);
    return "";
  } catch (const std::runtime_error& reason) {
    return reason.what();
  }
}

constexpr uint32_t frame = 0x04000000, frameless = 0x02000000;

// Two encodings that pages share, no personalities, and an index of one page and the end of the code.
Bytes table(std::initializer_list<uint32_t> page) {
  Bytes bytes = bytesOf({1, 28, 2, 36, 0, 36, 2, frame | 1, frame | 3, 0x100, 60, 60, 0x900, 0, 60});
  const Bytes more = bytesOf(page);
  bytes.insert(bytes.end(), more.begin(), more.end());
  return bytes;
}

uint32_t halves(uint32_t low, uint32_t high) { return low | high << 16; }

TEST(UnwindTables, HaveTheirEntriesWhole) {
  const auto found = readUnwindInfo(table({2, halves(8, 2), 0x100, frame, 0x180, frameless}));
  EXPECT_EQ(found, (std::vector<Unwinding>{{0x100, frame}, {0x180, frameless}, {0x900, 0}}));
}

TEST(UnwindTables, HaveTheirEntriesIn32BitsWithSharedEncodingsBeforeThePagesOwn) {
  const auto found = readUnwindInfo(
      table({3, halves(12, 3), halves(24, 1), 1 << 24, 0x20, 2 << 24 | 0x40, frameless | 0x1000}));
  EXPECT_EQ(found, (std::vector<Unwinding>{
                       {0x100, frame | 3}, {0x120, frame | 1}, {0x140, frameless | 0x1000}, {0x900, 0}}));
}

TEST(UnwindTables, OfAnotherVersionAreRefused) {
  EXPECT_EQ(refusal(bytesOf({2, 28, 0, 28, 0, 28, 0})), "unwind tables of version 2");
}

TEST(UnwindTables, OfAnUnknownPageAreRefused) {
  EXPECT_EQ(refusal(table({4})), "unwind tables: a page of kind 4");
}

TEST(UnwindTables, WithAnEncodingThatIsNotThereAreRefused) {
  EXPECT_EQ(refusal(table({3, halves(12, 1), halves(16, 1), 3 << 24, frame})),
            "unwind tables: no encoding 3");
}

TEST(UnwindTables, ThatAreCutShortAnywhereAreRefused) {
  const Bytes good = table({3, halves(12, 1), halves(16, 1), 2 << 24, frame});
  ASSERT_EQ(refusal(good), "");
  for (size_t size = 0; size < good.size(); ++size)
    EXPECT_EQ(refusal(Bytes(good.begin(), good.begin() + static_cast<long>(size))), "file is cut short")
        << size;
}

// From the slice that ships: every function but those that call nothing has a frame.
TEST(UnwindTables, OfTheLibraryTellOfAllItsCode) {
  std::ifstream in(LIBRARY, std::ios::binary);
  const Bytes file{std::istreambuf_iterator<char>(in), {}};
  for (const Slice& slice : readImage(file)) {
    if (slice.architecture != "arm64") continue;
    Section code, tables;
    for (const Section& section : slice.sections) {
      if (section.name == "__text") code = section;
      if (section.name == "__unwind_info") tables = section;
    }
    const auto found = readUnwindInfo({file.data() + slice.start + tables.offset, tables.size});
    ASSERT_GT(found.size(), 500u);
    EXPECT_EQ(found.front().address, code.address);
    EXPECT_EQ(found.back().address, code.address + code.size);
    for (size_t i = 0; i + 1 < found.size(); ++i) {
      EXPECT_LT(found[i].address, found[i + 1].address);
      if (found[i].encoding & frame) continue;
      for (uint64_t at = found[i].address; at < found[i + 1].address; at += 4) {
        uint32_t instruction = 0;
        std::memcpy(&instruction, file.data() + slice.start + code.offset + (at - code.address), 4);
        const bool calls = instruction >> 26 == 0x25 || (instruction & 0xfffffc1f) == 0xd63f0000;
        EXPECT_FALSE(calls) << std::hex << at;
      }
    }
  }
}

// The bytes of one entry behind what is shared.
Bytes entryOf(uint32_t encoding) {
  const Unwinding code[]{{0x100, encoding}, {0x140, 0}};
  const Bytes all = loader::frameDescriptions(code, 0x10000);
  uint32_t shared = 0;
  std::memcpy(&shared, all.data(), sizeof shared);
  return {all.begin() + 4 + shared, all.end()};
}

TEST(FrameDescriptions, BeginWithWhatAllFramesShare) {
  const Bytes all = loader::frameDescriptions({}, 0);
  // Version 1, no augmentation, 4 bytes an instruction, places in -8 bytes, returns by register 30; the frame
  // is 16 bytes above register 29; at its second word register 29, at its first 30.
  const Bytes shared{20, 0, 0, 0, 0, 0, 0, 0, 1, 0, 4, 0x78, 30, 0x0c, 29, 16, 0x9d, 2, 0x9e, 1, 0, 0, 0, 0};
  Bytes ended = shared;
  ended.insert(ended.end(), 4, 0);
  EXPECT_EQ(all, ended);
}

TEST(FrameDescriptions, SayWhereTheCodeIsAndWhatItKeeps) {
  // Registers 19 to 22, and the reals 8 and 9.
  EXPECT_EQ(entryOf(frame | 0x103),
            (Bytes{36, 0, 0,    0, 28,   0, 0,    0, 0,    1, 1, 0,  0, 0, 0,  0, 0x40, 0, 0, 0, 0, 0,
                   0,  0, 0x93, 3, 0x94, 4, 0x95, 5, 0x96, 6, 5, 72, 7, 5, 73, 8, 0,    0, 0, 0, 0, 0}));
}

TEST(FrameDescriptions, AreNotThereForCodeThatCallsNothing) {
  EXPECT_EQ(entryOf(frameless | 0x1000), (Bytes{0, 0, 0, 0}));
}

TEST(FrameDescriptions, KeepNothingForBitsThatAreNoPairs) {
  EXPECT_EQ(entryOf(frame | 0x20), entryOf(frame));
  EXPECT_EQ(entryOf(frame | 0x1000), entryOf(frame));
}

TEST(FrameDescriptions, OfAnotherEncodingAreRefused) {
  try {
    entryOf(0x03000000);
    FAIL();
  } catch (const std::runtime_error& reason) {
    EXPECT_STREQ(reason.what(), "code at 0x100 has the unwind encoding 0x3000000");
  }
}

}  // namespace
