// The loader of the slices takes what ships, and refuses it after one change of any kind that a phone's
// loader would refuse or that its processor would stumble over.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>

#include "device/loader/memory.hpp"
#include "device/loader/process.hpp"
#include "loader_fixture.hpp"

namespace {

using namespace device;
using namespace device::test;
using loader::Piece;

INSTANTIATE_TEST_SUITE_P(Slices, Loader, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(Loader, FillsInEveryPointer) {
  static int target;
  Layout layout = layOut(file, GetParam());
  ASSERT_FALSE(layout.rebases.empty());
  ASSERT_FALSE(layout.fillings.empty());
  uint8_t* base = loader::intoMemory(layout, [](const std::string&) -> void* { return &target; });
  auto word = [&](uint64_t address) {
    uint64_t value = 0;
    std::memcpy(&value, base + address, layout.word);
    return value;
  };
  const uint64_t mask = layout.word == 8 ? ~uint64_t{0} : 0xffffffff;
  std::vector<uint64_t> bound;
  for (const auto& filling : layout.fillings) {
    bound.push_back(filling.address);
    EXPECT_EQ(word(filling.address),
              (reinterpret_cast<uintptr_t>(&target) + static_cast<uint64_t>(filling.addend)) & mask)
        << filling.symbol;
  }
  for (uint64_t address : layout.rebases) {
    if (std::ranges::find(bound, address) != bound.end()) continue;
    // As far into the image as the file says.
    const Piece& piece = *std::ranges::find_if(layout.pieces, [&](const Piece& each) {
      return address >= each.address && address < each.address + each.size;
    });
    uint64_t inside = 0;
    std::memcpy(&inside, piece.bytes.data() + (address - piece.address), layout.word);
    EXPECT_EQ(word(address), (reinterpret_cast<uintptr_t>(base) + inside) & mask) << address;
  }
}

TEST_P(Loader, ProtectsWhatIsNotForWriting) {
  Layout layout = layOut(file, GetParam());
  uint8_t* base = loader::intoMemory(layout, [](const std::string&) -> void* { return std::malloc(1); });
  std::ifstream maps("/proc/self/maps");
  std::string protection;
  for (std::string line; std::getline(maps, line);) {
    uint64_t from = std::stoull(line, nullptr, 16);
    uint64_t to = std::stoull(line.substr(line.find('-') + 1), nullptr, 16);
    if (auto at = reinterpret_cast<uintptr_t>(base); at >= from && at < to)
      protection = line.substr(line.find(' ') + 1, 3);
  }
  EXPECT_EQ(protection, "r-x");
}

TEST_P(Loader, RefusesAnImportThatNobodyHas) {
  Layout layout = layOut(file, GetParam());
  auto everythingButOne = [](const std::string& name) -> void* {
    return name == "_class_addMethod" ? nullptr : std::malloc(1);
  };
  try {
    loader::intoMemory(layout, everythingButOne);
    ADD_FAILURE() << "loaded";
  } catch (const Refusal& reason) {
    EXPECT_STREQ(reason.what(), "_class_addMethod is not in /usr/lib/libobjc.A.dylib");
  }
}

// Whichever byte it is; and most before the signature is looked at, for what has become of the pointers.
TEST_P(Loader, RefusesArgumentsWithoutNamesThatNothingLaysOutAnew) {
  Layout layout = layOut(file, GetParam());
  std::ranges::find(layout.fillings, "_snprintf", &loader::Filling::symbol)->symbol = "_asprintf";
  auto somebody = [](const std::string& name) {
    return name == "_asprintf" ? loader::asItStands(name) : std::malloc(1);
  };
  try {
    loader::intoMemory(layout, somebody);
    ADD_FAILURE() << "loaded";
  } catch (const Refusal& reason) {
    EXPECT_STREQ(reason.what(),
                 "import _asprintf takes arguments without names, and there is no crossing for it");
  }
}

// Why the function of that name is not bound as it stands; empty when it is.
std::string notAsItStands(const std::string& symbol) {
  try {
    loader::asItStands(symbol);
    return "";
  } catch (const Refusal& reason) {
    return reason.what();
  }
}

TEST(LoaderOfAnything, FindsWhatCrossesAsItStands) {
  EXPECT_EQ(loader::asItStands("_fputs"), reinterpret_cast<void*>(&std::fputs));
  EXPECT_EQ(loader::asItStands("_no_such_function"), nullptr);
  EXPECT_EQ(loader::asItStands("fputs"), nullptr);
}

TEST(LoaderOfAnything, RefusesFunctionsOfArgumentsWithoutNamesByName) {
  for (const char* name :
       {"_asprintf", "_vsnprintf", "_sscanf", "_open", "_fcntl", "_syslog", "_CFLog", "_NSLogv"})
    EXPECT_NE(notAsItStands(name).find(std::string(name) + " takes arguments without names"),
              std::string::npos)
        << name;
}

TEST(LoaderOfAnything, RefusesFunctionsThatAreOtherwiseOnLinuxByName) {
  for (const char* name : {"_stat", "_sigaction", "_mmap", "_pthread_mutex_lock", "_setjmp"})
    EXPECT_NE(notAsItStands(name).find(std::string(name) + " is otherwise on Linux"), std::string::npos)
        << name;
}

TEST(LoaderOfAnything, RefusesFunctionsOf64BitsAfterAWordByName) {
  EXPECT_NE(notAsItStands("_lseek").find("_lseek takes 64 bits after a word"), std::string::npos);
}

TEST_P(Loader, RefusesAFlippedByteOfTheRebases) {
  const Extent rebases = slice.loaderInfo.rebases;
  uint32_t forThePointers = 0;
  for (uint32_t i = 0; i < rebases.size; ++i) {
    Bytes flipped = file;
    flipped[slice.start + rebases.offset + i] ^= 0xff;
    const std::string reason = refusal(flipped, GetParam());
    EXPECT_NE(reason, "") << "byte " << i;
    if (reason.find("directory: the hash of page ") == std::string::npos) ++forThePointers;
  }
  EXPECT_GT(forThePointers, rebases.size / 2);
}

TEST_P(Loader, RefusesANameThatIsNotExported) {
  file[boundName("_objc_release") + 12] = 'f';
  expectRefused("import _objc_releasf is in no list");
}

// The ordinal of the library stands before the name's opcode, in one byte.
TEST_P(Loader, RefusesANameInTheWrongLibrary) {
  size_t at = boundName("_CFRelease");
  while ((file[at] & 0xf0) != 0x10 || at == boundName("_CFRelease")) --at;
  file[at] = static_cast<uint8_t>(file[at] == 0x11 ? 0x12 : 0x11);
  expectRefused(" comes from ");
}

TEST_P(Loader, RefusesAnImportThatMayBeMissing) {
  file[boundName("_objc_retain") - 1] |= 1;
  expectRefused("import _objc_retain is weak");
}

TEST_P(Loader, RefusesChainedFixUps) {
  set32(command(0x26), 0x80000034);  // in place of the list of functions' starts
  expectRefused("chained fix-ups");
}

TEST_P(Loader, RefusesAnEncryptedImage) {
  size_t at = command(0xd);  // in place of the install name
  set32(at, slice.is64 ? 0x2c : 0x21);
  set32(at + 16, 1);
  EXPECT_NE(refusal(file, GetParam()), "");
  auto all = findings(sliceOf(file, GetParam()), policy());
  EXPECT_TRUE(std::ranges::any_of(all, [](const std::string& each) { return each.ends_with("encrypted"); }));
}

TEST_P(Loader, RefusesAThirdInitialiser) {
  size_t size = section("__mod_init_func") + (slice.is64 ? 40 : 36);
  set32(size, get32(size) / 2 * 3);
  expectRefused("3 load-time initialisers");
}

TEST_P(Loader, RefusesATruncatedFile) {
  for (size_t size : {size_t{100}, slice.start + 100, slice.start + slice.sizeInBytes - 1})
    EXPECT_NE(refusal(Bytes(file.begin(), file.begin() + static_cast<long>(size)), GetParam()), "") << size;
}

TEST_P(Loader, RefusesASliceUnderTheOthersHeader) {
  for (size_t entry : {8u, 28u}) {  // big-endian: the processor's kind and model
    bool wide = file[entry] == 1;
    std::ranges::copy(
        std::initializer_list<uint8_t>{uint8_t(!wide), 0, 0, 12, 0, 0, 0, uint8_t(wide ? 9 : 0)},
        file.begin() + static_cast<long>(entry));
  }
  expectRefused("announced as " + std::string(GetParam()));
}

TEST_P(Loader, RefusesDataOfEveryThreadsOwn) {
  size_t flags = section("__bss") + (slice.is64 ? 64 : 56);
  set32(flags, 0x12);
  expectRefused("section __bss is data of every thread's own");
}

TEST_P(Loader, RefusesASegmentInsideAPage) {
  size_t address = section("__DATA") + 16;
  set32(address, get32(address) + 0x10);
  expectRefused("segment __DATA starts inside a page");
}

TEST_P(Loader, RefusesASegmentOutsideTheFile) {
  size_t fileOffset = section("__LINKEDIT") + (slice.is64 ? 32 : 24);
  set32(fileOffset, get32(fileOffset) + 0x40000);
  expectRefused("the last segment lies beyond the end of the file");
}

TEST_P(Loader, RefusesCodeThatMayBeWritten) {
  set32(section("__TEXT") + (slice.is64 ? 52 : 36), 7);
  expectRefused("segment __TEXT is not code");
}

TEST_P(Loader, RefusesCodeThatIsNotWhatWasSigned) {
  for (const Section& text : slice.sections)
    if (text.name == "__text") file[slice.start + text.offset + text.size / 2] ^= 4;
  expectRefused("SHA-1 directory: the hash of page ");
}

TEST_P(Loader, RefusesASliceWithoutASignature) {
  set32(command(0x1d), 0x7f);
  expectRefused("no signature");
}

TEST(LoaderOfArm64, RefusesASliceWithoutUnwindTables) {
  Bytes file = shipped();
  std::string name = "__unwind_info";
  auto found = std::search(file.begin(), file.end(), name.begin(), name.end());
  *found = 'x';
  EXPECT_NE(refusal(file, "arm64").find("no unwind tables"), std::string::npos);
}

// The slice with another end of the code that its unwind tables tell of.
Bytes withCodeEndingAt(uint32_t address) {
  Bytes file = shipped();
  const Slice slice = sliceOf(file, "arm64");
  const auto tables = std::ranges::find(slice.sections, "__unwind_info", &Section::name);
  const size_t start = slice.start + tables->offset;
  ByteReader header(file, start + 20);
  const auto index = header.take<uint32_t>(), entries = header.take<uint32_t>();
  std::memcpy(file.data() + start + index + 12 * (entries - 1), &address, sizeof address);
  return file;
}

TEST(LoaderOfArm64, RefusesUnwindTablesThatAreNotInOrder) {
  EXPECT_EQ(refusal(withCodeEndingAt(0), "arm64"), "unwind tables that are not in order");
}

TEST(LoaderOfArm64, RefusesUnwindTablesOfCodeOutsideTheImage) {
  EXPECT_EQ(refusal(withCodeEndingAt(0x7fffffff), "arm64"), "unwind tables of code outside the image");
}

TEST(LoaderOfArmv7, RefusesPointersThatItsLinkerLeavesUnbound) {
  Bytes file = shipped();
  auto begin = file.begin() + static_cast<long>(sliceOf(file, "armv7").start);
  const char old[] = "__mod_init_func", other[] = "__nl_symbol_ptr";
  std::ranges::copy(other, std::search(begin, file.end(), std::begin(old), std::end(old)));
  EXPECT_NE(refusal(file, "armv7").find("section __nl_symbol_ptr"), std::string::npos);
}

TEST(LoaderOfArmv7, RefusesThumbCode) {
  Bytes file = shipped();
  Slice slice = sliceOf(file, "armv7");
  size_t at = slice.start + 28;
  auto word = [&](size_t place) { return ByteReader(file, place).take<uint32_t>(); };
  while (word(at) != 2) at += word(at + 4);  // the table of symbols
  size_t symbols = slice.start + word(at + 8), count = word(at + 12);
  for (size_t i = 0; i < count; ++i)
    if (file[symbols + 12 * i + 5]) {  // defined in a section
      file[symbols + 12 * i + 6] |= thumbDefinition;
      break;
    }
  EXPECT_NE(refusal(file, "armv7").find("is Thumb code"), std::string::npos) << refusal(file, "armv7");
}

}  // namespace
