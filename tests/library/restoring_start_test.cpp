// A SpringBoard that starts where a restore was broken off: it brings that to its end, or to nothing.
#include <fstream>
#include <optional>

#include "simulator/device/temporary_root.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;
namespace fs = std::filesystem;

constexpr const char* notePath = "/var/mobile/Documents/com.wexor.tilo3/restoring.plist";
constexpr const char* restoredLayouts = "{\"configurations\":[]}";
constexpr const char* values = "<dict><key>rows</key><integer>7</integer><key>enabled</key><true/></dict>";
constexpr const char* before = "<dict><key>rows</key><integer>3</integer><key>labels</key><true/></dict>";
constexpr const char* layouts = "<data>eyJjb25maWd1cmF0aW9ucyI6W119</data>";  // restoredLayouts

std::string list(const std::string& content) {
  return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>" + content + "</dict></plist>";
}

std::string noteWith(const std::string& newValues, const std::string& oldValues, const std::string& presets) {
  return list("<key>values</key>" + newValues + "<key>before</key>" + oldValues + "<key>presets</key>" +
              presets);
}

class ABrokenOffRestore : public testing::Test {
 protected:
  ABrokenOffRestore() {
    write(test::preferencesPath, list("<key>rows</key><integer>3</integer><key>labels</key><true/>"
                                      "<key>somebodyElses</key><integer>5</integer>"));
    write(notePath, noteWith(values, before, layouts));
  }

  fs::path file(const std::string& path) { return device.path() / path.substr(1); }
  void write(const std::string& path, const std::string& contents) {
    fs::create_directories(file(path).parent_path());
    std::ofstream(file(path)) << contents;
  }
  Json start() {
    home.emplace(std::vector<std::string>{"--root", device.path().string()});
    return home->report()["preferences"];
  }
  std::string presets() { return home->contents(test::presetsPath); }
  void expectBefore(const Json& preferences) {
    EXPECT_EQ(preferences["rows"], 3);
    EXPECT_EQ(preferences["labels"], true);
    EXPECT_EQ(preferences["somebodyElses"], 5);
  }

  sim::TemporaryRoot device;
  std::optional<test::Home> home;
};

TEST_F(ABrokenOffRestore, IsBroughtToItsEnd) {
  const Json preferences = start();
  EXPECT_EQ(preferences["rows"], 7);
  EXPECT_EQ(preferences["enabled"], true);
  EXPECT_FALSE(preferences.contains("labels"));
  EXPECT_EQ(preferences["somebodyElses"], 5);
  EXPECT_EQ(presets(), restoredLayouts);
  EXPECT_FALSE(fs::exists(file(notePath)));
}

TEST_F(ABrokenOffRestore, TakesAwayTheOnlyKeyThatThereWas) {
  write(test::preferencesPath, list("<key>labels</key><true/>"));
  write(notePath, noteWith("<dict><key>rows</key><integer>7</integer></dict>",
                           "<dict><key>labels</key><true/></dict>", layouts));
  const Json preferences = start();
  EXPECT_EQ(preferences["rows"], 7);
  EXPECT_FALSE(preferences.contains("labels"));
}

TEST_F(ABrokenOffRestore, LeavesNothingToSeedOnAFirstStart) {
  fs::remove(file(test::preferencesPath));
  const Json preferences = start();
  EXPECT_EQ(preferences["rows"], 7);
  EXPECT_FALSE(preferences.contains("columns"));
}

TEST_F(ABrokenOffRestore, IsDoneOnce) {
  EXPECT_EQ(test::runSimulator({"--root", device.path().string()}).status, 0);
  EXPECT_FALSE(fs::exists(file(notePath)));
  write(test::presetsPath, "{\"configurations\": [ ]}");
  start();
  EXPECT_EQ(presets(), "{\"configurations\": [ ]}");
}

TEST_F(ABrokenOffRestore, TakesThePlaceOfTheLayoutsThatAreThere) {
  write(test::presetsPath, "{\"configurations\": [{\"name\": \"old\"}]}");
  start();
  EXPECT_EQ(presets(), restoredLayouts);
}

TEST_F(ABrokenOffRestore, WhoseLayoutsCannotBeWrittenIsUndone) {
  write(std::string(test::presetsPath) + "/a folder", "");
  const Json preferences = start();
  expectBefore(preferences);
  EXPECT_FALSE(fs::exists(file(notePath)));
}

TEST_F(ABrokenOffRestore, WhoseSettingsCannotBeWrittenChangesNoLayouts) {
  write(test::presetsPath, "{\"configurations\": [ ]}");
  fs::remove(file(test::preferencesPath));
  write(std::string(test::preferencesPath) + "/a folder", "");
  start();
  EXPECT_EQ(presets(), "{\"configurations\": [ ]}");
  EXPECT_FALSE(fs::exists(file(notePath)));
}

TEST_F(ABrokenOffRestore, WhoseNoteIsNoPropertyListIsForgotten) {
  write(notePath, "what?");
  expectBefore(start());
  EXPECT_FALSE(fs::exists(file(notePath)));
}

struct Edit {
  const char* name;
  std::string note;
};

class AnEditedNote : public ABrokenOffRestore, public testing::WithParamInterface<Edit> {};

TEST_P(AnEditedNote, ChangesNothingAndIsForgotten) {
  write(test::presetsPath, "{\"configurations\": [ ]}");
  write(notePath, GetParam().note);
  expectBefore(start());
  EXPECT_EQ(presets(), "{\"configurations\": [ ]}");
  EXPECT_FALSE(fs::exists(file(notePath)));
}

constexpr const char* text = "<string>much</string>";
INSTANTIATE_TEST_SUITE_P(With, AnEditedNote,
                         testing::Values(Edit{"ATextForTheValues", noteWith(text, before, layouts)},
                                         Edit{"ATextForTheOldValues", noteWith(values, text, layouts)},
                                         Edit{"ATextForTheLayouts", noteWith(values, before, text)},
                                         Edit{"Nothing", list("")}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
