// The loader's own checks, on top of the rules for what ships.
#include "device/loader/layout.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "device/signature/verify.hpp"
#include "device/tools/byte_reader.hpp"
#include "device/tools/macho_image.hpp"

namespace device::loader {
namespace {

using Bytes = std::span<const uint8_t>;

enum Protection : uint32_t { readable = 1, writable = 2, executable = 4 };

template <class... A>
[[noreturn]] void refuse(fmt::format_string<A...> text, A&&... values) {
  throw Refusal(fmt::format(text, std::forward<A>(values)...));
}

class Builder {
 public:
  Builder(Bytes bytes, const Slice& slice) : bytes(bytes), slice(slice) { layout.word = slice.is64 ? 8 : 4; }

  Layout build() && {
    checkTables();
    placeSegments();
    placeRebases();
    checkPointers();
    placeBindings(slice.loaderInfo.bindings, Import::Table::bind);
    placeBindings(slice.loaderInfo.lazyBindings, Import::Table::lazyBind);
    layout.initialisers = slice.initialisers;
    layout.exports = readExports(extent(slice.loaderInfo.exports));
    for (const Export& found : layout.exports)
      if (found.address >= layout.size) refuse("export {} lies outside the image", found.name);
    readUnwinding();
    return std::move(layout);
  }

 private:
  Bytes extent(const Extent& part) const { return device::part(bytes, part.offset, part.size); }

  void checkTables() {
    if (!slice.loaderInfo.present) refuse("no programs of fix-ups");
    if (!slice.symbolTables) refuse("no table of dynamic symbols");
    const uint64_t page = slice.is64 ? 0x4000 : 0x1000;
    if (slice.start % page) refuse("the slice starts inside a page of the file");
    const Segment& first = slice.segments.front();
    if (first.fileOffset != 0 || first.fileSize < slice.commandsEnd)
      refuse("segment {} does not hold the load commands", first.name);
    if (first.protection != (readable | executable)) refuse("segment {} is not code", first.name);
    if (slice.segments.back().protection != readable) refuse("__LINKEDIT is not for reading alone");
    for (const Section& section : slice.sections) checkSection(section);
  }

  void checkSection(const Section& section) {
    auto segment = std::ranges::find(slice.segments, section.segment, &Segment::name);
    // What is before the segment is far behind it so reckoned.
    if (segment == slice.segments.end() || section.address - segment->address > segment->size ||
        section.size > segment->size - (section.address - segment->address))
      refuse("section {} lies outside its segment", section.name);
  }

  void placeSegments() {
    for (const Segment& segment : slice.segments) {
      if ((segment.protection & writable) && (segment.protection & executable))
        refuse("segment {} is for writing and for running", segment.name);
      layout.pieces.push_back({segment.name, segment.address, segment.size,
                               part(bytes, segment.fileOffset, segment.fileSize), segment.protection});
      layout.size = std::max(layout.size, segment.address + segment.size);
    }
  }

  // Every pointer is filled in once, and lies whole within a segment that may be written.
  uint64_t addressOf(const Place& place) {
    if (place.segment >= layout.pieces.size())
      refuse("a pointer of segment {}, which is not there", place.segment);
    const Piece& piece = layout.pieces[place.segment];
    const uint64_t address = piece.address + place.offset;
    if (piece.protection != (readable | writable))
      refuse("a pointer at {:#x} in segment {}", address, piece.name);
    if (layout.word > piece.size - std::min(place.offset, piece.size))
      refuse("a pointer at {:#x}, outside segment {}", address, piece.name);
    if (address % layout.word) refuse("a pointer at {:#x}, across words", address);
    if (!filled.insert(address).second) refuse("the pointer at {:#x} is filled in twice", address);
    return address;
  }

  uint64_t contents(const Piece& piece, uint64_t offset) const {
    return offset < piece.bytes.size() ? ByteReader(piece.bytes, offset).takeWord(slice.is64) : 0;
  }

  // A pointer into the image holds an address of it, and not that of its header.
  void placeRebases() {
    for (const Place& place : readRebases(extent(slice.loaderInfo.rebases), layout.word)) {
      const uint64_t address = addressOf(place);
      const uint64_t target = contents(layout.pieces[place.segment], place.offset);
      if (target < slice.commandsEnd || target >= layout.size)
        refuse("the pointer at {:#x} is to {:#x}, outside the image", address, target);
      layout.rebases.push_back(address);
    }
  }

  // What the system or the image itself calls through is a pointer that the loader knows of.
  void checkPointers() const {
    for (const Section& section : slice.sections) {
      if (section.type != initialiserPointers && section.type != lazyPointers) continue;
      for (uint64_t at = 0; at < section.size; at += layout.word)
        if (!filled.contains(section.address + at))
          refuse("the pointer at {:#x} in section {} is not rebased", section.address + at, section.name);
    }
  }

  // A lazy pointer leads to the code that would have it bound, so it is rebased too; here all are bound at
  // once.
  void placeBindings(const Extent& program, Import::Table table) {
    if (table == Import::Table::lazyBind) filled.clear();
    for (const Binding& binding : readBindings(extent(program), table, layout.word)) {
      const uint64_t address = addressOf(binding.place);
      const std::string& library = slice.loads[static_cast<size_t>(binding.import.ordinal - 1)].installName;
      layout.fillings.push_back({address, binding.import.name, library, binding.addend});
    }
  }

  // In the order of addresses, as what looks a frame up goes by it.
  void readUnwinding() {
    auto section = std::ranges::find(slice.sections, "__unwind_info", &Section::name);
    if (section == slice.sections.end()) return;
    layout.unwinding = readUnwindInfo(device::part(bytes, section->offset, section->size));
    if (!std::ranges::is_sorted(layout.unwinding, {}, &Unwinding::address))
      refuse("unwind tables that are not in order");
    if (!layout.unwinding.empty() && layout.unwinding.back().address > layout.size)
      refuse("unwind tables of code outside the image");
  }

  Bytes bytes;
  const Slice& slice;
  Layout layout;
  std::set<uint64_t> filled;
};

}  // namespace

Layout layOut(Bytes file, std::string_view architecture, const Policy& policy) try {
  for (const Slice& slice : readImage(file)) {
    if ((slice.announced.empty() ? slice.architecture : slice.announced) != architecture) continue;
    if (auto found = findings(slice, policy); !found.empty()) throw Refusal(found.front());
    const Bytes bytes = part(file, slice.start, slice.sizeInBytes);
    Layout layout = Builder(bytes, slice).build();
    // Last, so that what else is wrong with a changed slice has been named.
    if (auto found = signature::findings(bytes, slice); !found.empty()) throw Refusal(found.front());
    return layout;
  }
  refuse("no {} slice", architecture);
} catch (const Refusal&) {
  throw;
} catch (const std::runtime_error& error) {
  refuse("{}", error.what());
}

}  // namespace device::loader
