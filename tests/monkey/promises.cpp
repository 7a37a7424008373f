// Each promise, and how it is looked into. None of them asks the library: files are read, SpringBoard's
// lists are asked, and views are counted.
#include "tests/monkey/promises.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/uikit/view.hpp"
#include "simulator/app/report.hpp"
#include "simulator/app/report_parts.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/product/class_names.hpp"
#include "simulator/product/panel.hpp"
#include "simulator/product/product.hpp"
#include "simulator/springboard/springboard.hpp"
#include "simulator/uikit/views/window.hpp"

namespace test::monkey {
namespace {

using sim::Json;

constexpr double longestWayOut = 1.5;  // seconds

const std::set<std::string> storingSteps{"increment", "decrement", "slide", "apply"};
const std::set<std::string> rowSteps{"increment", "decrement", "slide", "apply", "type", "paste", "cancel"};

std::string wordOf(const std::string& step) { return step.substr(0, step.find(' ')); }

// A key of the report alone: the whole of it is not needed at every step.
Json reportOf(Home& home, std::span<const sim::ReportRow> rows, std::string_view key) {
  const auto row = std::ranges::find(rows, key, &sim::ReportRow::key);
  return row->value(home.simulation());
}

int panelsIn(UIView view) {
  if (sim::product::isKindOfNamed(view, "RQPopupView")) return 1;
  int count = 0;
  const NSArray below = view.subviews();
  for (NSUInteger i = 0; i < below.count(); ++i)
    count += panelsIn(bridge::as<UIView>(below.objectAtIndex(i)));
  return count;
}

}  // namespace

Promises::Promises(Home& home, std::map<std::string, Json> stock)
    : home(home),
      stock(std::move(stock)),
      screen(home.simulation().device(), sim::Orientation::portrait),
      stored(reportOf(home, sim::product::filesKeys(), "preferences")),
      known(stored) {}

std::optional<std::string> Promises::broken(const std::string& step) {
  const bridge::Pool pool;
  follow(step);
  followTouch();
  followSettings(step);
  if (auto wrong = panels()) return wrong;
  if (auto wrong = rows()) return wrong;
  if (auto wrong = presetsFile()) return wrong;
  const auto wrong = answers();
  return wrong && isToldByTouch() ? std::nullopt : wrong;
}

// A row of Settings that is touched, or one of the panel wherever a finger meets it, may store what the file
// has already, and tell the library so, who was told something else.
void Promises::followTouch() {
  const bool areShown = sim::product::shownPanel() ||
                        reportOf(home, sim::homeScreenReport(), "application") == Json("Settings");
  if (!std::exchange(wereRowsShown, areShown) && !areShown) return;
  for (const auto& [key, value] : stored.items())
    if (known.value(key) != value) maybeTold.insert(key);
}

// Whether the answers are what they should be if the library has been told of some of those.
bool Promises::isToldByTouch() {
  std::vector<std::string> keys;
  for (const std::string& key : maybeTold)
    if (stored.contains(key) && known.value(key) != stored[key]) keys.push_back(key);
  const Json before = known;
  for (size_t some = 1; some < size_t{1} << keys.size(); ++some) {
    for (size_t i = 0; i < keys.size(); ++i)
      if (some >> i & 1) known[keys[i]] = stored[keys[i]];
    if (!answers()) return true;
    known = before;
  }
  return false;
}

// A tablet's layouts follow the turns that were made since the start.
void Promises::follow(const std::string& step) {
  if (step.starts_with("write-presets")) {
    foreignPresets = home.contents(presetsPath);
    presetsAreTold = false;
  }
  const sim::Orientation now = sim::springboard::orientation();
  if (now == orientation) return;
  screen.turnFrom(orientation, whole(known, "preset"));
  orientation = now;
}

// A message changes what the library knows and not the file; what others write changes the file alone; and
// what the library or Settings store, both.
void Promises::followSettings(const std::string& step) {
  const Json before = std::exchange(stored, reportOf(home, sim::product::filesKeys(), "preferences"));
  if (step.starts_with("write ")) return;
  for (const auto& [key, value] : before.items())
    if (!stored.contains(key)) known.erase(key);
  // A row may as well be one of Settings' own, whose captions are the same.
  const bool isOfARow =
      rowSteps.contains(wordOf(step)) && reportOf(home, sim::homeScreenReport(), "application").isNull();
  for (const auto& [key, value] : stored.items()) {
    if (before.contains(key) && before[key] == value) continue;
    known[key] = value;
    if (!isOfARow) told.insert(key);
  }
  if (isOfARow) followRow(step);
  if (step == "call exportSettings") followExport();
  constexpr std::string_view message = "message ListPreferencesDidChangeNotification name=";
  if (!step.starts_with(message)) return;
  const size_t end = step.find(' ', message.size());
  const std::string key = step.substr(message.size(), end - message.size());
  const std::string index = step.substr(step.find('=', end) + 1);
  known[key] = index == "YES" || index == "NO" ? Json(index == "YES") : Json(std::stol(index));
  told.insert(key);
  maybeTold.erase(key);
}

// An export stores what SpringBoard's first list answers, which the file may have already, while the library
// was told something else; and no row moves for it.
void Promises::followExport() {
  for (const char* key : {"sideIconInset", "topIconInset", "horiIconPadding", "vertIconPadding"}) {
    known[key] = stored[key];
    told.insert(key);
  }
}

// What a row stores, which it does not while somebody types, may be what the file has already, while the
// library was told something else.
void Promises::followRow(const std::string& step) {
  const Json panel = reportOf(home, sim::product::panelKeys(), "panel");
  const size_t open = step.find('"') + 1;
  const std::string caption = step.substr(open, step.find('"', open) - open);
  if (panel.isNull() || !panel["rows"].contains(caption) || !storingSteps.contains(wordOf(step))) return;
  const Json& row = panel["rows"][caption];
  const auto key = row["key"].get<std::string>();
  // A text that is no number reads as 0, and what is beyond the range is not taken.
  const double given = std::strtod(row["text"].get<std::string>().c_str(), nullptr);
  if (step.starts_with("apply ") && !(given >= reported(row["minimum"]) && given <= reported(row["maximum"])))
    return;
  if (stored.contains(key) && close(reported(row["value"]), single(stored, key), 1)) known[key] = stored[key];
}

std::optional<std::string> Promises::panels() {
  int count = 0;
  for (const UIWindow window : sim::uikit::windows()) count += panelsIn(window);
  if (count == 0) told.clear();
  if (count <= 1) {
    aloneAt = sim::clock::now();
    return std::nullopt;
  }
  // One may be on its way out when the next one comes.
  const double since = sim::clock::now() - aloneAt;
  if (since < longestWayOut) return std::nullopt;
  return fmt::format("panels: there are {}, for {:.2f} s", count, since);
}

// A row shows what is stored under its key; where nothing is, zero, or the nearest that its range has.
std::optional<std::string> Promises::rows() {
  const Json panel = reportOf(home, sim::product::panelKeys(), "panel");
  if (panel.isNull()) return std::nullopt;
  for (const auto& [caption, row] : panel["rows"].items()) {
    const auto key = row["key"].get<std::string>();
    if (told.contains(key)) continue;
    const auto shows = [&, &key = key](const Json& settings) {
      const double should =
          std::clamp(single(settings, key), reported(row["minimum"]), reported(row["maximum"]));
      return close(reported(row["value"]), should, 1);
    };
    if (!shows(known) && maybeTold.contains(key) && shows(stored)) known[key] = stored[key];
    if (!shows(known))
      return fmt::format("rows: {} shows {}, and should show {}", caption, row["value"].dump(),
                         single(known, key));
  }
  return std::nullopt;
}

// What the library writes is a presets file; what somebody else wrote stays until then.
std::optional<std::string> Promises::presetsFile() {
  const Json presets = reportOf(home, sim::product::filesKeys(), "presets");
  if (!presets.isString() || presets.get<std::string>() == foreignPresets) return std::nullopt;
  return "presets: the file is " + presets.dump();
}

std::optional<std::string> Promises::answers() {
  const Json& system = stock.at(orientation == sim::Orientation::portrait ? "portrait" : "landscape");
  const long position = whole(known, "custom_preset");
  Json layout;
  if (position >= 0) {
    if (!presetsAreTold) return std::nullopt;
    const Json presets = reportOf(home, sim::product::filesKeys(), "presets");
    if (presets.isObject() && presets.contains("configurations")) {
      const Json& records = presets["configurations"];
      if (position < static_cast<long>(records.size())) layout = records[static_cast<size_t>(position)];
    }
  }
  const ExpectedAnswers expected = ExpectedHome{system, known, layout, screen}.answers();
  const Json pages = sim::reportPages(home.simulation());
  const Json& page = pages[0];
  const std::pair<const char*, double> all[] = {{"rows", static_cast<double>(expected.rows)},
                                                {"columns", static_cast<double>(expected.columns)},
                                                {"verticalPadding", expected.vertical},
                                                {"horizontalPadding", expected.horizontal},
                                                {"sideInset", expected.side},
                                                {"topInset", expected.top}};
  for (const auto& [key, value] : all)
    if (!close(reported(page[key]), value))
      return fmt::format("answers: {} is {}, and should be {}", key, page[key].dump(), value);
  return std::nullopt;
}

}  // namespace test::monkey
