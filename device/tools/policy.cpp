// The rules for the shipped image: what loaders of iOS 9 to 12 demand, what keeps it apart from everything
// else in SpringBoard, and the known faults of the armv7 linker.
#include "device/tools/policy.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace device {
namespace {

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

constexpr uint32_t oldestSystem = 9 << 16 | 2 << 8;
// Bound by the loader's own stub code, never by name from a source.
constexpr std::string_view binder = "dyld_stub_binder";

class Examination {
 public:
  Examination(const Slice& slice, const Policy& policy, std::vector<std::string>& lines)
      : slice(slice), policy(policy), lines(lines) {}

  void run() {
    checkKind();
    checkLoads();
    checkImports();
    checkExports();
    checkInitialisers();
    checkSegments();
    checkSections();
    checkGuards();
    if (slice.architecture == "arm64") checkCode();
    if (slice.architecture == "armv7") checkLinkerFaults();
  }

 private:
  template <class... A>
  void find(fmt::format_string<A...> text, A&&... values) {
    lines.push_back(fmt::format("{}: {}", slice.architecture, fmt::format(text, std::forward<A>(values)...)));
  }

  void checkKind() {
    if (slice.fileType != dynamicLibrary) find("not a dynamic library");
    if (slice.installName != policy.installName) find("install name is {}", slice.installName);
    if (!slice.forIOS) find("not built for iOS");
    if (slice.minimumSystem != oldestSystem)
      find("minimum system is {}, not {}", versionText(slice.minimumSystem), versionText(oldestSystem));
    if (!slice.announced.empty() && slice.announced != slice.architecture)
      find("announced as {}", slice.announced);
    if (slice.encrypted) find("encrypted");
    if (slice.chainedFixups) find("chained fix-ups, unknown before iOS 13.4");
  }

  const ImportList* listOf(const std::string& name) const {
    auto list = std::ranges::find(policy.imports, name, &ImportList::installName);
    return list == policy.imports.end() ? nullptr : &*list;
  }

  void checkLoads() {
    if (slice.loads.empty()) find("loads no library");
    for (const LibraryLoad& load : slice.loads) {
      const ImportList* list = listOf(load.installName);
      if (!list)
        find("loads {}, which has no list of imports", load.installName);
      else if (load.compatibilityVersion > list->compatibilityVersion)
        find("asks {} for version {}, above {}", load.installName, versionText(load.compatibilityVersion),
             versionText(list->compatibilityVersion));
      if (!load.mandatory) find("load of {} is not a plain one", load.installName);
    }
  }

  // The library whose list gives the symbol to this slice.
  const ImportList* homeOf(const std::string& symbol) const {
    for (const ImportList& list : policy.imports)
      for (const ListedSymbol& listed : list.symbols)
        if (listed.name == symbol && (listed.slice.empty() || listed.slice == slice.architecture))
          return &list;
    return nullptr;
  }

  void checkImports() {
    for (const Import& import : slice.imports) {
      if (import.table == Import::Table::weakBind) {
        find("{} is bound weakly, by whichever image defines it first", import.name);
        continue;
      }
      if (import.weak) find("import {} is weak", import.name);
      if (import.ordinal < 1 || import.ordinal > static_cast<int64_t>(slice.loads.size())) {
        find("import {} names no library (ordinal {})", import.name, import.ordinal);
        continue;
      }
      const std::string& from = slice.loads[static_cast<size_t>(import.ordinal - 1)].installName;
      if (import.name == binder) continue;
      if (const ImportList* home = homeOf(import.name); !home)
        find("import {} is in no list", import.name);
      else if (home->installName != from)
        find("import {} comes from {}, not {}", import.name, from, home->installName);
    }
  }

  void checkExports() {
    for (const std::string& name : slice.exports)
      if (!contains(policy.exports, name)) find("exports {}", name);
    for (const std::string& name : policy.exports)
      if (!contains(slice.exports, name)) find("does not export {}", name);
  }

  bool inText(uint64_t address) const {
    return std::ranges::any_of(slice.sections, [&](const Section& section) {
      return section.segment == "__TEXT" && section.name == "__text" && address >= section.address &&
             address - section.address < section.size;
    });
  }

  void checkInitialisers() {
    if (slice.initialisers.size() != policy.initialisers)
      find("{} load-time initialisers, not {}", slice.initialisers.size(), policy.initialisers);
    for (uint64_t address : slice.initialisers) {
      if (!inText(address & ~uint64_t{1})) find("initialiser {:#x} lies outside __text", address);
      if (slice.architecture == "armv7" && address % 2) find("initialiser {:#x} is Thumb code", address);
    }
  }

  // Loaders refuse an image whose segments overlap, or map it wrongly.
  void checkSegments() {
    uint64_t page = slice.architecture == "arm64" ? 0x4000 : 0x1000;
    uint64_t memoryEnd = 0, fileEnd = 0;
    for (const Segment& segment : slice.segments) {
      if (segment.address % page || segment.fileOffset % page)
        find("segment {} starts inside a page", segment.name);
      if (segment.address < memoryEnd) find("segment {} overlaps the one before in memory", segment.name);
      if (segment.fileOffset < fileEnd) find("segment {} overlaps the one before in the file", segment.name);
      if (segment.fileSize > segment.size)
        find("segment {} is larger in the file than in memory", segment.name);
      memoryEnd = segment.address + segment.size;
      fileEnd = segment.fileOffset + segment.fileSize;
    }
    if (fileEnd > slice.sizeInBytes) find("the last segment lies beyond the end of the file");
    if (slice.segments.empty() || slice.segments.back().name != "__LINKEDIT")
      find("__LINKEDIT is not the last segment");
  }

  void checkSections() {
    for (const Section& section : slice.sections) {
      if (section.type == terminatorPointers) find("section {} runs code at unloading", section.name);
      if (section.type >= firstThreadLocal && section.type <= lastThreadLocal)
        find("section {} is data of every thread's own", section.name);
      if (section.type == initialiserOffsets) find("section {} is unknown before iOS 13.4", section.name);
    }
  }

  // A static that is made at its first use costs a look at every later one, and nothing of ours has to be.
  void checkGuards() {
    for (const Symbol& symbol : slice.symbols)
      if (symbol.name.starts_with("__ZGV"))
        find("symbol {}, a guard of a static made at run time", symbol.name);
  }

  // What armv7 cannot have: it unwinds without tables, and its processors round a product by itself.
  void checkCode() {
    if (std::ranges::none_of(slice.sections, [](const Section& section) {
          return section.segment == "__TEXT" && section.name == "__unwind_info" && section.size > 0;
        }))
      find("no unwind tables: an exception that passes through ends the process");
    for (uint64_t address : slice.fusedMultiplications)
      find("a product and a sum in one instruction at {:#x}, which rounds otherwise than the desktop",
           address);
  }

  void checkLinkerFaults() {
    for (const Section& section : slice.sections) {
      if (section.name == "__nl_symbol_ptr")
        find("section __nl_symbol_ptr, which this linker leaves unbound");
      if (section.name.starts_with("__thread_"))
        find("section {}, which this linker lays out wrongly", section.name);
    }
    for (const Symbol& symbol : slice.symbols) {
      if (symbol.name.find("$shim") != std::string::npos)
        find("symbol {}, a broken Thumb jump to an import", symbol.name);
      else if (symbol.section && (symbol.description & thumbDefinition))
        find("symbol {} is Thumb code", symbol.name);
    }
  }

  const Slice& slice;
  const Policy& policy;
  std::vector<std::string>& lines;
};

}  // namespace

std::vector<std::string> findings(const std::vector<Slice>& image, const Policy& policy) {
  std::vector<std::string> lines;
  for (std::string_view wanted : {"arm64", "armv7"}) {
    auto count = std::ranges::count(image, wanted, &Slice::architecture);
    if (count != 1) lines.push_back(fmt::format("{}: {} slices, not 1", wanted, count));
  }
  for (const Slice& slice : image) {
    if (slice.architecture != "arm64" && slice.architecture != "armv7")
      lines.push_back(fmt::format("{}: unexpected slice", slice.architecture));
    Examination(slice, policy, lines).run();
  }
  return lines;
}

std::vector<std::string> findings(const Slice& slice, const Policy& policy) {
  std::vector<std::string> lines;
  Examination(slice, policy, lines).run();
  return lines;
}

std::vector<std::string> unusedImports(const std::vector<Slice>& image, const Policy& policy) {
  std::vector<std::string> lines;
  for (const ImportList& list : policy.imports)
    for (const ListedSymbol& listed : list.symbols) {
      bool used = std::ranges::any_of(image, [&](const Slice& slice) {
        return (listed.slice.empty() || listed.slice == slice.architecture) &&
               std::ranges::find(slice.imports, listed.name, &Import::name) != slice.imports.end();
      });
      if (!used)
        lines.push_back(fmt::format("{}: {} is listed but imported by no slice", list.library, listed.name));
    }
  return lines;
}

}  // namespace device
