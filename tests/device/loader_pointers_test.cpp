// The loader and pointers that are not where pointers may be, and a slice that is not where slices may be.
#include "loader_fixture.hpp"

namespace {

using namespace device;
using namespace device::test;

class LoadedPointers : public test::Loader {
 protected:
  // One pointer after another, each by its segment and its place in that, in place of those of the slice.
  void rebase(const std::vector<std::pair<size_t, uint64_t>>& places) {
    Bytes program{0x11};
    for (auto [segment, offset] : places) {
      program.push_back(static_cast<uint8_t>(0x20 | segment));
      for (; offset > 0x7f; offset >>= 7) program.push_back(static_cast<uint8_t>(offset | 0x80));
      program.push_back(static_cast<uint8_t>(offset));
      program.push_back(0x51);
    }
    program.resize(slice.loaderInfo.rebases.size);
    std::ranges::copy(program,
                      file.begin() + static_cast<long>(slice.start + slice.loaderInfo.rebases.offset));
  }
  void expectRefusedAt(uint64_t offset, const std::string& words) {
    file = shipped();
    rebase({{data, offset}});
    expectRefused(words);
  }

  size_t data = static_cast<size_t>(std::ranges::find(slice.segments, "__DATA", &Segment::name) -
                                    slice.segments.begin());
  uint64_t size = slice.segments[data].size, word = slice.is64 ? 8 : 4;
};

INSTANTIATE_TEST_SUITE_P(Slices, LoadedPointers, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(LoadedPointers, AreOfASegmentThatIsThere) {
  rebase({{slice.segments.size(), 0}});
  expectRefused(fmt::format("a pointer of segment {}, which is not there", slice.segments.size()));
}

TEST_P(LoadedPointers, LieWholeInTheirSegment) {
  expectRefusedAt(size, "outside segment __DATA");
  expectRefusedAt(size - word + 1, "outside segment __DATA");
  expectRefusedAt(size - word, "is to 0x0, outside the image");
}

TEST_P(LoadedPointers, AreNothingBehindTheBytesOfTheFile) {
  const uint64_t bytes = slice.segments[data].fileSize - word;
  rebase({{data, bytes}});
  set32(section("__DATA") + (slice.is64 ? 40 : 28), static_cast<uint32_t>(bytes));
  expectRefused("is to 0x0, outside the image");
}

// Neither to the header nor behind the last segment.
TEST_P(LoadedPointers, LeadIntoTheImage) {
  const Segment& last = slice.segments.back();
  const auto begin = static_cast<uint32_t>(slice.commandsEnd),
             end = static_cast<uint32_t>(last.address + last.size);
  for (uint32_t target : {begin - 1, begin, end - 1, end}) {
    SCOPED_TRACE(target);
    file = shipped();
    rebase({{data, 0}});
    set32(slice.segments[data].fileOffset, target);
    if (slice.is64) set32(slice.segments[data].fileOffset + 4, 0);
    expectRefused(target == begin || target == end - 1 ? "is not rebased" : "outside the image");
  }
}

TEST_P(LoadedPointers, LieInAWord) { expectRefusedAt(2, "across words"); }

TEST_P(LoadedPointers, AreFilledInOnce) {
  const uint64_t offset = slice.segments[data].address;
  const Layout layout = layOut(shipped(), GetParam());
  const auto first = std::ranges::find_if(layout.rebases, [&](uint64_t at) { return at >= offset; });
  ASSERT_NE(first, layout.rebases.end());
  rebase({{data, *first - offset}, {data, *first - offset}});
  expectRefused("is filled in twice");
}

TEST_P(LoadedPointers, AreThoseThatCodeGoesThrough) {
  rebase({});
  expectRefused("is not rebased");
}

TEST_P(LoadedPointers, AreOffersOfWhatIsInTheImage) {
  const auto uleb = [](uint64_t value, size_t length) {
    Bytes bytes;
    for (; bytes.size() + 1 < length; value >>= 7) bytes.push_back(static_cast<uint8_t>(value | 0x80));
    bytes.push_back(static_cast<uint8_t>(value & 0x7f));
    return bytes;
  };
  const Layout layout = layOut(shipped(), GetParam());
  const Bytes old = uleb(layout.exports.front().address, 3);
  const auto trie = shipped().begin() + static_cast<long>(slice.start + slice.loaderInfo.exports.offset);
  const auto found = std::search(trie, trie + slice.loaderInfo.exports.size, old.begin(), old.end());
  ASSERT_NE(found, trie + slice.loaderInfo.exports.size);
  for (uint64_t address : {layout.size - 1, layout.size}) {
    file = shipped();
    std::ranges::copy(uleb(address, 3), file.begin() + (found - shipped().begin()));
    expectRefused(address < layout.size ? "the hash of page" : "lies outside the image");
  }
}

// The slice further back in the file, by a page of the smaller kind.
TEST_P(LoadedPointers, AreOfASliceThatBeginsWithAPage) {
  file.insert(file.begin() + static_cast<long>(slice.start), 0x1000, 0);
  for (size_t i = 0; i < 2; ++i) {
    const size_t entry = 8 + 20 * i;
    uint32_t offset;
    std::memcpy(&offset, file.data() + entry + 8, 4);
    offset = __builtin_bswap32(offset);
    if (offset >= slice.start) offset += 0x1000;
    offset = __builtin_bswap32(offset);
    std::memcpy(file.data() + entry + 8, &offset, 4);
  }
  EXPECT_EQ(refusal(file, GetParam()), slice.is64 ? "the slice starts inside a page of the file" : "");
}

}  // namespace
