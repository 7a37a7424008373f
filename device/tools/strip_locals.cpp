// strip_locals: takes the local symbols out of one slice of a dynamic library. They are more than half of it,
// and only crash reports are the poorer. (llvm-strip moves the segments of an armv7 image over one another.)
//
//   strip_locals <in.dylib> <out.dylib>
//
// The linkers end a file with the symbols (local ones first), the indirect symbols and the strings, in this
// order; only these three change, and what says where they are. Fails on any other layout, a signed image
// included.
#include <fmt/format.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

enum Command : uint32_t { segment32 = 0x1, symbolTable = 0x2, dynamicSymbolTable = 0xb, segment64 = 0x19 };

// Entries of the indirect symbols that stand for no symbol.
constexpr uint32_t isLocal = 0x80000000, isAbsolute = 0x40000000;

class Image {
 public:
  explicit Image(std::vector<uint8_t> contents) : bytes(std::move(contents)) {
    auto magic = get(0);
    if (magic != 0xfeedface && magic != 0xfeedfacf)
      throw std::runtime_error("not a slice of little-endian Mach-O");
    is64 = magic == 0xfeedfacf;
    size_t at = is64 ? 32 : 28;
    for (uint32_t i = 0, count = get(16); i < count; ++i) {
      uint32_t command = get(at), size = get(at + 4);
      if (command == symbolTable) symbolsCommand = at;
      if (command == dynamicSymbolTable) dynamicCommand = at;
      if ((command == segment32 || command == segment64) && segmentName(at) == "__LINKEDIT") linkedit = at;
      if (size < 8) throw std::runtime_error("load command without a size");
      at += size;
    }
    if (!symbolsCommand || !dynamicCommand || !linkedit) throw std::runtime_error("no symbols to strip");
  }

  std::vector<uint8_t> stripped() {
    const uint64_t symbolSize = is64 ? 16 : 12;
    uint64_t symbols = get(symbolsCommand + 8), count = get(symbolsCommand + 12);
    uint64_t strings = get(symbolsCommand + 16), stringsSize = get(symbolsCommand + 20);
    uint64_t locals = get(dynamicCommand + 12);
    uint64_t indirect = get(dynamicCommand + 56), indirectCount = get(dynamicCommand + 60);
    if (get(dynamicCommand + 8) != 0 || locals > count || indirect < symbols + count * symbolSize ||
        strings < indirect + 4 * indirectCount || strings + stringsSize != bytes.size())
      throw std::runtime_error("symbols are not laid out as the linkers do");

    std::vector<uint8_t> out(bytes.begin(), bytes.begin() + symbols);
    std::string names(1, '\0');
    for (uint64_t i = locals; i < count; ++i) {
      uint64_t at = symbols + i * symbolSize;
      std::string name = nameAt(strings + get(at));
      set(at, static_cast<uint32_t>(names.size()));
      names += name + '\0';
      out.insert(out.end(), bytes.begin() + at, bytes.begin() + at + symbolSize);
    }
    auto newIndirect = static_cast<uint32_t>(out.size());
    for (uint64_t i = 0; i < indirectCount; ++i) {
      uint32_t index = get(indirect + 4 * i);
      append(out, index & (isLocal | isAbsolute) ? index
                  : index < locals               ? isLocal
                                                 : static_cast<uint32_t>(index - locals));
    }
    auto newStrings = static_cast<uint32_t>(out.size());
    names.resize((names.size() + 7) / 8 * 8);
    out.insert(out.end(), names.begin(), names.end());

    bytes = std::move(out);
    set(symbolsCommand + 12, static_cast<uint32_t>(count - locals));
    set(symbolsCommand + 16, newStrings);
    set(symbolsCommand + 20, static_cast<uint32_t>(names.size()));
    set(dynamicCommand + 12, 0);
    for (size_t first : {dynamicCommand + 16, dynamicCommand + 24})
      set(first, static_cast<uint32_t>(get(first) - locals));
    set(dynamicCommand + 56, newIndirect);
    resizeLinkedit();
    return bytes;
  }

 private:
  uint32_t get(size_t at) const {
    uint32_t value;
    if (at + sizeof value > bytes.size()) throw std::runtime_error("file is cut short");
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
  }

  void set(size_t at, uint32_t value) {
    get(at);
    std::memcpy(bytes.data() + at, &value, sizeof value);
  }

  static void append(std::vector<uint8_t>& out, uint32_t value) {
    const auto* raw = reinterpret_cast<const uint8_t*>(&value);
    out.insert(out.end(), raw, raw + sizeof value);
  }

  std::string nameAt(size_t at) const {
    std::string name;
    for (; at < bytes.size() && bytes[at]; ++at) name += static_cast<char>(bytes[at]);
    if (at >= bytes.size()) throw std::runtime_error("file is cut short");
    return name;
  }

  std::string segmentName(size_t command) const {
    get(command + 20);
    std::string name(reinterpret_cast<const char*>(bytes.data() + command + 8), 16);
    return name.substr(0, name.find('\0'));
  }

  // The segment ends where the file does; in memory, at a page's end. Its words are 8 bytes wide in a 64-bit
  // image, of which the upper halves stay zero.
  void resizeLinkedit() {
    size_t step = is64 ? 8 : 4;
    size_t memorySize = linkedit + 24 + step, fileOffset = memorySize + step, fileSize = fileOffset + step;
    uint32_t page = is64 ? 0x4000 : 0x1000;
    uint32_t size = static_cast<uint32_t>(bytes.size()) - get(fileOffset);
    set(fileSize, size);
    set(memorySize, (size + page - 1) / page * page);
  }

  std::vector<uint8_t> bytes;
  bool is64 = false;
  size_t symbolsCommand = 0, dynamicCommand = 0, linkedit = 0;
};

}  // namespace

int main(int count, char** arguments) try {
  if (count != 3) {
    fmt::print(stderr, "usage: strip_locals <in.dylib> <out.dylib>\n");
    return 2;
  }
  std::ifstream in(arguments[1], std::ios::binary);
  if (!in) throw std::runtime_error("cannot be read");
  Image image({std::istreambuf_iterator<char>(in), {}});
  auto bytes = image.stripped();
  std::ofstream out(arguments[2], std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) throw std::runtime_error(fmt::format("{}: cannot be written", arguments[2]));
  return 0;
} catch (const std::exception& error) {
  fmt::print(stderr, "{}: {}\n", arguments[1], error.what());
  return 1;
}
