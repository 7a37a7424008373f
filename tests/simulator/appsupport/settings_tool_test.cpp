// tilo-settings, as a user runs it.
#include <algorithm>
#include <fstream>

#include "platform/foundation/number.hpp"
#include "simulator/product/settings_tool/settings.hpp"
#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;
namespace fs = std::filesystem;

class SettingsTool : public ServedCentre {
 protected:
  SettingsTool() {
    fs::create_directories(root / "var/mobile/Library/Preferences");
    for (NSString name : {"PreferencesDidChangeNotification"_ns, "ListPreferencesDidChangeNotification"_ns})
      centre().registerForMessageName_target_selector(name, listener, hearing());
  }

  test::Run run(std::vector<std::string> words) {
    words.insert(words.begin(), {"--root", root.string()});
    return runSettings(words, [] { sim::appsupport::serveMessages(); });
  }

  std::string valueOf(const std::string& key) { return run({"get", key}).output; }

  void expectError(const std::vector<std::string>& words, const std::string& culprit) {
    const test::Run ended = run(words);
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    EXPECT_NE(ended.errors.find(culprit), std::string::npos) << ended.errors;
    EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1) << ended.errors;
  }
};

TEST_F(SettingsTool, WritesValuesOfTheirKinds) {
  for (const auto& [key, value] : {std::pair{"enabled", "YES"},
                                   {"labels", "NO"},
                                   {"rows", "6"},
                                   {"columns", "4.5"},
                                   {"preset", "-4.0"},
                                   {"vertIconPadding", "-13"}}) {
    EXPECT_EQ(run({"set", key, value}).status, 0);
    EXPECT_EQ(valueOf(key), std::string(value) + "\n");
  }
  EXPECT_EQ(run({"set", "rows", "a few"}).status, 0);
  EXPECT_EQ(valueOf("rows"), "a few\n");
}

TEST_F(SettingsTool, KeepsTheOtherValues) {
  run({"set", "rows", "6"});
  run({"set", "columns", "5"});
  EXPECT_EQ(valueOf("rows"), "6\n");
}

TEST_F(SettingsTool, WritesWithoutAHomeScreenAndSaysSo) {
  const test::Run ended = run({"set", "rows", "6"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors, "tilo-settings: written; no home screen runs that could be told\n");
  EXPECT_EQ(valueOf("rows"), "6\n");
}

TEST_F(SettingsTool, AnnouncesTheThreeSwitchesByTheirTitles) {
  serve();
  EXPECT_EQ(run({"set", "twoFinger", "YES"}).errors, "");
  EXPECT_EQ(run({"set", "quick", "NO"}).status, 0);
  EXPECT_EQ(run({"set", "isDarkMode", "1"}).status, 0);
  const std::string name = "PreferencesDidChangeNotification";
  EXPECT_EQ(heard, (std::vector<Heard>{
                       {name, {{"name", "Use Two Finger Tap Instead"}, {"value", true}}},
                       {name, {{"name", "Enable Quick Settings"}, {"value", false}}},
                       {name, {{"name", "Quick Settings Dark Mode"}, {"value", 1}}},
                   }));
}

TEST_F(SettingsTool, AnnouncesAllOtherSettingsByTheirKeys) {
  serve();
  std::vector<Heard> expected;
  for (const sim::product::SettingRow& row : sim::product::settingRows()) {
    if (row.announcement == sim::product::Announcement::byTitle) continue;
    EXPECT_EQ(run({"set", std::string(row.key), "3"}).status, 0);
    expected.push_back(
        {"ListPreferencesDidChangeNotification", {{"index", 3}, {"name", std::string(row.key)}}});
  }
  EXPECT_EQ(expected.size(), 17u);
  EXPECT_EQ(heard, expected);
}

TEST_F(SettingsTool, HasWrittenWhenTheHomeScreenHears) {
  serve();
  std::string then;
  whenHeard = [&] {
    std::ifstream file(root / "var/mobile/Library/Preferences/com.wexor.tilo.plist");
    then.assign(std::istreambuf_iterator<char>(file), {});
  };
  run({"set", "rows", "6"});
  EXPECT_NE(then.find("<key>rows</key>"), std::string::npos) << then;
}

TEST_F(SettingsTool, ListsTwentySettingsWithTitlesAndValues) {
  run({"set", "quick", "YES"});
  const std::string text = run({"list"}).output;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 20);
  EXPECT_NE(text.find("Enable Quick Settings            YES\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Use Two Finger Tap Instead       -\n"), std::string::npos) << text;
}

TEST_F(SettingsTool, SendsAnyMessage) {
  serve();
  EXPECT_EQ(run({"send", "hello", "name=a b", "value=-0.5"}).status, 0);
  EXPECT_EQ(heard, (std::vector<Heard>{{"hello", {{"name", "a b"}, {"value", -0.5}}}}));
  expectError({"send", "goodbye"}, "goodbye");
}

TEST_F(SettingsTool, NamesWhatIsWrong) {
  expectError({"send", "hello"}, "no home screen");
  expectError({"set", "square", "YES"}, "'square'");
  expectError({"get", "square"}, "'square'");
  expectError({"get", "rows"}, "'rows' is not set");
  expectError({"send", "hello", "value"}, "'value'");
  expectError({"frob"}, "frob");
  expectError({"set", "rows"}, "VALUE");
  root /= "nowhere";
  expectError({"list"}, "nowhere");
}

TEST_F(SettingsTool, LeavesAFileThatCannotBeParsedAsItIs) {
  const fs::path file = root / "var/mobile/Library/Preferences/com.wexor.tilo.plist";
  std::ofstream(file) << "{ not a list";
  expectError({"set", "rows", "6"}, "the preferences file cannot be read");
  std::ifstream now(file);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(now), {}), "{ not a list");
}

TEST_F(SettingsTool, MakesNothingOfAFolderThatIsNoDevice) {
  root = root / "empty";
  fs::create_directory(root);
  expectError({"set", "rows", "6"}, "empty");
  EXPECT_TRUE(fs::is_empty(root));
}

}  // namespace
