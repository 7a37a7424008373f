// Home screens over files that somebody edited: whatever is in them, SpringBoard goes on, and they stay as
// they are until something is saved. A tenth of the cases by default, all of them with TILO_SWEEP=full.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "tests/library/device_files.hpp"
#include "tests/library/presets_home.hpp"
#include "tests/sweep/cases.hpp"

namespace test::sweep {
namespace {

using sim::Json;

// The same tenth every time, of every sort of case.
std::vector<Case> chosen(std::vector<Case> all) {
  const char* wanted = std::getenv("TILO_SWEEP");
  if (wanted && std::string(wanted) == "full") return all;
  std::shuffle(all.begin(), all.end(), std::mt19937(3));
  all.resize(all.size() / 10);
  return all;
}

std::vector<std::string> on(const char* device) { return {"--device", device, "--icons", "30"}; }

constexpr const char* damagedPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.damaged.json";

// Two good layouts, or good settings, beside the file that is edited.
std::string goodPresets() { return presetsDocument(sim::Json(layouts({"one", "two"}))); }
std::string goodPreferences() {
  return propertyList(
      "<key>enabled</key><true/><key>quick</key><true/><key>custom_preset</key><integer>0</integer>");
}

class ASweep : public testing::TestWithParam<Case> {
 protected:
  // Before there is a home screen, hence a base of it.
  struct Before {
    FileState presetsBefore;
  };

  // The device's two files, and the home screen over them.
  struct Edited : Before, Home {
    Edited(const char* device, const std::string& preferences, const std::string& presets)
        : Home(on(device), [&](sim::Simulation& simulation) {
            put(simulation, preferencesPath, preferences);
            put(simulation, presetsPath, presets);
            presetsBefore = stateOf(simulation, presetsPath);
          }) {}

    static tilo::RQGestureController controller() { return tilo::RQGestureController::sharedInstance(); }
    FileState presetsNow() { return stateOf(simulation(), presetsPath); }

    // By a finger, or where the settings do not let it, all the same.
    void openPanel() {
      step("swipe up");
      step("wait 1");
      if (!report()["panel"].isNull()) return;
      save("enabled"_ns, NSNumber::numberWithBool(YES));
      save("quick"_ns, NSNumber::numberWithBool(YES));
      controller().showPopup();
      step("wait 1");
      // Without any settings in memory there is no panel.
      shown = !report()["panel"].isNull();
    }

    void answer(const char* button) {
      step(std::string("choose \"") + button + "\"");
      step("wait 1");
    }

    bool shown = true;
  };

  // What starting, looking and turning leave as it was: all but the count of pages, which SpringBoard stores.
  static void start(Edited& home) {
    home.step("wait 0.5");
    home.step("swipe left");
    home.step("wait 1");
    home.report();
    EXPECT_EQ(home.presetsNow(), home.presetsBefore);
  }

  static void usePanel(Edited& home) {
    home.openPanel();
    if (!home.shown) return;
    for (const char* row : {"Horizontal Padding", "Vertical Padding", "Side Inset", "Top Inset"})
      home.step(std::string("increment \"") + row + "\"");
    home.step("slide \"Side Inset\" 40");
    home.step("wait 4");
    home.report();
    EXPECT_EQ(home.presetsNow(), home.presetsBefore);
  }

  static void choose(Edited& home) {
    home.step("page 1");
    const size_t count = home.report()["panel"]["presets"].size();
    if (count > 1) home.step("pick 1");
    home.step("tap \"Select\"");
    home.step("wait 1");
    if (!home.report()["alert"].isNull()) home.answer("Okay");
    EXPECT_EQ(home.presetsNow(), home.presetsBefore);
  }

  static void remove(Edited& home) {
    home.controller().showPopup();
    home.step("wait 1");
    home.step("page 1");
    const size_t count = home.report()["panel"]["presets"].size();
    for (int times = 0; times < 3; ++times) {
      home.step("tap \"Delete\"");
      home.step("wait 1");
    }
    EXPECT_LE(home.report()["panel"]["presets"].size(), count);
  }

  static void saveLayout(Edited& home) {
    home.step("page 0");
    home.step("tap \"Add\"");
    home.step("enter \"Home\"");
    home.answer("Add");
    const auto stored = Json::read(home.contents(presetsPath));
    ASSERT_TRUE(stored);
    Json document = *stored;
    ASSERT_GT(document["configurations"].size(), 0u);
    EXPECT_EQ(document["configurations"][document["configurations"].size() - 1]["name"], "Home");
    home.step("page 1");
    home.step("tap \"Select\"");
    home.step("wait 1");
    if (!home.report()["alert"].isNull()) home.answer("Okay");
  }

  // Panel, choosing and deleting, saving.
  static void stories(Edited& home) {
    usePanel(home);
    if (!home.shown) return;
    choose(home);
    remove(home);
    saveLayout(home);
    home.step("rotate landscape");
    home.step("rotate portrait");
    home.report();
  }

  static void turn(Edited& home) {
    home.step("rotate landscape");
    home.step("wait 1");
    home.openPanel();
    home.step("rotate portrait");
    home.step("wait 1");
    home.report();
    EXPECT_EQ(home.presetsNow(), home.presetsBefore);
  }
};

class EditedPreferences : public ASweep {
 protected:
  // But for the count of pages, which SpringBoard stores.
  static bool isUntouched(Home& home) {
    const std::string now = home.contents(preferencesPath);
    return now == GetParam().bytes || listed(now) == listed(GetParam().bytes);
  }

  static Json listed(const std::string& bytes) {
    const bridge::Pool pool;
    const std::string place = temporaryFile("compared.plist", bytes);
    return withoutPageCount(sim::plain(
        NSDictionary::dictionaryWithContentsOfFile(NSString::stringWithUTF8String(place.c_str()))));
  }
};

TEST_P(EditedPreferences, LetSpringBoardGoOn) {
  Edited home("iPhone 7", GetParam().bytes, goodPresets());
  start(home);
  EXPECT_TRUE(isUntouched(home));
  stories(home);
}

TEST_P(EditedPreferences, LetATabletTurn) {
  Edited home("iPad Air", GetParam().bytes, goodPresets());
  turn(home);
}

class EditedPresets : public ASweep {};

TEST_P(EditedPresets, LetSpringBoardGoOn) {
  Edited home("iPhone 7", goodPreferences(), GetParam().bytes);
  start(home);
  stories(home);
  // What was no document lies beside the new one.
  if (std::filesystem::exists(home.file(damagedPath)))
    EXPECT_EQ(home.contents(damagedPath), GetParam().bytes);
}

TEST_P(EditedPresets, LetATabletTurn) {
  Edited home("iPad Air", goodPreferences(), GetParam().bytes);
  turn(home);
}

const auto named = [](const testing::TestParamInfo<Case>& info) { return info.param.name; };
INSTANTIATE_TEST_SUITE_P(With, EditedPreferences, testing::ValuesIn(chosen(preferencesFiles())), named);
INSTANTIATE_TEST_SUITE_P(With, EditedPresets, testing::ValuesIn(chosen(presetsFiles())), named);

}  // namespace
}  // namespace test::sweep
