// Reads the lists of allowed imports.
#include "device/tools/import_list.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace device {
namespace {

uint32_t parseVersion(const std::string& text) {
  uint32_t part[3] = {};
  std::istringstream in(text);
  size_t count = 0;
  char dot = '.';
  for (; count < 3 && dot == '.' && in >> part[count]; ++count) dot = in.get();
  if (count == 0 || !in.eof() || part[0] > 0xffff || part[1] > 0xff || part[2] > 0xff)
    throw std::runtime_error("not a version: " + text);
  return part[0] << 16 | part[1] << 8 | part[2];
}

void takeLine(ImportList& list, const std::vector<std::string>& words, bool& versioned) {
  if (words[0] == "install-name" && words.size() == 2 && list.installName.empty()) {
    list.installName = words[1];
  } else if (words[0] == "compatibility-version" && words.size() == 2 && !versioned) {
    list.compatibilityVersion = parseVersion(words[1]);
    versioned = true;
  } else if (words.size() <= 2) {
    if (list.installName.empty() || !versioned)
      throw std::runtime_error("install-name and compatibility-version have to come first, once");
    std::string slice = words.size() == 2 ? words[1] : "";
    if (!slice.empty() && slice != "arm64" && slice != "armv7")
      throw std::runtime_error("no such slice: " + slice);
    for (const ListedSymbol& other : list.symbols)
      if (other.name == words[0]) throw std::runtime_error("listed twice: " + words[0]);
    list.symbols.push_back({words[0], slice});
  } else {
    throw std::runtime_error("more than a symbol and a slice");
  }
}

}  // namespace

std::string versionText(uint32_t version) {
  return fmt::format("{}.{}.{}", version >> 16, version >> 8 & 0xff, version & 0xff);
}

ImportList readImportList(const std::filesystem::path& file) {
  std::ifstream in(file);
  if (!in) throw std::runtime_error(fmt::format("{}: cannot be read", file.string()));
  ImportList list{.library = file.stem().string(), .installName = {}, .symbols = {}};
  bool versioned = false;
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    std::istringstream text(line.substr(0, line.find('#')));
    std::vector<std::string> words;
    for (std::string word; text >> word;) words.push_back(word);
    if (words.empty()) continue;
    try {
      takeLine(list, words, versioned);
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(fmt::format("{}:{}: {}", file.string(), number, error.what()));
    }
  }
  if (list.installName.empty() || !versioned)
    throw std::runtime_error(fmt::format("{}: lacks install-name or compatibility-version", file.string()));
  return list;
}

std::vector<ImportList> readImportLists(const std::filesystem::path& folder) {
  std::set<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".txt") files.insert(entry.path());
  std::vector<ImportList> lists;
  std::map<std::string, std::string> owner;
  for (const auto& file : files) {
    ImportList list = readImportList(file);
    for (const ImportList& other : lists)
      if (other.installName == list.installName)
        throw std::runtime_error(
            fmt::format("{}: listed by {} and {}", list.installName, other.library, list.library));
    for (const ListedSymbol& symbol : list.symbols)
      if (auto [at, fresh] = owner.emplace(symbol.name, list.library); !fresh)
        throw std::runtime_error(
            fmt::format("{}: listed for {} and {}", symbol.name, at->second, list.library));
    lists.push_back(std::move(list));
  }
  return lists;
}

}  // namespace device
