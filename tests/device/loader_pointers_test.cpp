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
      append(program, 0x20, segment, offset);
      program.push_back(0x51);
    }
    put(program, slice.loaderInfo.rebases);
  }

  // One import alone, into __DATA, in place of all that are not lazy.
  void bind(const Import& import, uint64_t offset) {
    Bytes program{static_cast<uint8_t>(0x10 | import.ordinal), 0x40};
    std::ranges::copy(import.name, std::back_inserter(program));
    program.push_back(0);
    append(program, 0x70, data, offset);
    program.push_back(0x90);
    put(program, slice.loaderInfo.bindings);
  }

  // Where the first pointer of __DATA that is rebased is in that segment.
  uint64_t firstRebased() const {
    const Layout layout = layOut(shipped(), GetParam());
    const auto first =
        std::ranges::find_if(layout.rebases, [&](uint64_t at) { return at >= slice.segments[data].address; });
    if (first == layout.rebases.end()) throw std::runtime_error("no pointer of __DATA is rebased");
    return *first - slice.segments[data].address;
  }

  void expectRefusedAt(uint64_t offset, const std::string& words) {
    file = shipped();
    rebase({{data, offset}});
    expectRefused(words);
  }

  size_t data = static_cast<size_t>(std::ranges::find(slice.segments, "__DATA", &Segment::name) -
                                    slice.segments.begin());
  uint64_t size = slice.segments[data].size, word = slice.is64 ? 8 : 4;

 private:
  static void append(Bytes& program, size_t opcode, size_t segment, uint64_t offset) {
    program.push_back(static_cast<uint8_t>(opcode | segment));
    for (; offset > 0x7f; offset >>= 7) program.push_back(static_cast<uint8_t>(offset | 0x80));
    program.push_back(static_cast<uint8_t>(offset));
  }

  // In place of what stands there; the rest is padding.
  void put(Bytes program, const Extent& extent) {
    ASSERT_LE(program.size(), extent.size);
    program.resize(extent.size);
    std::ranges::copy(program, file.begin() + static_cast<long>(slice.start + extent.offset));
  }
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

TEST_P(LoadedPointers, AreRebasedOnce) {
  rebase({{data, firstRebased()}, {data, firstRebased()}});
  expectRefused("is filled in twice");
}

TEST_P(LoadedPointers, AreRebasedOrBound) {
  const auto import = std::ranges::find(slice.imports, Import::Table::bind, &Import::table);
  ASSERT_NE(import, slice.imports.end());
  bind(*import, firstRebased());
  expectRefused(
      fmt::format("the pointer at {:#x} is filled in twice", slice.segments[data].address + firstRebased()));
}

TEST_P(LoadedPointers, AreThoseThatCodeGoesThrough) {
  const Section& section = *std::ranges::find_if(slice.sections, [](const Section& each) {
    return each.type == initialiserPointers || each.type == lazyPointers;
  });
  rebase({});
  expectRefused(
      fmt::format("the pointer at {:#x} in section {} is not rebased", section.address, section.name));
  rebase({{data, section.address - slice.segments[data].address}});
  expectRefused(
      fmt::format("the pointer at {:#x} in section {} is not rebased", section.address + word, section.name));
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
