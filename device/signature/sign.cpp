// The load command first, since the hashes cover it; then the hashes.
#include "device/signature/sign.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

#include "device/signature/format.hpp"
#include "device/tools/byte_reader.hpp"

namespace device::signature {
namespace {

using Bytes = std::vector<uint8_t>;

constexpr std::string_view noEntitlements =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n<dict/>\n</plist>\n";

uint64_t roundedUp(uint64_t value, uint64_t step) { return (value + step - 1) / step * step; }

uint32_t get(const Bytes& bytes, size_t at) { return ByteReader(bytes, at).take<uint32_t>(); }

template <class T>
void set(Bytes& bytes, size_t at, T value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

Bytes blob(uint32_t magic, const Bytes& contents) {
  Bytes made;
  putBigEndian(made, magic, 4);
  putBigEndian(made, 8 + contents.size(), 4);
  made.insert(made.end(), contents.begin(), contents.end());
  return made;
}

// None are required.
Bytes requirementsBlob() { return blob(requirementSet, Bytes(4)); }

Bytes entitlementsBlob() {
  return blob(entitlementText, Bytes(noEntitlements.begin(), noEntitlements.end()));
}

Bytes directoryBlob(const Bytes& slice, const Subject& subject, HashKind kind) {
  Bytes made;
  for (const Field& field : directoryHead(subject, kind)) putBigEndian(made, field.value, field.width);
  made.insert(made.end(), subject.identifier.begin(), subject.identifier.end());
  made.push_back(0);
  const auto add = [&](const Bytes& digest) { made.insert(made.end(), digest.begin(), digest.end()); };
  const Bytes nothing(hashSize(kind));
  static_assert(specialSlots == 5);
  add(hash(kind, entitlementsBlob()));
  add(nothing);
  add(nothing);
  add(hash(kind, requirementsBlob()));
  add(nothing);
  for (uint64_t page = 0; page < subject.limit; page += pageSize)
    add(hash(kind, std::span(slice).subspan(page, std::min<uint64_t>(pageSize, subject.limit - page))));
  return made;
}

struct Part {
  Slot slot;
  Bytes bytes;
};

Bytes joined(const std::vector<Part>& parts) {
  Bytes index, contents;
  const size_t start = 12 + 8 * parts.size();
  for (const Part& part : parts) {
    putBigEndian(index, part.slot, 4);
    putBigEndian(index, start + contents.size(), 4);
    contents.insert(contents.end(), part.bytes.begin(), part.bytes.end());
  }
  Bytes counted;
  putBigEndian(counted, parts.size(), 4);
  counted.insert(counted.end(), index.begin(), index.end());
  counted.insert(counted.end(), contents.begin(), contents.end());
  return blob(blobOfBlobs, counted);
}

Bytes signatureOf(const Bytes& slice, const Subject& subject, const std::vector<HashKind>& kinds) {
  std::vector<Part> parts{{directory, directoryBlob(slice, subject, kinds.front())},
                          {requirements, requirementsBlob()},
                          {entitlements, entitlementsBlob()}};
  if (kinds.size() > 1) parts.push_back({otherDirectory, directoryBlob(slice, subject, kinds.back())});
  return joined(parts);
}

Slice readUnsigned(const Bytes& bytes) {
  const std::vector<Slice> slices = readImage(bytes);
  if (slices.size() != 1 || !slices.front().announced.empty())
    throw std::runtime_error("a universal file; sign its slices");
  const Slice& slice = slices.front();
  if (!slice.signatures.empty()) throw std::runtime_error("signed already");
  for (const Section& section : slice.sections) {
    if (section.offset == 0) continue;
    const uint64_t room = section.offset - std::min<uint64_t>(section.offset, slice.commandsEnd);
    if (room < commandSize)
      throw std::runtime_error(
          fmt::format("the header has {} bytes to spare before section {}, and the signature needs {}", room,
                      section.name, commandSize));
  }
  if (slice.segments.empty() || slice.segments.back().name != "__LINKEDIT" ||
      slice.segments.back().fileOffset + slice.segments.back().fileSize != bytes.size())
    throw std::runtime_error("does not end with its segment __LINKEDIT");
  return slice;
}

template <class Word>
void widenLinkedit(Bytes& bytes, size_t command, Word size, Word page) {
  set(bytes, command + 24 + sizeof size, static_cast<Word>(roundedUp(size, page)));
  set(bytes, command + 24 + 3 * sizeof size, size);
}

void addCommand(Bytes& bytes, const Slice& slice, uint32_t signatureSize) {
  const auto signature = static_cast<uint32_t>(bytes.size());
  set(bytes, 16, get(bytes, 16) + 1);
  set(bytes, 20, get(bytes, 20) + commandSize);
  set(bytes, slice.commandsEnd, std::to_array({commandNumber, commandSize, signature, signatureSize}));
  const Segment& linkedit = slice.segments.back();
  const uint64_t size = signature + signatureSize - linkedit.fileOffset;
  if (slice.is64)
    widenLinkedit<uint64_t>(bytes, linkedit.command, size, 0x4000);
  else
    widenLinkedit<uint32_t>(bytes, linkedit.command, static_cast<uint32_t>(size), 0x1000);
}

}  // namespace

Bytes withSignature(Bytes slice, const std::string& identifier) {
  const Slice before = readUnsigned(slice);
  const std::vector<HashKind> kinds = hashesFor(before);
  slice.resize(roundedUp(slice.size(), alignment));
  Subject subject = subjectOf(before, identifier);
  subject.limit = slice.size();
  // Its size depends on the count of pages alone.
  const uint64_t size = roundedUp(signatureOf(slice, subject, kinds).size(), alignment);
  addCommand(slice, before, static_cast<uint32_t>(size));
  Bytes signature = signatureOf(slice, subject, kinds);
  signature.resize(size);
  slice.insert(slice.end(), signature.begin(), signature.end());
  return slice;
}

}  // namespace device::signature
