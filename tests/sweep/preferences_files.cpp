// Preferences files: each key with each value alone, among good ones; all keys with one value; mixtures; and
// files that are no property list of keys and values.
#include <random>

#include "tests/library/device_files.hpp"
#include "tests/sweep/cases.hpp"

namespace test::sweep {
namespace {

struct Value {
  const char* name;
  const char* xml;
};

const Value values[] = {
    {"list", "<array><integer>3</integer></array>"},
    {"emptyList", "<array/>"},
    {"table", "<dict><key>value</key><integer>3</integer></dict>"},
    {"emptyTable", "<dict/>"},
    {"date", "<date>2026-01-01T00:00:00Z</date>"},
    {"data", "<data>AAEC</data>"},
    {"word", "<string>many</string>"},
    {"emptyText", "<string></string>"},
    {"numberAsText", "<string>7</string>"},
    {"endlessText", "<string>1e999</string>"},
    {"nan", "<real>nan</real>"},
    {"infinity", "<real>+infinity</real>"},
    {"infinityBelow", "<real>-infinity</real>"},
    {"huge", "<real>1e300</real>"},
    {"hugeBelow", "<real>-1e300</real>"},
    {"largest", "<integer>9223372036854775807</integer>"},
    {"smallest", "<integer>-9223372036854775808</integer>"},
    {"beyondThirtyTwoBits", "<integer>2147483648</integer>"},
    {"zero", "<integer>0</integer>"},
    {"belowZero", "<integer>-1</integer>"},
    {"fraction", "<real>2.5</real>"},
    {"truth", "<true/>"},
};

// With a value with which everything is switched on.
const Value keys[] = {
    {"enabled", "<true/>"},
    {"quick", "<true/>"},
    {"icons", "<true/>"},
    {"rows", "<integer>5</integer>"},
    {"columns", "<integer>3</integer>"},
    {"vertIconPadding", "<real>-5</real>"},
    {"horiIconPadding", "<real>9</real>"},
    {"sideIconInset", "<real>30</real>"},
    {"topIconInset", "<real>40</real>"},
    {"dockIcons", "<integer>3</integer>"},
    {"dockIconsEnabled", "<true/>"},
    {"dock", "<false/>"},
    {"square", "<true/>"},
    {"labels", "<true/>"},
    {"page", "<true/>"},
    {"preset", "<integer>-2</integer>"},
    {"custom_preset", "<integer>0</integer>"},
    {"isDarkMode", "<false/>"},
    {"qsBackgroundColor", "<integer>4</integer>"},
    {"twoFinger", "<false/>"},
    {"forceTouch", "<true/>"},
    {"numOfPages", "<integer>3</integer>"},
    {"showed-setup", "<true/>"},
};

std::string entry(const char* key, const char* xml) {
  return "<key>" + std::string(key) + "</key>" + xml + "\n";
}

// A file in which `of` tells the value of each key; none where it tells nothing.
std::string file(const auto& of) {
  std::string entries;
  for (const Value& key : keys)
    if (const char* xml = of(key)) entries += entry(key.name, xml);
  return propertyList(entries);
}

std::string wordOf(const char* key) {
  std::string word = key;
  for (char& c : word)
    if (c == '-') c = '_';
  return word;
}

}  // namespace

std::vector<Case> preferencesFiles() {
  std::vector<Case> all;
  for (const Value& key : keys)
    for (const Value& value : values)
      all.push_back({wordOf(key.name) + "_" + value.name,
                     file([&](const Value& other) { return &other == &key ? value.xml : other.xml; })});
  for (const Value& key : keys)
    all.push_back({wordOf(key.name) + "_absent", file([&](const Value& other) -> const char* {
                     return &other == &key ? nullptr : other.xml;
                   })});
  for (const Value& value : values)
    all.push_back({std::string("all_") + value.name, file([&](const Value&) { return value.xml; })});
  std::mt19937 random(1);
  constexpr int mixtures = 150;
  for (int i = 0; i < mixtures; ++i)
    all.push_back({"mixture_" + std::to_string(i), file([&](const Value& key) -> const char* {
                     const auto which = random() % (std::size(values) * 2);
                     if (which < std::size(values)) return values[which].xml;
                     return which % 4 ? key.xml : nullptr;
                   })});
  all.push_back({"file_empty", ""});
  all.push_back({"file_noList", "not a property list"});
  all.push_back(
      {"file_ofAList", "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><true/></array></plist>"});
  all.push_back({"file_ofAText", "<?xml version=\"1.0\"?><plist version=\"1.0\"><string>x</string></plist>"});
  all.push_back({"file_brokenOff", file([](const Value& key) { return key.xml; }).substr(0, 700)});
  return all;
}

}  // namespace test::sweep
