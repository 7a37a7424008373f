// From the outside inwards: where the signature lies, its blobs, its directories, and their hashes.
#include "device/signature/verify.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "device/signature/format.hpp"
#include "device/tools/byte_reader.hpp"

namespace device::signature {
namespace {

using Bytes = std::span<const uint8_t>;

struct Blob {
  Slot slot;
  Bytes bytes;
};

std::string blobName(uint32_t slot) {
  switch (slot) {
    case directory:
      return "code directory";
    case requirements:
      return "requirements blob";
    case entitlements:
      return "entitlements blob";
    case otherDirectory:
      return "second code directory";
    default:
      return fmt::format("blob of slot {:#x}", slot);
  }
}

std::string identifierIn(Bytes directory) { return ByteReader(directory, headSize).takeString(); }

bool same(Bytes a, Bytes b) { return std::ranges::equal(a, b); }

bool isZero(Bytes bytes) {
  return std::ranges::all_of(bytes, [](uint8_t byte) { return byte == 0; });
}

class Examination {
 public:
  Examination(Bytes bytes, const Slice& slice) : bytes(bytes), slice(slice) {}

  std::vector<std::string> run() && {
    try {
      if (checkPlace() && readBlobs()) checkDirectories();
    } catch (const std::runtime_error& error) {
      find("{}", error.what());
    }
    return std::move(lines);
  }

 private:
  template <class... A>
  void find(fmt::format_string<A...> text, A&&... values) {
    lines.push_back(fmt::format(text, std::forward<A>(values)...));
  }

  bool checkPlace() {
    if (slice.signatures.size() != 1) {
      find("{}", slice.signatures.empty() ? "no signature" : "more than one signature");
      return false;
    }
    const Extent& place = slice.signatures.front();
    const uint64_t end = uint64_t{place.offset} + place.size;
    if (place.offset % alignment)
      find("the signature starts at {:#x}, no multiple of {}", place.offset, alignment);
    if (end > bytes.size()) find("the signature ends {} bytes behind the file", end - bytes.size());
    if (end < bytes.size()) find("{} bytes follow the signature", bytes.size() - end);
    if (uint64_t{slice.strings.offset} + slice.strings.size > place.offset)
      find("the symbols' names run into the signature");
    checkHeader();
    checkLastSegment(end);
    return lines.empty();
  }

  void checkHeader() {
    for (const Section& section : slice.sections)
      if (section.offset != 0 && section.offset < slice.commandsEnd)
        find("the header is {} bytes too short for its load commands: section {} begins in them",
             slice.commandsEnd - section.offset, section.name);
  }

  void checkLastSegment(uint64_t end) {
    if (slice.segments.empty() || slice.segments.back().name != "__LINKEDIT")
      return find("__LINKEDIT is not the last segment");
    const Segment& last = slice.segments.back();
    const uint64_t page = slice.is64 ? 0x4000 : 0x1000;
    if (last.fileOffset + last.fileSize != end) find("__LINKEDIT does not end with the signature");
    if (last.size < last.fileSize || last.size % page)
      find("__LINKEDIT takes {:#x} bytes of memory", last.size);
  }

  // The slots that there have to be, with nothing between them and nothing behind but zeros up to the
  // alignment.
  bool readBlobs() {
    const Extent& place = slice.signatures.front();
    const Bytes whole = part(bytes, place.offset, place.size);
    if (bigEndian(whole, 0, 4) != blobOfBlobs) find("the signature is no blob of blobs");
    const uint64_t length = bigEndian(whole, 4, 4), count = bigEndian(whole, 8, 4);
    if (length > whole.size() || whole.size() - length >= alignment ||
        !isZero(part(whole, length, whole.size() - length)))
      find("the signature is {} bytes long and says {}", whole.size(), length);
    kinds = hashesFor(slice);
    std::vector<Slot> wanted{directory, requirements, entitlements};
    if (kinds.size() > 1) wanted.push_back(otherDirectory);
    uint64_t at = 12 + 8 * count;
    for (uint64_t i = 0; i < count; ++i) {
      const auto slot = static_cast<Slot>(bigEndian(whole, 12 + 8 * i, 4));
      const uint64_t start = bigEndian(whole, 16 + 8 * i, 4);
      if (start != at) find("the {} starts at {:#x}, not {:#x}", blobName(slot), start, at);
      const uint64_t size = bigEndian(whole, start + 4, 4);
      blobs.push_back({slot, part(whole, start, size)});
      at = start + size;
    }
    if (at != length) find("the blobs end at {:#x}, the signature at {:#x}", at, length);
    for (Slot slot : wanted)
      if (!blob(slot)) find("no {}", blobName(slot));
    for (const Blob& other : blobs)
      if (std::ranges::find(wanted, other.slot) == wanted.end()) find("a {}", blobName(other.slot));
    if (lines.empty() && !std::ranges::equal(blobs, wanted, {}, &Blob::slot))
      find("the blobs are out of order");
    return lines.empty();
  }

  std::optional<Bytes> blob(Slot slot) const {
    const auto found = std::ranges::find(blobs, slot, &Blob::slot);
    if (found == blobs.end()) return std::nullopt;
    return found->bytes;
  }

  void checkDirectories() {
    if (bigEndian(*blob(requirements), 0, 4) != requirementSet) find("the requirements blob is none");
    if (bigEndian(*blob(entitlements), 0, 4) != entitlementText) find("the entitlements blob is none");
    checkDirectory(*blob(directory), kinds.front());
    if (kinds.size() == 1) return;
    checkDirectory(*blob(otherDirectory), kinds.back());
    if (identifierIn(*blob(directory)) != identifierIn(*blob(otherDirectory)))
      find("the two code directories bear different names");
  }

  void checkDirectory(Bytes bytesOfIt, HashKind kind) {
    const Subject subject = subjectOf(slice, identifierIn(bytesOfIt));
    const size_t before = lines.size();
    if (subject.identifier.empty()) find("{} directory: no identifier", hashName(kind));
    size_t place = 0;
    for (const Field& field : directoryHead(subject, kind)) {
      if (const uint64_t value = bigEndian(bytesOfIt, place, field.width); value != field.value)
        find("{} directory: {} is {:#x}, not {:#x}", hashName(kind), field.name, value, field.value);
      place += field.width;
    }
    if (lines.size() == before) checkHashes(bytesOfIt, subject, kind);
  }

  void checkHashes(Bytes directory, const Subject& subject, HashKind kind) {
    const size_t size = hashSize(kind), start = hashesStart(subject, kind);
    for (uint32_t slot = 1; slot <= specialSlots; ++slot) {
      const Bytes written = part(directory, start - slot * size, size);
      const std::optional<Bytes> target = blob(static_cast<Slot>(slot));
      if (target ? !same(written, hash(kind, *target)) : !isZero(written))
        find("{} directory: special slot -{} is wrong ({})", hashName(kind), slot, blobName(slot));
    }
    for (uint64_t page = 0; page < subject.pages(); ++page) {
      const uint64_t at = page * pageSize;
      const Bytes contents = part(bytes, at, std::min<uint64_t>(pageSize, subject.limit - at));
      if (!same(part(directory, start + page * size, size), hash(kind, contents)))
        find("{} directory: the hash of page {} (at {:#x}) is wrong", hashName(kind), page, at);
    }
  }

  Bytes bytes;
  const Slice& slice;
  std::vector<HashKind> kinds;
  std::vector<Blob> blobs;
  std::vector<std::string> lines;
};

// The head of a universal file, which nothing signs: it repeats what its slices say, and there are zeros
// between them.
class Head {
 public:
  Head(Bytes file, const std::vector<Slice>& slices) : file(file), slices(slices) {}

  std::vector<std::string> run() && {
    constexpr uint32_t alignmentBits = 14;
    uint64_t end = 8 + 20 * slices.size();
    for (size_t i = 0; i < slices.size(); ++i) {
      const Slice& slice = slices[i];
      const size_t entry = 8 + 20 * i;
      for (size_t word : {0, 4})
        if (bigEndian(file, entry + word, 4) != ByteReader(file, slice.start + 4 + word).take<uint32_t>())
          lines.push_back(fmt::format("{}: announced as another processor's", slice.architecture));
      if (bigEndian(file, entry + 16, 4) != alignmentBits || slice.start % (1u << alignmentBits))
        lines.push_back(fmt::format("{}: not aligned to {:#x}", slice.architecture, 1u << alignmentBits));
      checkGap(end, slice.start, slice.architecture);
      end = slice.start + slice.sizeInBytes;
    }
    if (end != file.size()) lines.push_back(fmt::format("{} bytes follow the last slice", file.size() - end));
    return std::move(lines);
  }

 private:
  void checkGap(uint64_t from, uint64_t to, const std::string& name) {
    if (from > to)
      lines.push_back(fmt::format("{}: overlaps what is before it", name));
    else if (!isZero(part(file, from, to - from)))
      lines.push_back(fmt::format("{}: something stands before it", name));
  }

  Bytes file;
  const std::vector<Slice>& slices;
  std::vector<std::string> lines;
};

}  // namespace

std::vector<std::string> findings(Bytes bytes, const Slice& slice) { return Examination(bytes, slice).run(); }

std::vector<std::string> findings(Bytes file) {
  const std::vector<Slice> slices = readImage(file);
  if (slices.size() == 1 && slices.front().announced.empty()) return findings(file, slices.front());
  std::vector<std::string> lines = Head(file, slices).run();
  for (const Slice& slice : slices)
    for (const std::string& line : findings(part(file, slice.start, slice.sizeInBytes), slice))
      lines.push_back(fmt::format("{}: {}", slice.architecture, line));
  return lines;
}

}  // namespace device::signature
