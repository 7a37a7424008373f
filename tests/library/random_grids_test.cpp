// Home screens of random devices, settings and layouts, compared with an independent calculation: every
// answer of every page, and the place of every icon. A failure names its seed and the command line.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "tests/library/expected_grid.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::ExpectedAnswers;
using test::ExpectedHome;
using test::ExpectedScreen;
using Json = sim::Json;

class Dice {
 public:
  explicit Dice(uint64_t seed) : engine(seed) {}

  long between(long least, long most) {
    return least + static_cast<long>(engine() % static_cast<uint64_t>(most - least + 1));
  }
  bool chance(int percent) { return between(1, 100) <= percent; }
  template <class List>
  auto& of(const List& list) {
    return list[static_cast<size_t>(between(0, static_cast<long>(std::size(list)) - 1))];
  }
  // Points: whole ones, or thousandths of them.
  Json length() {
    if (chance(30)) return between(-60, 120);
    return static_cast<double>(between(-60'000, 120'000)) / 1000;
  }
  Json count() {
    if (chance(15)) return static_cast<double>(between(10, 99)) / 10;
    return between(1, 9);
  }

 private:
  std::mt19937_64 engine;
};

const char* const lengthKeys[] = {"vertIconPadding", "horiIconPadding", "sideIconInset", "topIconInset"};
const char* const layoutKeys[] = {"vertical_padding", "horizontal_padding", "side_inset", "top_inset"};

// Most keys are there most of the time.
Json randomSettings(Dice& dice) {
  Json settings = Json::object();
  if (dice.chance(95)) settings["enabled"] = dice.chance(90);
  if (dice.chance(90)) settings["icons"] = dice.chance(75);
  if (dice.chance(85)) settings["rows"] = dice.count();
  if (dice.chance(85)) settings["columns"] = dice.count();
  if (dice.chance(85)) settings["custom_preset"] = dice.between(-2, 4);
  if (dice.chance(30)) settings["preset"] = dice.of(std::vector<long>{-4, -2, 0, 1, 7, 8, 9});
  for (const char* key : lengthKeys)
    if (dice.chance(85)) settings[key] = dice.length();
  return settings;
}

Json randomLayout(Dice& dice) {
  Json layout{{"name", "Layout"}, {"value", dice.between(0, 9)}};
  if (dice.chance(85)) layout["configurable"] = dice.of(std::vector<Json>{0, 0, 0, 1, 1, 2, true, false});
  if (dice.chance(5)) return layout;
  layout["configuration"] = Json::object();
  for (const char* key : layoutKeys)
    if (dice.chance(90)) layout["configuration"][key] = dice.length();
  return layout;
}

std::vector<Json> randomLayouts(Dice& dice, long most) {
  std::vector<Json> layouts(static_cast<size_t>(dice.between(0, most)));
  for (Json& layout : layouts) layout = randomLayout(dice);
  return layouts;
}

Json layoutAt(const std::vector<Json>& layouts, long position) {
  if (position < 0 || position >= static_cast<long>(layouts.size())) return nullptr;
  return layouts[static_cast<size_t>(position)];
}

std::string written(const Json& value) {
  if (value.isBoolean()) return value.get<bool>() ? "YES" : "NO";
  return value.dump();
}

// What a first start stores; nothing of it selects a layout.
const Json firstStart{{"enabled", true},        {"icons", false},      {"rows", 5},
                      {"columns", 4},           {"preset", -4},        {"vertIconPadding", -13},
                      {"horiIconPadding", 1.0}, {"sideIconInset", 41}, {"topIconInset", 65}};

// The few models whose layouts are stretched by the most involved rule come up often.
const sim::Device& randomDevice(Dice& dice) {
  if (dice.chance(70)) return dice.of(sim::catalogue());
  return sim::findDevice(dice.of(std::vector<const char*>{"iPhone 6", "iPhone 6s", "iPhone 7", "iPhone 8"}));
}

// One run of the simulator.
struct Case {
  const sim::Device* device;
  sim::Orientation start = sim::Orientation::portrait;
  bool turned = false;  // while it ran
  Json settings, layout;
  std::vector<std::string> options;

  explicit Case(Dice& dice) : device(&randomDevice(dice)) {
    options = {"--device", std::string(device->name), "--ios", version(dice)};
    if (dice.chance(40)) start = sim::Orientation::landscape;
    options.insert(options.end(),
                   {"--orientation", start == sim::Orientation::landscape ? "landscape" : "portrait"});
    if (dice.chance(50))
      options.insert(options.end(), {"--pages", std::to_string(dice.between(1, 3))});
    else
      options.insert(options.end(), {"--icons", std::to_string(dice.between(1, 60))});
    settings = dice.chance(8) ? Json::object() : randomSettings(dice);
    for (auto& [key, value] : settings.items()) {
      options.push_back("--set");
      options.push_back(key + "=" + written(value));
    }
    if (settings.empty()) settings = firstStart;
    addLayouts(dice);
    if (dice.chance(30)) turn();
  }

  std::string commandLine() const {
    std::string line = "tilo-sim";
    for (const std::string& option : options) line += " '" + option + "'";
    return line;
  }

 private:
  std::string version(Dice& dice) {
    std::vector<std::string> ran{device->first.text(), device->last.text()};
    for (sim::Version one :
         {sim::Version{9, 2}, {9, 3, 5}, {10, 0}, {10, 3, 3}, {11, 0, 1}, {11, 4}, {12, 1}})
      if (one >= device->first && one <= device->last) ran.push_back(one.text());
    return dice.of(ran);
  }

  void addLayouts(Dice& dice) {
    if (dice.chance(10)) return;
    auto layouts = randomLayouts(dice, 5);
    std::string text = test::presetsDocument(Json(layouts));
    if (dice.chance(10)) {
      layouts.clear();
      text = dice.of(std::vector<std::string>{"no JSON", "[]", "{}", "", R"({"configurations": {"a": 1}})"});
    }
    layout = layoutAt(layouts, test::whole(settings, "custom_preset"));
    options.insert(options.end(), {"--presets", test::temporaryFile("presets.json", text)});
  }

  void turn() {
    const char* to = start == sim::Orientation::landscape ? "portrait" : "landscape";
    std::string script = std::string("rotate ") + to + "\nwait 1\n";
    options.insert(options.end(), {"--script", test::temporaryFile("script", script)});
    turned = device->homeScreenTurns;
  }
};

void check(const Case& one) {
  Json system = test::stockReport(one.options), report = test::reportOf(one.options);
  ASSERT_TRUE(system.isObject() && report.isObject());
  ExpectedScreen screen(*one.device, one.start);
  if (one.turned) screen.turnFrom(one.start, test::whole(one.settings, "preset"));
  ExpectedAnswers answers = ExpectedHome{system, one.settings, one.layout, screen}.answers();
  CGSize size = test::iconViewSize(system);

  EXPECT_EQ(report["classRows"], answers.classRows);
  EXPECT_EQ(report["classColumns"], answers.classColumns);
  for (const Json& page : report["pages"]) test::expectAnswers(page, answers);
  for (size_t i = 0; i < 4; ++i)
    EXPECT_EQ(report["framing"][i], test::single(one.settings, lengthKeys[i])) << lengthKeys[i];
  test::expectFolderAndDockAsInStock(report, system);
  // Which pages of a tablet are laid out anew for its new factors is the relayout's affair; the first one is.
  size_t laidOut = one.turned && screen.tablet ? 1 : report["pages"].size();
  for (size_t i = 0; i < laidOut; ++i) test::expectFrames(report["pages"][i], answers, size);
  if (one.turned) return;  // the pages were filled for the grid at the start
  std::vector<size_t> sizes;
  for (const Json& page : report["pages"]) sizes.push_back(page["icons"].size());
  EXPECT_EQ(sizes, test::expectedPageSizes(system, answers));
}

class RandomHomes : public testing::TestWithParam<uint64_t> {};

TEST_P(RandomHomes, AreAsCalculated) {
  constexpr int runs = 10;
  for (int i = 0; i < runs && !HasFailure(); ++i) {
    uint64_t seed = GetParam() * 1000 + static_cast<uint64_t>(i);
    Dice dice(seed);
    Case one(dice);
    SCOPED_TRACE("seed " + std::to_string(seed) + ", layout " + one.layout.dump() + ": " + one.commandLine());
    check(one);
  }
}

INSTANTIATE_TEST_SUITE_P(OfSeed, RandomHomes, testing::Range<uint64_t>(1, 9),
                         [](const auto& test) { return std::to_string(test.param); });

// A home screen whose settings change while it runs.
struct Live {
  const char* device;
  const char* orientation;

  friend void PrintTo(const Live& live, std::ostream* stream) { *stream << live.device; }
};

class RandomSettings : public testing::TestWithParam<Live> {};

bridge::Object number(const Json& value) {
  if (value.isNull()) return {};
  if (value.isBoolean()) return NSNumber::numberWithBool(value.get<bool>());
  if (value.isWhole()) return NSNumber::numberWithLongLong(value.get<long long>());
  return NSNumber::numberWithDouble(value.get<double>());
}

const char* const settingKeys[] = {"enabled",         "icons",         "rows",
                                   "columns",         "custom_preset", "vertIconPadding",
                                   "horiIconPadding", "sideIconInset", "topIconInset"};

// Leaves nothing in the domain that is not in `settings`.
void save(test::Home& home, const Json& settings) {
  for (const char* key : settingKeys)
    home.save(NSString::stringWithUTF8String(key), number(settings.value(key)));
}

struct PlacedList : bridge::Face<"SBIconListView", SBIconListView> {
  MESSAGE Method<"layoutIconsNow", void()> layoutIconsNow;
};

// SpringBoard lays the page out again without an animation. A place that is no number would raise.
bool layOut(SBRootIconListView page, const ExpectedAnswers& answers) {
  for (double length : {answers.vertical, answers.horizontal, answers.side, answers.top})
    if (!std::isfinite(length)) return false;
  bridge::as<PlacedList>(page).layoutIconsNow();
  return true;
}

TEST_P(RandomSettings, AreFollowedAtOnce) {
  constexpr int rounds = 120;
  constexpr uint64_t seed = 20170801;
  Dice dice(seed);
  std::vector<Json> layouts(5);
  for (Json& layout : layouts) layout = randomLayout(dice);
  bool sideways = std::string(GetParam().orientation) == "landscape";
  ExpectedScreen screen(sim::findDevice(GetParam().device),
                        sideways ? sim::Orientation::landscape : sim::Orientation::portrait);
  std::vector<std::string> start{"--orientation", GetParam().orientation, "--pages", "2"};
  auto options = test::homeOptions(GetParam().device, {"enabled=NO"}, test::withPresets(layouts, start));
  Json system = test::stockReport(options);
  Json current = layouts[0];  // no selection is stored
  test::Home home(options);
  int laidOut = 0;

  for (int round = 0; round < rounds && !HasFailure(); ++round) {
    bridge::Pool pool;
    Json settings = randomSettings(dice);
    settings.erase("preset");
    if (dice.chance(8)) settings["rows"] = dice.between(-3, 0);
    if (dice.chance(8)) settings["columns"] = dice.between(-3, 0);
    save(home, settings);
    if (long position = dice.between(-1, 6); dice.chance(60)) {
      tilo::RQGestureController::sharedInstance().updateConfigWithValue(static_cast<int>(position));
      if (Json found = layoutAt(layouts, position); !found.isNull()) current = found;
    }
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round) + ", layout " +
                 current.dump() + ": " + settings.dump());
    ExpectedAnswers answers = ExpectedHome{system, settings, current, screen}.answers();
    bool placed = layOut(home.page(0), answers) && layOut(home.page(1), answers);
    Json report = home.report();
    EXPECT_EQ(report["classRows"], answers.classRows);
    EXPECT_EQ(report["classColumns"], answers.classColumns);
    for (const Json& page : report["pages"]) {
      test::expectAnswers(page, answers);
      if (placed) test::expectFrames(page, answers, test::iconViewSize(system));
    }
    test::expectFolderAndDockAsInStock(report, system);
    laidOut += placed;
  }
  EXPECT_GT(laidOut, rounds * 3 / 4);
}

const Live live[] = {{"iPhone 5s", "portrait"},
                     {"iPhone 7", "portrait"},
                     {"iPhone 8 Plus", "landscape"},
                     {"iPad Air", "portrait"},
                     {"iPad 2", "landscape"}};

INSTANTIATE_TEST_SUITE_P(OfDevices, RandomSettings, testing::ValuesIn(live), [](const auto& test) {
  std::string name = std::string(test.param.device) + "_" + test.param.orientation;
  std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)) && c != '_'; });
  return name;
});

}  // namespace
