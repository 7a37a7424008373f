// tilo-settings, as a user runs it.
#include <algorithm>
#include <fstream>

#include "platform/foundation/number.hpp"
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
  for (const auto& [key, given, written] : {std::tuple{"enabled", "YES", "YES"},
                                            {"square", "NO", "NO"},
                                            {"rows", "6", "6.0"},
                                            {"sideIconInset", "41.5", "41.5"},
                                            {"vertIconPadding", "-13", "-13.0"},
                                            {"qsBackgroundColor", "8", "8"},
                                            {"custom_preset", "-1", "-1"}}) {
    EXPECT_EQ(run({"set", key, given}).status, 0);
    EXPECT_EQ(valueOf(key), std::string(written) + "\n");
  }
}

TEST_F(SettingsTool, KnowsSettingsByTheirTitles) {
  EXPECT_EQ(run({"set", "Dock Icons", "6"}).status, 0);
  EXPECT_EQ(valueOf("Dock Icons"), "6.0\n");
  EXPECT_EQ(valueOf("dockIcons"), "6.0\n");
}

TEST_F(SettingsTool, KnowsChoicesByTheirTitles) {
  EXPECT_EQ(run({"set", "Panel Color", "Peach"}).status, 0);
  EXPECT_EQ(valueOf("qsBackgroundColor"), "2\n");
  EXPECT_EQ(run({"set", "Layout", "Custom"}).status, 0);
  EXPECT_EQ(valueOf("custom_preset"), "-1\n");
}

TEST_F(SettingsTool, KnowsALayoutByItsTitleWhateverThatLooksLike) {
  for (const char* name : {"7", "YES", "-0.5"}) {
    ASSERT_EQ(run({"paste", std::string("tilo:1:1,2,3,4:") + name}).status, 0);
    EXPECT_EQ(run({"set", "Layout", name}).status, 0) << name;
  }
  EXPECT_EQ(valueOf("custom_preset"), "2\n");
  EXPECT_EQ(run({"set", "Layout", "0"}).status, 0);  // a position, for there is no such title
  EXPECT_EQ(valueOf("custom_preset"), "0\n");
}

TEST_F(SettingsTool, RefusesWhatASettingCannotBe) {
  for (const auto& [name, value, fault] : {std::tuple{"enabled", "maybe", "YES or NO"},
                                           {"enabled", "1", "YES or NO"},
                                           {"rows", "abc", "a number, 1 to 15"},
                                           {"rows", "YES", "a number, 1 to 15"},
                                           {"rows", "0", "from 1 to 15"},
                                           {"rows", "16", "from 1 to 15"},
                                           {"rows", "4.5", "a whole number, 1 to 15"},
                                           {"Side Inset", "-0.5", "from 0 to 500"},
                                           {"qsBackgroundColor", "99", "one of White, Blue"},
                                           {"qsBackgroundColor", "2.5", "one of White, Blue"},
                                           {"Layout", "0", "one of Custom"},
                                           {"Layout", "Wide", "one of Custom"}}) {
    expectError({"set", name, value},
                std::string("'") + value + "' for '" + name + "': it has to be " + fault);
    expectError({"get", name}, "is not set");
  }
}

TEST_F(SettingsTool, TakesTheEndsOfARange) {
  for (const auto& [name, value] : {std::pair{"Rows", "1.0"},
                                    {"Rows", "15.0"},
                                    {"Top Inset", "0.0"},
                                    {"Top Inset", "600.0"},
                                    {"Vertical Padding", "-20.0"},
                                    {"Vertical Padding", "100.0"}}) {
    EXPECT_EQ(run({"set", name, value}).status, 0);
    EXPECT_EQ(valueOf(name), std::string(value) + "\n");
  }
}

TEST_F(SettingsTool, KeepsTheOtherValues) {
  run({"set", "rows", "6"});
  run({"set", "columns", "5"});
  EXPECT_EQ(valueOf("rows"), "6.0\n");
}

TEST_F(SettingsTool, WritesWithoutAHomeScreenAndSaysSo) {
  const test::Run ended = run({"set", "rows", "6"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors, "tilo-settings: written; no home screen runs that could be told\n");
  EXPECT_EQ(valueOf("rows"), "6.0\n");
}

TEST_F(SettingsTool, AnnouncesTheThreeSwitchesByTheirTitles) {
  serve();
  EXPECT_EQ(run({"set", "twoFinger", "YES"}).errors, "");
  EXPECT_EQ(run({"set", "quick", "NO"}).status, 0);
  EXPECT_EQ(run({"set", "isDarkMode", "YES"}).status, 0);
  const std::string name = "PreferencesDidChangeNotification";
  EXPECT_EQ(heard, (std::vector<Heard>{
                       {name, {{"name", "Use Two Finger Tap Instead"}, {"value", true}}},
                       {name, {{"name", "Enable Quick Settings"}, {"value", false}}},
                       {name, {{"name", "Quick Settings Dark Mode"}, {"value", true}}},
                   }));
}

TEST_F(SettingsTool, AnnouncesAllOtherSettingsByTheirKeys) {
  serve();
  const std::string name = "ListPreferencesDidChangeNotification";
  EXPECT_EQ(run({"set", "Rows", "3"}).status, 0);
  EXPECT_EQ(run({"set", "square", "YES"}).status, 0);
  EXPECT_EQ(run({"set", "Layout", "Custom"}).status, 0);
  EXPECT_EQ(heard, (std::vector<Heard>{
                       {name, {{"index", 3.0}, {"name", "rows"}}},
                       {name, {{"index", true}, {"name", "square"}}},
                       {name, {{"index", -1}, {"name", "custom_preset"}}},
                   }));
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

TEST_F(SettingsTool, ListsSettingsWithTitlesKindsValuesAndRanges) {
  run({"set", "quick", "YES"});
  const std::string text = run({"list"}).output;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 20);
  for (const char* line :
       {"Enable Quick Settings            quick              boolean  YES     YES or NO\n",
        "Rows                             rows               float    5.0     1 to 15, whole\n",
        "Layout                           custom_preset      integer  -       Custom\n"})
    EXPECT_NE(text.find(line), std::string::npos) << text;
}

TEST_F(SettingsTool, ResetsToWhatTheFirstStartWrites) {
  serve();
  run({"set", "square", "YES"});
  run({"set", "rows", "9"});
  EXPECT_EQ(run({"reset"}).status, 0);
  EXPECT_EQ(valueOf("rows"), "5.0\n");
  EXPECT_EQ(valueOf("topIconInset"), "65.0\n");
  EXPECT_EQ(valueOf("quick"), "YES\n");
  expectError({"get", "square"}, "is not set");
  const Heard rows{"ListPreferencesDidChangeNotification", {{"index", 5.0}, {"name", "rows"}}};
  EXPECT_NE(std::find(heard.begin(), heard.end(), rows), heard.end());
}

TEST_F(SettingsTool, SendsAnyMessage) {
  serve();
  EXPECT_EQ(run({"send", "hello", "name=a b", "value=-0.5"}).status, 0);
  EXPECT_EQ(heard, (std::vector<Heard>{{"hello", {{"name", "a b"}, {"value", -0.5}}}}));
  expectError({"send", "goodbye"}, "goodbye");
}

TEST_F(SettingsTool, NamesWhatIsWrong) {
  expectError({"send", "hello"}, "no home screen");
  expectError({"set", "numOfPages", "3"}, "'numOfPages'");
  expectError({"get", "round"}, "'round'");
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

// As a package's installation leaves it.
TEST_F(SettingsTool, KnowsADeviceThatHasNotStartedYet) {
  root = root / "installed";
  fs::create_directories(root / "var/mobile/Documents");
  EXPECT_EQ(run({"list"}).status, 0);
  EXPECT_EQ(run({"set", "rows", "6"}).status, 0);
  EXPECT_EQ(valueOf("rows"), "6.0\n");
}

TEST_F(SettingsTool, MakesNothingOfAFolderThatIsNoDevice) {
  root = root / "empty";
  fs::create_directory(root);
  expectError({"set", "rows", "6"}, "empty");
  EXPECT_TRUE(fs::is_empty(root));
}

}  // namespace
