// Presets files: each place of a document with each value, in the first record or the last; mixtures; and
// files that are no document.
#include <random>

#include "tests/sweep/cases.hpp"

namespace test::sweep {
namespace {

struct Value {
  const char* name;
  std::string json;
};

const Value values[] = {
    {"null", "null"},
    {"truth", "true"},
    {"zero", "0"},
    {"belowZero", "-1"},
    {"fraction", "2.5"},
    {"huge", "1e300"},
    {"endless", "1e999"},
    {"endlessBelow", "-1e999"},
    {"beyondSixtyFourBits", "99999999999999999999999"},
    {"word", "\"many\""},
    {"emptyText", "\"\""},
    {"numberAsText", "\"12\""},
    {"list", "[1]"},
    {"emptyList", "[]"},
    {"lists", "[[[[[]]]]]"},
    {"table", R"({"value":1})"},
    {"emptyTable", "{}"},
    {"deep", std::string(200, '[') + std::string(200, ']')},
};

constexpr const char* lengths[] = {"vertical_padding", "horizontal_padding", "side_inset", "top_inset"};
constexpr const char* members[] = {"name", "value", "configurable", "configuration"};

// A record in which `of` tells the text of each member, given its good one; none where that is empty.
std::string record(const auto& of) {
  std::string spacing, all;
  const auto add = [&](std::string& to, const char* key, const std::string& good) {
    const std::string text = of(key, good);
    if (!text.empty()) to += std::string(to.empty() ? "" : ",") + "\"" + key + "\":" + text;
  };
  for (const char* key : lengths) add(spacing, key, "7.5");
  add(all, "name", "\"saved\"");
  add(all, "value", "0");
  add(all, "configurable", "0");
  add(all, "configuration", "{" + spacing + "}");
  return "{" + all + "}";
}

std::string good() {
  return record([](const char*, const std::string& text) { return text; });
}

// The edited record first or last of two.
std::string document(const std::string& edited, bool first) {
  return "{\"configurations\":[" + (first ? edited + "," + good() : good() + "," + edited) + "]}";
}

void add(std::vector<Case>& all, const std::string& name, const std::string& edited) {
  all.push_back({name + "_first", document(edited, true)});
  all.push_back({name + "_last", document(edited, false)});
}

}  // namespace

std::vector<Case> presetsFiles() {
  std::vector<Case> all;
  const auto with = [&](const char* place, const std::string& text) {
    return record(
        [&](const char* key, const std::string& usual) { return key == std::string(place) ? text : usual; });
  };
  for (const auto* places : {&members[0], &lengths[0]})
    for (int i = 0; i < 4; ++i) {
      for (const Value& value : values)
        add(all, std::string(places[i]) + "_" + value.name, with(places[i], value.json));
      add(all, std::string(places[i]) + "_absent", with(places[i], ""));
    }
  for (const Value& value : values) {
    add(all, std::string("record_") + value.name, value.json);
    all.push_back({std::string("list_") + value.name, "{\"configurations\":" + value.json + "}"});
    all.push_back({std::string("document_") + value.name, value.json});
  }
  std::mt19937 random(2);
  constexpr int mixtures = 50;
  for (int i = 0; i < mixtures; ++i)
    add(all, "mixture_" + std::to_string(i), record([&](const char*, const std::string& usual) {
          const auto which = random() % (std::size(values) * 2);
          if (which < std::size(values)) return values[which].json;
          return which % 5 ? usual : std::string();
        }));
  all.push_back({"file_empty", ""});
  all.push_back({"file_noDocument", "not JSON"});
  all.push_back({"file_brokenOff", document(good(), true).substr(0, 90)});
  all.push_back({"file_noText", "{\"configurations\":[\xff\xfe]}"});
  all.push_back({"file_withMore", document(good(), true) + " more"});
  all.push_back({"file_nameless", "{\"configurations\":[{},{},{}]}"});
  return all;
}

}  // namespace test::sweep
