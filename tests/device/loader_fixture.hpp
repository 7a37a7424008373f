// What the tests of the loader change: the file that ships, and why the loader refuses it then.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>

#include "device/loader/layout.hpp"
#include "device/tools/byte_reader.hpp"
#include "device/tools/macho_image.hpp"

namespace device::test {

using loader::Layout;
using loader::Refusal;
using Bytes = std::vector<uint8_t>;

inline const Bytes& shipped() {
  static const Bytes file = [] {
    std::ifstream in(LIBRARY, std::ios::binary);
    return Bytes{std::istreambuf_iterator<char>(in), {}};
  }();
  return file;
}

inline const Policy& policy() {
  static const Policy ofWhatShips = [] {
    std::ifstream in(LIBRARY_EXPORTS);
    return Policy{readImportLists(IMPORTS), {std::istream_iterator<std::string>(in), {}}};
  }();
  return ofWhatShips;
}

inline Layout layOut(const Bytes& file, const std::string& architecture) {
  return loader::layOut(file, architecture, policy());
}

inline Slice sliceOf(const Bytes& file, const std::string& architecture) {
  for (Slice& slice : readImage(file))
    if (slice.architecture == architecture) return slice;
  throw std::runtime_error("no such slice");
}

// Why the file is refused; empty when it is taken.
inline std::string refusal(const Bytes& file, const std::string& architecture) {
  try {
    layOut(file, architecture);
    return "";
  } catch (const Refusal& reason) {
    return reason.what();
  }
}

// Both slices, under test by turns: a change is made to a copy of the file that ships.
class Loader : public testing::TestWithParam<const char*> {
 protected:
  void set32(size_t at, uint32_t value) { std::memcpy(file.data() + slice.start + at, &value, sizeof value); }

  uint32_t get32(size_t at) const { return ByteReader(file, slice.start + at).take<uint32_t>(); }

  // Where the load command of that number is, from the slice's start.
  size_t command(uint32_t number) const {
    size_t at = slice.is64 ? 32 : 28;
    for (uint32_t i = 0; i < get32(16); ++i, at += get32(at + 4))
      if (get32(at) == number) return at;
    ADD_FAILURE() << "no command " << number;
    return 0;
  }

  // Where the header of that section is; its name comes first.
  size_t section(const std::string& name) const {
    char field[16] = {};
    name.copy(field, sizeof field);
    auto begin = file.begin() + static_cast<long>(slice.start);
    auto end = begin + static_cast<long>(slice.commandsEnd);
    auto found = std::search(begin, end, std::begin(field), std::end(field));
    if (found == end) ADD_FAILURE() << "no section " << name;
    return static_cast<size_t>(found - begin);
  }

  void rename(const std::string& from, const std::string& to) {
    size_t at = slice.start + section(from);
    std::fill_n(file.begin() + static_cast<long>(at), 16, uint8_t{0});
    std::ranges::copy(to, file.begin() + static_cast<long>(at));
  }

  // Where the name stands in one of the programs of bindings.
  size_t boundName(const std::string& name) const {
    for (const Extent& extent : {slice.loaderInfo.bindings, slice.loaderInfo.lazyBindings}) {
      auto begin = file.begin() + static_cast<long>(slice.start + extent.offset);
      auto end = begin + extent.size;
      auto found = std::search(begin, end, name.c_str(), name.c_str() + name.size() + 1);
      if (found != end) return static_cast<size_t>(found - file.begin());
    }
    ADD_FAILURE() << name << " is not bound";
    return 0;
  }

  void expectRefused(const std::string& words) {
    EXPECT_EQ(refusal(shipped(), GetParam()), "");
    EXPECT_NE(refusal(file, GetParam()).find(words), std::string::npos) << refusal(file, GetParam());
  }

  Bytes file = shipped();
  Slice slice = sliceOf(shipped(), GetParam());
};

}  // namespace device::test
