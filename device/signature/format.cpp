// What a code directory's head has to say. Kernels refuse one that is shorter than their own idea of it, so
// it has all the fields that iOS 12 knows.
#include "device/signature/format.hpp"

#include <algorithm>
#include <stdexcept>

#include "device/tools/byte_reader.hpp"

namespace device::signature {
namespace {

constexpr uint32_t directoryVersion = 0x20400;
constexpr uint32_t adHoc = 2;
constexpr uint32_t mainProgram = 1;
constexpr uint32_t pageBits = 12;
constexpr uint32_t firstOfSha256 = 11 << 16;
constexpr uint32_t programFile = 2;

}  // namespace

Subject subjectOf(const Slice& slice, std::string identifier) {
  Subject subject{.identifier = std::move(identifier), .program = slice.fileType == programFile};
  if (!slice.signatures.empty()) subject.limit = slice.signatures.front().offset;
  const auto text = std::ranges::find(slice.segments, "__TEXT", &Segment::name);
  if (text == slice.segments.end()) throw std::runtime_error("no segment __TEXT");
  subject.textSize = text->fileSize;
  return subject;
}

std::vector<HashKind> hashesFor(const Slice& slice) {
  if (slice.minimumSystem >= firstOfSha256) return {HashKind::sha256};
  return {HashKind::sha1, HashKind::sha256};
}

uint32_t hashesStart(const Subject& subject, HashKind kind) {
  return static_cast<uint32_t>(headSize + subject.identifier.size() + 1 + specialSlots * hashSize(kind));
}

uint32_t directorySize(const Subject& subject, HashKind kind) {
  return static_cast<uint32_t>(hashesStart(subject, kind) + subject.pages() * hashSize(kind));
}

std::vector<Field> directoryHead(const Subject& subject, HashKind kind) {
  return {
      {"magic", 4, codeDirectory},
      {"length", 4, directorySize(subject, kind)},
      {"version", 4, directoryVersion},
      {"flags", 4, adHoc},
      {"hashOffset", 4, hashesStart(subject, kind)},
      {"identOffset", 4, headSize},
      {"nSpecialSlots", 4, specialSlots},
      {"nCodeSlots", 4, subject.pages()},
      {"codeLimit", 4, subject.limit},
      {"hashSize", 1, hashSize(kind)},
      {"hashType", 1, static_cast<uint64_t>(kind)},
      {"platform", 1, 0},
      {"pageSize", 1, pageBits},
      {"spare2", 4, 0},
      {"scatterOffset", 4, 0},
      {"teamOffset", 4, 0},
      {"spare3", 4, 0},
      {"codeLimit64", 8, 0},
      {"execSegBase", 8, 0},
      {"execSegLimit", 8, subject.textSize},
      {"execSegFlags", 8, subject.program ? mainProgram : 0},
  };
}

uint64_t bigEndian(std::span<const uint8_t> bytes, size_t at, size_t width) {
  uint64_t value = 0;
  for (uint8_t byte : part(bytes, at, width)) value = value << 8 | byte;
  return value;
}

void putBigEndian(std::vector<uint8_t>& bytes, uint64_t value, size_t width) {
  while (width-- > 0) bytes.push_back(static_cast<uint8_t>(value >> 8 * width));
}

}  // namespace device::signature
