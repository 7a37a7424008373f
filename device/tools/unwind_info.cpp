// Decodes __unwind_info: an index of pages, each of which has its entries whole or in 32 bits.
#include "device/tools/unwind_info.hpp"

#include <fmt/format.h>

#include "device/tools/byte_reader.hpp"

namespace device {
namespace {

constexpr uint32_t version = 1;
enum PageKind : uint32_t { whole = 2, compressed = 3 };

// `count` words from `offset`.
std::vector<uint32_t> words(std::span<const uint8_t> section, uint32_t offset, uint32_t count) {
  ByteReader in(part(section, offset, uint64_t{4} * count));
  std::vector<uint32_t> read(count);
  for (uint32_t& word : read) word = in.take<uint32_t>();
  return read;
}

struct Page {
  std::span<const uint8_t> bytes;
  uint32_t firstAddress = 0;  // of the code that it is about

  uint32_t kind() const { return ByteReader(bytes).take<uint32_t>(); }

  // Two numbers of 16 bits, where a list begins and how many there are.
  std::vector<uint32_t> list(size_t at, uint32_t wordsEach = 1) const {
    ByteReader in(bytes, at);
    const auto offset = in.take<uint16_t>();
    return words(bytes, offset, in.take<uint16_t>() * wordsEach);
  }
};

void addWhole(const Page& page, std::vector<Unwinding>& found) {
  const std::vector<uint32_t> entries = page.list(4, 2);
  for (size_t i = 0; i < entries.size(); i += 2) found.push_back({entries[i], entries[i + 1]});
}

// The upper 8 bits choose among the encodings that all pages share, and then among the page's own.
void addCompressed(const Page& page, std::span<const uint32_t> shared, std::vector<Unwinding>& found) {
  std::vector<uint32_t> encodings(shared.begin(), shared.end());
  const std::vector<uint32_t> own = page.list(8);
  encodings.insert(encodings.end(), own.begin(), own.end());
  for (uint32_t entry : page.list(4)) {
    const uint32_t chosen = entry >> 24, distance = entry & 0xffffff;
    if (chosen >= encodings.size())
      throw std::runtime_error(fmt::format("unwind tables: no encoding {}", chosen));
    found.push_back({uint64_t{page.firstAddress} + distance, encodings[chosen]});
  }
}

}  // namespace

std::vector<Unwinding> readUnwindInfo(std::span<const uint8_t> section) {
  ByteReader header(section);
  if (auto given = header.take<uint32_t>(); given != version)
    throw std::runtime_error(fmt::format("unwind tables of version {}", given));
  const auto sharedAt = header.take<uint32_t>(), sharedCount = header.take<uint32_t>();
  const std::vector<uint32_t> shared = words(section, sharedAt, sharedCount);
  header.skip(8);  // functions that are asked before a frame is left: code without exceptions has none
  const auto indexAt = header.take<uint32_t>(), indexCount = header.take<uint32_t>();
  // Where code begins, its page, and what is told of handlers within it.
  const std::vector<uint32_t> index = words(section, indexAt, 3 * indexCount);
  std::vector<Unwinding> found;
  for (size_t i = 0; i < index.size(); i += 3) {
    if (index[i + 1] == 0) {
      found.push_back({index[i], 0});  // the end
      continue;
    }
    const Page page{
        part(section, index[i + 1], section.size() - std::min<size_t>(index[i + 1], section.size())),
        index[i]};
    switch (page.kind()) {
      case whole:
        addWhole(page, found);
        break;
      case compressed:
        addCompressed(page, shared, found);
        break;
      default:
        throw std::runtime_error(fmt::format("unwind tables: a page of kind {}", page.kind()));
    }
  }
  return found;
}

}  // namespace device
