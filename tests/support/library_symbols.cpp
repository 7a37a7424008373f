// Symbols of the library's file: its own variables are hidden from the dynamic linker, not from its symbol
// table.
#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "tests/support/files.hpp"
#include "tests/support/home.hpp"

namespace test {
namespace {

std::string demangled(const char* name) {
  int status = 0;
  char* text = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  std::string result = status == 0 ? text : name;
  std::free(text);
  return result;
}

// Addresses within the file's image, by demangled name.
std::map<std::string, Elf64_Addr> symbolTable(const char* path) {
  const std::string file = contentsOf(path);
  std::map<std::string, Elf64_Addr> found;
  auto* header = reinterpret_cast<const Elf64_Ehdr*>(file.data());
  auto* sections = reinterpret_cast<const Elf64_Shdr*>(file.data() + header->e_shoff);
  for (int i = 0; i < header->e_shnum; ++i) {
    if (sections[i].sh_type != SHT_SYMTAB) continue;
    const char* names = file.data() + sections[sections[i].sh_link].sh_offset;
    auto* symbols = reinterpret_cast<const Elf64_Sym*>(file.data() + sections[i].sh_offset);
    for (size_t n = 0; n < sections[i].sh_size / sizeof(Elf64_Sym); ++n)
      if (symbols[n].st_value) found[demangled(names + symbols[n].st_name)] = symbols[n].st_value;
  }
  return found;
}

}  // namespace

void* librarySymbol(const std::string& name) {
  void* exported = exportedSymbol("iconGridCalc");
  Dl_info library{};
  if (!exported || !dladdr(exported, &library)) {
    ADD_FAILURE() << "the library is not loaded";
    std::abort();
  }
  static const auto symbols = symbolTable(library.dli_fname);
  auto symbol = symbols.find(name);
  if (symbol == symbols.end()) {
    ADD_FAILURE() << "the library has no " << name;
    std::abort();
  }
  return static_cast<char*>(library.dli_fbase) + symbol->second;
}

}  // namespace test
