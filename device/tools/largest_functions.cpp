// A function ends where the next symbol's code begins: files do not say how long it is.
#include "device/tools/largest_functions.hpp"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>

namespace device {
namespace {

// Names of the linker begin with an underscore.
std::string written(const std::string& name) {
  int status = 0;
  const char* mangled = name.c_str() + (name.starts_with('_') ? 1 : 0);
  const std::unique_ptr<char, decltype(&std::free)> plain(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), std::free);
  return status == 0 ? plain.get() : mangled;
}

}  // namespace

std::vector<Function> largestFunctions(const Slice& slice, size_t count) {
  std::vector<Function> functions;
  for (const Section& section : slice.sections) {
    if (section.segment != "__TEXT" || section.name != "__text") continue;
    std::map<uint64_t, std::string> starts;
    for (const Symbol& symbol : slice.symbols)
      if (symbol.section && symbol.value >= section.address && symbol.value - section.address < section.size)
        starts.emplace(symbol.value, symbol.name);
    for (auto start = starts.begin(); start != starts.end(); ++start) {
      const auto next = std::next(start);
      functions.push_back(
          {(next == starts.end() ? section.address + section.size : next->first) - start->first,
           start->second});
    }
  }
  std::ranges::sort(functions, std::ranges::greater(), &Function::size);
  functions.resize(std::min(count, functions.size()));
  for (Function& function : functions) function.name = written(function.name);
  return functions;
}

}  // namespace device
