// Reads the headers and load commands of Mach-O files. The numbers are those of the file format.
#include "device/tools/macho_image.hpp"

#include <fmt/format.h>

#include <fstream>
#include <iterator>

#include "device/tools/byte_reader.hpp"
#include "device/tools/loader_tables.hpp"

namespace device {
namespace {

using Bytes = std::span<const uint8_t>;

enum Command : uint32_t {
  segment32 = 0x1,
  symbolTable = 0x2,
  dynamicSymbolTable = 0xb,
  loadLibrary = 0xc,
  identifyLibrary = 0xd,
  codeSignature = 0x1d,
  loadLibraryLazily = 0x20,
  loadLibraryUpward = 0x23 | 0x80000000,
  loadLibraryWeakly = 0x18 | 0x80000000,
  reexportLibrary = 0x1f | 0x80000000,
  segment64 = 0x19,
  encryption32 = 0x21,
  encryption64 = 0x2c,
  loaderInfo = 0x22,
  loaderInfoOnly = 0x22 | 0x80000000,
  minimumIOS = 0x25,
  exportTrie = 0x33 | 0x80000000,
  chainedFixups = 0x34 | 0x80000000,
  buildVersion = 0x32,
};

constexpr uint32_t platformIOS = 2;

std::string architectureName(uint32_t type, uint32_t subtype) {
  if (type == 0x0100000c && (subtype & 0xffffff) == 0) return "arm64";
  if (type == 12 && subtype == 9) return "armv7";
  return fmt::format("cpu {}/{}", type, subtype);
}

void readSegment(ByteReader in, uint64_t start, Slice& slice) {
  Segment& segment = slice.segments.emplace_back();
  segment.command = start;
  segment.name = in.takeName(16);
  for (uint64_t* field : {&segment.address, &segment.size, &segment.fileOffset, &segment.fileSize})
    *field = in.takeWord(slice.is64);
  in.skip(4);  // the most that it may be protected to
  segment.protection = in.take<uint32_t>();
  auto count = in.take<uint32_t>();
  in.skip(4);
  for (uint32_t i = 0; i < count; ++i) {
    Section section;
    section.name = in.takeName(16);
    section.segment = in.takeName(16);
    section.address = in.takeWord(slice.is64);
    section.size = in.takeWord(slice.is64);
    section.offset = in.take<uint32_t>();
    in.skip(12);  // alignment, relocations
    section.type = static_cast<uint8_t>(in.take<uint32_t>());
    in.skip(slice.is64 ? 12 : 8);
    slice.sections.push_back(std::move(section));
  }
}

LibraryLoad readLibrary(Bytes command, bool mandatory) {
  ByteReader in(command, 8);
  auto name = in.take<uint32_t>();
  in.skip(8);
  auto compatibility = in.take<uint32_t>();
  return {ByteReader(command, name).takeString(), compatibility, mandatory};
}

void readSymbols(Bytes bytes, ByteReader command, Slice& slice) {
  auto offset = command.take<uint32_t>();
  auto count = command.take<uint32_t>();
  slice.strings.offset = command.take<uint32_t>();
  slice.strings.size = command.take<uint32_t>();
  Bytes strings = part(bytes, slice.strings.offset, slice.strings.size);
  ByteReader in(bytes, offset);
  for (uint32_t i = 0; i < count; ++i) {
    auto name = in.take<uint32_t>();
    Symbol symbol;
    symbol.type = in.take<uint8_t>();
    symbol.section = in.take<uint8_t>();
    symbol.description = in.take<uint16_t>();
    symbol.value = in.takeWord(slice.is64);
    if (name) symbol.name = ByteReader(strings, name).takeString();
    slice.symbols.push_back(std::move(symbol));
  }
}

void readLoaderInfo(Bytes bytes, ByteReader command, Slice& slice) {
  LoaderInfo& info = slice.loaderInfo;
  info.present = true;
  for (Extent* extent :
       {&info.rebases, &info.bindings, &info.weakBindings, &info.lazyBindings, &info.exports}) {
    extent->offset = command.take<uint32_t>();
    extent->size = command.take<uint32_t>();
  }
  auto readTable = [&](const Extent& extent, Import::Table table) {
    auto found = readImports(part(bytes, extent.offset, extent.size), table);
    slice.imports.insert(slice.imports.end(), found.begin(), found.end());
  };
  readTable(info.bindings, Import::Table::bind);
  readTable(info.weakBindings, Import::Table::weakBind);
  readTable(info.lazyBindings, Import::Table::lazyBind);
  for (const Export& found : readExports(part(bytes, info.exports.offset, info.exports.size)))
    slice.exports.push_back(found.name);
}

void readCommand(Bytes bytes, size_t start, size_t size, Slice& slice) {
  const Bytes command = part(bytes, start, size);
  ByteReader in(command);
  auto kind = in.take<uint32_t>();
  in.skip(4);
  switch (kind) {
    case segment32:
    case segment64:
      if (slice.is64 != (kind == segment64)) throw std::runtime_error("a segment of the other width");
      return readSegment(in, start, slice);
    case symbolTable:
      return readSymbols(bytes, in, slice);
    case dynamicSymbolTable:
      slice.symbolTables = true;
      return;
    case codeSignature: {
      Extent& signature = slice.signatures.emplace_back();
      signature.offset = in.take<uint32_t>();
      signature.size = in.take<uint32_t>();
      return;
    }
    case encryption32:
    case encryption64:
      in.skip(8);
      slice.encrypted = in.take<uint32_t>() != 0;
      return;
    case identifyLibrary:
      slice.installName = readLibrary(command, true).installName;
      return;
    case loadLibrary:
      slice.loads.push_back(readLibrary(command, true));
      return;
    case loadLibraryLazily:
    case loadLibraryUpward:
    case loadLibraryWeakly:
    case reexportLibrary:
      slice.loads.push_back(readLibrary(command, false));
      return;
    case loaderInfo:
    case loaderInfoOnly:
      return readLoaderInfo(bytes, in, slice);
    case minimumIOS:
      slice.minimumSystem = in.take<uint32_t>();
      slice.forIOS = true;
      return;
    case buildVersion:
      slice.forIOS = in.take<uint32_t>() == platformIOS;
      slice.minimumSystem = in.take<uint32_t>();
      return;
    case chainedFixups:
      slice.chainedFixups = true;
      return;
    case exportTrie: {
      auto offset = in.take<uint32_t>();
      for (const Export& found : readExports(part(bytes, offset, in.take<uint32_t>())))
        slice.exports.push_back(found.name);
      return;
    }
    default:
      return;
  }
}

// FMADD and its kin; FMLA and FMLS of vectors, by vector and by element.
bool fuses(uint32_t instruction) {
  return (instruction & 0xff000000) == 0x1f000000 || (instruction & 0xbf20fc00) == 0x0e20cc00 ||
         (instruction & 0xbf80b400) == 0x0f801000;
}

std::vector<uint64_t> fusedMultiplications(Bytes code, uint64_t address) {
  std::vector<uint64_t> found;
  for (ByteReader in(code); in.position() + 4 <= code.size(); address += 4)
    if (fuses(in.take<uint32_t>())) found.push_back(address);
  return found;
}

Slice readSlice(Bytes bytes) {
  Slice slice;
  slice.sizeInBytes = bytes.size();
  ByteReader in(bytes);
  auto magic = in.take<uint32_t>();
  if (magic != 0xfeedface && magic != 0xfeedfacf) throw std::runtime_error("not a little-endian Mach-O file");
  slice.is64 = magic == 0xfeedfacf;
  auto type = in.take<uint32_t>();
  slice.architecture = architectureName(type, in.take<uint32_t>());
  slice.fileType = in.take<uint32_t>();
  auto commands = in.take<uint32_t>();
  slice.commandsEnd = in.take<uint32_t>() + (slice.is64 ? 32u : 28u);
  in.skip(slice.is64 ? 8 : 4);
  for (uint32_t i = 0; i < commands; ++i) {
    size_t start = in.position();
    in.skip(4);
    auto size = in.take<uint32_t>();
    if (size < 8) throw std::runtime_error("load command without a size");
    readCommand(bytes, start, size, slice);
    in.skip(size - 8);
  }
  for (const Section& section : slice.sections)
    if (section.type == initialiserPointers)
      for (ByteReader words(part(bytes, section.offset, section.size)); !words.atEnd();)
        slice.initialisers.push_back(words.takeWord(slice.is64));
  if (slice.architecture == "arm64")
    for (const Section& section : slice.sections)
      if (section.segment == "__TEXT" && section.name == "__text")
        slice.fusedMultiplications =
            fusedMultiplications(part(bytes, section.offset, section.size), section.address);
  return slice;
}

}  // namespace

std::vector<Slice> readImage(std::span<const uint8_t> bytes) {
  auto bigEndian = [&](size_t at) { return __builtin_bswap32(ByteReader(bytes, at).take<uint32_t>()); };
  std::vector<Slice> slices;
  if (bigEndian(0) != 0xcafebabe) {
    slices.push_back(readSlice(bytes));
    return slices;
  }
  for (uint32_t i = 0, count = bigEndian(4); i < count; ++i) {
    size_t entry = 8 + 20 * static_cast<size_t>(i);
    uint32_t start = bigEndian(entry + 8);
    Slice& slice = slices.emplace_back(readSlice(part(bytes, start, bigEndian(entry + 12))));
    slice.announced = architectureName(bigEndian(entry), bigEndian(entry + 4));
    slice.start = start;
  }
  return slices;
}

std::vector<Slice> readImage(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::vector<uint8_t> contents{std::istreambuf_iterator<char>(in), {}};
  if (!in) throw std::runtime_error("cannot be read");
  return readImage(contents);
}

}  // namespace device
