// The form of a code signature that vouches for nobody: the numbers, the blobs, and what a code directory
// holds. Integers are big-endian.
//
// A signature is one blob of blobs, at the very end of a slice, in this order: a code directory (slot 0), the
// requirements (2), the entitlements (5), and, where there are two, the other code directory (0x1000). A
// directory has a hash of every page of the slice before the signature, the load command that tells of it
// included, and hashes of the other blobs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "device/signature/hash.hpp"
#include "device/tools/macho_image.hpp"

namespace device::signature {

enum Magic : uint32_t {
  blobOfBlobs = 0xfade0cc0,
  codeDirectory = 0xfade0c02,
  requirementSet = 0xfade0c01,
  entitlementText = 0xfade7171,
};

enum Slot : uint32_t { directory = 0, requirements = 2, entitlements = 5, otherDirectory = 0x1000 };

constexpr uint32_t specialSlots = entitlements;  // a directory's slots before its pages, counted backwards
constexpr uint32_t pageSize = 4096;              // the only one that iOS 9 takes
constexpr uint32_t alignment = 16;               // of the signature in the slice
constexpr uint32_t commandNumber = 0x1d, commandSize = 16;

// What is signed of a slice.
struct Subject {
  std::string identifier;
  uint64_t limit = 0;     // bytes before the signature
  uint64_t textSize = 0;  // of the segment __TEXT in the file, which begins with it
  bool program = false;   // a main executable

  uint64_t pages() const { return (limit + pageSize - 1) / pageSize; }
};

// Of the slice, once it has the signature's load command.
Subject subjectOf(const Slice& slice, std::string identifier);

// The hashes that loaders of the slice's oldest system and of later ones ask for: iOS 9 and 10 want SHA-1
// first, later ones SHA-256.
std::vector<HashKind> hashesFor(const Slice& slice);

// A number at the head of a code directory.
struct Field {
  const char* name;
  uint32_t width;  // bytes; each begins where the one before ends
  uint64_t value;
};

// All of them, as they have to be. The identifier follows, with a zero; then the hashes: special slots from
// the last to the first, pages in their order.
std::vector<Field> directoryHead(const Subject& subject, HashKind kind);
constexpr uint32_t headSize = 88;
uint32_t hashesStart(const Subject& subject,
                     HashKind kind);  // of the first page's, from the directory's start
uint32_t directorySize(const Subject& subject, HashKind kind);

uint64_t bigEndian(std::span<const uint8_t> bytes, size_t at, size_t width);
void putBigEndian(std::vector<uint8_t>& bytes, uint64_t value, size_t width);

}  // namespace device::signature
