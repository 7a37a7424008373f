// make_stub: writes from one list of imports what the linkers want to see of that library: a text stub for
// the arm64 linker, or the assembly of a stub dylib for the armv7 linker, which reads no text stubs.
//
//   make_stub <list.txt> arm64 <out.tbd>
//   make_stub <list.txt> armv7 <out.s>
#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <string_view>

#include "device/tools/import_list.hpp"

namespace {

// The linker looks this one up by itself, to bind functions at their first call; no list of ours can lack it.
constexpr std::string_view binder = "dyld_stub_binder";
constexpr std::string_view binderHome = "/usr/lib/libSystem.B.dylib";

std::vector<std::string> symbolsOf(const device::ImportList& list, std::string_view slice) {
  std::vector<std::string> names;
  for (const auto& symbol : list.symbols)
    if (symbol.slice.empty() || symbol.slice == slice) names.push_back(symbol.name);
  if (list.installName == binderHome) names.emplace_back(binder);
  return names;
}

std::string textStub(const device::ImportList& list) {
  std::string version = device::versionText(list.compatibilityVersion);
  std::string text = fmt::format(
      "--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-ios ]\ninstall-name: '{}'\ncurrent-version: {}\n"
      "compatibility-version: {}\n",
      list.installName, version, version);
  if (auto names = symbolsOf(list, "arm64"); !names.empty()) {
    text += "exports:\n  - targets: [ arm64-ios ]\n    symbols:\n";
    for (const auto& name : names) text += fmt::format("      - '{}'\n", name);
  }
  return text + "...\n";
}

std::string stubAssembly(const device::ImportList& list) {
  std::string text = ".section __DATA,__data\n";
  for (const auto& name : symbolsOf(list, "armv7"))
    text += fmt::format(".globl \"{}\"\n\"{}\":\n.long 0\n", name, name);
  return text;
}

}  // namespace

int main(int count, char** arguments) try {
  std::string_view slice = count == 4 ? arguments[2] : "";
  if (slice != "arm64" && slice != "armv7") {
    fmt::print(stderr, "usage: make_stub <list.txt> arm64|armv7 <output>\n");
    return 2;
  }
  auto list = device::readImportList(arguments[1]);
  std::ofstream out(arguments[3]);
  out << (slice == "arm64" ? textStub(list) : stubAssembly(list));
  out.close();
  if (out) return 0;
  fmt::print(stderr, "{}: cannot be written\n", arguments[3]);
  return 1;
} catch (const std::exception& error) {
  fmt::print(stderr, "{}\n", error.what());
  return 1;
}
