// executed_table FILE SLICE BASE < TRACE: how many of a slice's instructions an emulator says it executed,
// function by function. FILE is the library with its symbols, BASE (hexadecimal) where the slice was loaded,
// TRACE what the emulator writes of every block it translates: a line that begins with the address for each
// instruction.
#include <cxxabi.h>
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "device/tools/macho_image.hpp"

namespace {

constexpr uint64_t instructionSize = 4;  // of every instruction: there is no Thumb code

struct Function {
  std::string name;
  uint64_t start, end;
  std::vector<uint64_t> missing;

  uint64_t count() const { return (end - start) / instructionSize; }
};

// With template arguments that are texts as such, instead of as "char [3]{(char)97, …}".
std::string withTexts(const std::string& name) {
  constexpr std::string_view mark = "(char)";
  std::string text;
  for (std::size_t at = 0; at < name.size();) {
    const std::size_t begin = name.find("{char [", at);
    const std::size_t end = name.find("}}", begin);
    text += name.substr(at, begin - at);
    if (begin == std::string::npos || end == std::string::npos) break;
    for (std::size_t c = name.find(mark, begin); c < end; c = name.find(mark, c + 1))
      text += static_cast<char>(std::atoi(name.c_str() + c + mark.size()));
    at = end + 2;
  }
  return text;
}

// As it is written in the source.
std::string readable(const std::string& symbol) {
  int status = 0;
  char* name =
      abi::__cxa_demangle(symbol.c_str() + (symbol.starts_with("_") ? 1 : 0), nullptr, nullptr, &status);
  std::string text = status == 0 ? withTexts(name) : symbol;
  std::free(name);
  return text;
}

const device::Section& codeOf(const device::Slice& slice) {
  const auto found = std::ranges::find(slice.sections, "__text", &device::Section::name);
  if (found == slice.sections.end()) throw std::runtime_error("there is no code");
  return *found;
}

std::vector<Function> functionsOf(const device::Slice& slice) {
  constexpr uint8_t debugging = 0xe0, kind = 0x0e, inSection = 0x0e;
  const device::Section& code = codeOf(slice);
  const uint64_t end = code.address + code.size;
  std::map<uint64_t, std::string> names;
  for (const device::Symbol& symbol : slice.symbols)
    if (!(symbol.type & debugging) && (symbol.type & kind) == inSection && symbol.value >= code.address &&
        symbol.value < end)
      names.emplace(symbol.value, symbol.name);
  std::vector<Function> functions;
  for (auto name = names.begin(); name != names.end(); ++name) {
    const auto next = std::next(name);
    functions.push_back({readable(name->second), name->first, next == names.end() ? end : next->first, {}});
  }
  return functions;
}

// Addresses in the file, of every instruction in the trace.
std::set<uint64_t> executed(std::istream& trace, uint64_t base) {
  std::set<uint64_t> all;
  for (std::string line; std::getline(trace, line);) {
    uint64_t address = 0;
    const char* const end = line.data() + line.size();
    if (!line.starts_with("0x")) continue;
    const auto [stop, error] = std::from_chars(line.data() + 2, end, address, 16);
    if (error == std::errc() && stop != end && *stop == ':') all.insert(address - base);
  }
  return all;
}

// Stretches of addresses, as "1a0-1ac 1f4".
std::string stretches(const std::vector<uint64_t>& addresses) {
  std::string text;
  for (std::size_t i = 0; i < addresses.size();) {
    std::size_t last = i;
    while (last + 1 < addresses.size() && addresses[last + 1] == addresses[last] + instructionSize) ++last;
    text += i == last ? fmt::format(" {:x}", addresses[i])
                      : fmt::format(" {:x}-{:x}", addresses[i], addresses[last]);
    i = last + 1;
  }
  return text;
}

void print(std::vector<Function>& functions, const std::set<uint64_t>& seen) {
  uint64_t instructions = 0, missing = 0, entered = 0;
  for (Function& function : functions) {
    for (uint64_t at = function.start; at < function.end; at += instructionSize)
      if (!seen.contains(at)) function.missing.push_back(at);
    instructions += function.count();
    missing += function.missing.size();
    entered += function.missing.size() < function.count();
  }
  std::ranges::sort(functions, std::greater(),
                    [](const Function& one) { return std::pair(one.missing.size(), one.start); });
  for (const Function& function : functions)
    std::cout << fmt::format("{:5} of {:5}  {}{}{}\n", function.count() - function.missing.size(),
                             function.count(), function.name, function.missing.empty() ? "" : "  without",
                             stretches(function.missing));
  std::cout << fmt::format(
      "{} of {} instructions, {:.1f} %, in {} of {} functions\n", instructions - missing, instructions,
      100.0 * static_cast<double>(instructions - missing) / static_cast<double>(instructions), entered,
      functions.size());
}

}  // namespace

int main(int count, char** arguments) try {
  if (count != 4) throw std::runtime_error("it takes a file, a slice's name and an address");
  for (const device::Slice& slice : device::readImage(std::filesystem::path(arguments[1])))
    if (slice.architecture == arguments[2]) {
      std::vector<Function> functions = functionsOf(slice);
      print(functions, executed(std::cin, std::stoull(arguments[3], nullptr, 16)));
      return 0;
    }
  throw std::runtime_error(std::string(arguments[1]) + " has no slice for " + arguments[2]);
} catch (const std::exception& error) {
  std::cerr << arguments[0] << ": " << error.what() << "\n";
  return 2;
}
