// Symbols of the slice that was loaded: those that ship are without the hidden ones, which the file with all
// symbols has.
#include <cxxabi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "device/tools/macho_image.hpp"
#include "tests/support/home.hpp"

namespace test {
namespace {

// Linker names have one underscore more than the compiler's.
std::string demangled(const std::string& symbol) {
  const std::string name = symbol.substr(symbol.starts_with('_') ? 1 : 0);
  int status = 0;
  char* text = abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status);
  std::string result = status == 0 ? text : name;
  std::free(text);
  return result;
}

// Addresses within the slice, by demangled name.
std::map<std::string, uint64_t> symbolTable() {
  std::map<std::string, uint64_t> found;
  for (const device::Slice& slice : device::readImage(std::filesystem::path(TILO_SYMBOLS)))
    if (slice.architecture == SLICE)
      for (const device::Symbol& symbol : slice.symbols)
        if (symbol.section) found[demangled(symbol.name)] = symbol.value;
  return found;
}

}  // namespace

void* librarySymbol(const std::string& name) {
  auto* exported = static_cast<char*>(exportedSymbol("iconGridCalc"));
  if (!exported) {
    ADD_FAILURE() << "the library is not loaded";
    std::abort();
  }
  static const auto symbols = symbolTable();
  auto symbol = symbols.find(name);
  if (symbol == symbols.end()) {
    ADD_FAILURE() << "the library has no " << name;
    std::abort();
  }
  return exported - symbols.at("iconGridCalc") + symbol->second;
}

}  // namespace test
