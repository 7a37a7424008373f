// Names by libdw, which reads the symbol tables and line tables of whatever is loaded.
#include "simulator/crash/trace.hpp"

#include <cxxabi.h>
#include <dwarf.h>
#include <elfutils/libdw.h>
#include <elfutils/libdwfl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "simulator/runtime/hooking.hpp"

namespace sim::crash {
namespace {

namespace fs = std::filesystem;

// Inline functions are places of their own.
struct Place {
  std::string function, source;  // empty where they are not known
};

struct Frame {
  std::vector<Place> places;  // the innermost first
  std::string file;
  std::uintptr_t start = 0;  // of the function
};

// Tables are looked for in the file itself: looking elsewhere may ask other machines.
int findNothing(Dwfl_Module*, void**, const char*, Dwarf_Addr, const char*, const char*, GElf_Word, char**) {
  return -1;
}

// Without arguments, and without what has no name.
std::string demangled(const char* name) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                    std::free);
  if (status != 0) return name;
  constexpr std::string_view anonymous = "(anonymous namespace)::";
  std::string readable = text.get();
  for (std::size_t at; (at = readable.find(anonymous)) != std::string::npos;)
    readable.erase(at, anonymous.size());
  return readable.substr(0, readable.find('('));
}

std::string sourceLine(const char* file, int line) {
  return file ? fmt::format("{}:{}", file, line) : std::string();
}

Dwarf_Word numberOf(Dwarf_Die& scope, unsigned what) {
  Dwarf_Attribute attribute;
  Dwarf_Word number = 0;
  dwarf_formudata(dwarf_attr(&scope, what, &attribute), &number);
  return number;
}

std::string nameOf(Dwarf_Die& scope) {
  Dwarf_Attribute attribute;
  const char* name = dwarf_formstring(dwarf_attr_integrate(&scope, DW_AT_name, &attribute));
  return name ? name : "";
}

// From where a function that has gone into another one is called.
std::string callOf(Dwarf_Die* unit, Dwarf_Die& scope) {
  Dwarf_Files* files = nullptr;
  std::size_t count = 0;
  if (dwarf_getsrcfiles(unit, &files, &count) != 0) return "";
  return sourceLine(dwarf_filesrc(files, numberOf(scope, DW_AT_call_file), nullptr, nullptr),
                    static_cast<int>(numberOf(scope, DW_AT_call_line)));
}

std::vector<Place> placesIn(Dwarf_Die* unit, Dwarf_Addr address) {
  std::vector<Place> places;
  std::string source;
  if (Dwarf_Line* line = dwarf_getsrc_die(unit, address)) {
    int number = 0;
    dwarf_lineno(line, &number);
    source = sourceLine(dwarf_linesrc(line, nullptr, nullptr), number);
  }
  // The scopes of a place are those of the function's own text; what it has gone into is around them.
  Dwarf_Die *inner = nullptr, *scopes = nullptr;
  const int known = dwarf_getscopes(unit, address, &inner);
  const int count = known > 0 ? dwarf_getscopes_die(&inner[0], &scopes) : 0;
  std::free(inner);
  for (int i = 0; i < count; ++i) {
    const int tag = dwarf_tag(&scopes[i]);
    if (tag != DW_TAG_inlined_subroutine && tag != DW_TAG_subprogram) continue;
    places.push_back({nameOf(scopes[i]), source});
    if (tag == DW_TAG_subprogram) break;
    source = callOf(unit, scopes[i]);
  }
  std::free(scopes);
  if (places.empty()) places.push_back({"", source});
  return places;
}

class Symbols {
 public:
  Symbols() : session(dwfl_begin(&callbacks), dwfl_end) {
    if (session && (dwfl_linux_proc_report(session.get(), ::getpid()) != 0 ||
                    dwfl_report_end(session.get(), nullptr, nullptr) != 0))
      session.reset();
  }

  Frame frameAt(std::uintptr_t address) const {
    Frame frame;
    Dwfl_Module* const module = session ? dwfl_addrmodule(session.get(), address) : nullptr;
    if (!module) return frame;
    if (const char* file =
            dwfl_module_info(module, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr))
      frame.file = fs::path(file).filename();
    // Compilers do not say any more where units begin, so all are asked.
    Dwarf_Addr bias = 0;
    for (Dwarf_Die* unit = nullptr; (unit = dwfl_module_nextcu(module, unit, &bias));)
      if (dwarf_haspc(unit, address - bias) > 0) frame.places = placesIn(unit, address - bias);
    GElf_Off offset = 0;
    GElf_Sym symbol;
    const char* name = dwfl_module_addrinfo(module, address, &offset, &symbol, nullptr, nullptr, nullptr);
    if (!name) return frame;
    frame.start = address - offset;
    if (frame.places.empty()) frame.places.emplace_back();
    // It has the scopes' names, too, but of templates more than anybody wants to read.
    std::string& outermost = frame.places.back().function;
    if (const std::string whole = demangled(name); outermost.empty() || whole.find('<') == std::string::npos)
      outermost = whole;
    return frame;
  }

 private:
  static constexpr Dwfl_Callbacks callbacks{dwfl_linux_proc_find_elf, findNothing, nullptr, nullptr};
  std::unique_ptr<Dwfl, void (*)(Dwfl*)> session;
};

std::optional<Replacement> replacementAt(std::uintptr_t start) {
  const auto found = std::ranges::find(replacements(), start, [](const Replacement& each) {
    return reinterpret_cast<std::uintptr_t>(each.implementation);
  });
  return found == replacements().end() ? std::nullopt : std::optional(*found);
}

// What the bridge and the C++ library do on the way is left out.
bool isOfInterest(const Place& place) {
  return !place.function.empty() && place.source.find("/bridge/") == std::string::npos &&
         place.source.find("/c++/") == std::string::npos;
}

std::string linesOf(const Frame& frame) {
  std::string lines;
  for (const Place& place : frame.places)
    if (isOfInterest(place))
      lines += fmt::format("    {}{}{}, {}\n", place.function, place.source.empty() ? "" : " at ",
                           fs::path(place.source).filename().string(), frame.file);
  return lines;
}

}  // namespace

std::string described(std::span<void* const> addresses, bool isExact) {
  const Symbols symbols;
  std::string lines, method;
  for (std::size_t i = 0; i < addresses.size(); ++i) {
    const auto address = reinterpret_cast<std::uintptr_t>(addresses[i]) - (i == 0 && isExact ? 0 : 1);
    const Frame frame = symbols.frameAt(address);
    lines += linesOf(frame);
    const auto replacement = replacementAt(frame.start);
    if (replacement && method.empty()) {
      const std::string name = methodName(replacement->cls, replacement->selector);
      method = fmt::format("  in {}[{} {}], replaced by {}\n", name[0], class_getName(replacement->cls),
                           name.substr(1), replacement->library);
    }
  }
  return method + lines;
}

}  // namespace sim::crash
