// Reads the table of symbols.
#include "device/loader/names.hpp"

#include <cxxabi.h>
#include <fmt/format.h>

#include <cstdlib>
#include <iterator>
#include <memory>

#include "device/tools/macho_image.hpp"

namespace device::loader {
namespace {

// Linker names have one underscore more than the compiler's.
std::string written(const std::string& symbol) {
  const std::string name = symbol.starts_with('_') ? symbol.substr(1) : symbol;
  const std::unique_ptr<char, decltype(&std::free)> text(
      abi::__cxa_demangle(name.c_str(), nullptr, nullptr, nullptr), std::free);
  return text ? text.get() : name;
}

}  // namespace

Names::Names(const std::filesystem::path& file, const std::string& architecture) {
  if (!std::filesystem::exists(file)) return;
  for (const Slice& slice : readImage(file)) {
    if (slice.architecture != architecture) continue;
    for (const Symbol& symbol : slice.symbols)
      if (symbol.section == 1 && !symbol.name.empty())
        starts.emplace(symbol.value, symbol.name);  // code comes first
  }
}

NamedFunction Names::at(uint64_t address) const {
  auto next = starts.upper_bound(address);
  if (next == starts.begin()) return {address, fmt::format("{:#x}", address)};
  const auto& [start, symbol] = *std::prev(next);
  return {start, written(symbol)};
}

}  // namespace device::loader
