// Layouts as lines of text and backups, as tilo-settings makes and takes them.
#include <fstream>

#include "tests/simulator/appsupport/travelling_settings.hpp"

namespace {

using namespace test;

TEST_F(TravellingSettings, CarryALayoutAsALineOfText) {
  EXPECT_EQ(run({"paste", wide}).status, 0);
  EXPECT_EQ(run({"copy", "Wide"}).output, std::string(wide) + "\n");
  const sim::Json file = sim::Json::parse(layouts());
  EXPECT_EQ(file["configurations"][0].sorted(),
            sim::Json::parse(R"({"name": "Wide", "value": 0, "configurable": 1, "configuration": {
              "horizontal_padding": 11.5, "vertical_padding": 26, "side_inset": 14.5, "top_inset": 30}})")
                .sorted());
}

TEST_F(TravellingSettings, KeepNumbersThatSinglePrecisionHas) {
  for (const char* line : {"tilo:1:0.1,-20,1000000,16777216:A", "tilo:1:0.100000001,0,0.3,1e+30:B",
                           "tilo:1:30,3,300,-3000,scaled:C:D, E"}) {
    ASSERT_EQ(run({"paste", line}).status, 0) << line;
    const sim::Json all = sim::Json::parse(layouts())["configurations"];
    const std::string stored = all[all.size() - 1]["name"].get<std::string>();
    const std::string copied = run({"copy", stored}).output;
    EXPECT_EQ(run({"paste", copied.substr(0, copied.size() - 1)}).status, 0);
    const sim::Json then = sim::Json::parse(layouts())["configurations"];
    EXPECT_EQ(then[then.size() - 1]["configuration"].sorted(),
              then[then.size() - 2]["configuration"].sorted())
        << copied;
    EXPECT_EQ(then[then.size() - 1]["configurable"], then[then.size() - 2]["configurable"]);
    EXPECT_EQ(then[then.size() - 1]["name"], then[then.size() - 2]["name"]);
  }
}

TEST_F(TravellingSettings, TakeNoRubbishForALayout) {
  run({"paste", wide});
  const std::string before = layouts();
  for (const char* text : {"", "hello", "tilo:1:", "tilo:1:1,2,3,4", "tilo:1:1,2,3,4:", "tilo:1:1,2,3:Short",
                           "tilo:1:1,2,3,4,5:Long", "tilo:1:1,2,,4:Gap", "tilo:1:1,2,x,4:Word",
                           "tilo:1:1,2,nan,4:None", "tilo:1:1,2,1e999,4:Much", "tilo:2:1,2,3,4:Later",
                           "tilo:1:1,2,3,4:Two\nlines", "Tilo:1:1,2,3,4:Case"}) {
    expectError({"paste", text}, "this is no layout");
    EXPECT_EQ(layouts(), before);
  }
}

TEST_F(TravellingSettings, NameALayoutThatIsNotThere) { expectError({"copy", "Wide"}, "'Wide'"); }

TEST_F(TravellingSettings, AreTheSameInAnotherDevice) {
  fill();
  const std::string list = run({"list"}).output, before = layouts(), file = backup();
  root = temporary.path() / "other";
  makeDevice(root);
  EXPECT_EQ(run({"restore", file}).status, 0);
  EXPECT_EQ(layouts(), before);
  EXPECT_EQ(run({"list"}).output, list);
}

TEST_F(TravellingSettings, LoseWhatTheBackupHasNot) {
  const std::string file = backup();
  fill();
  EXPECT_EQ(run({"restore", file}).status, 0);
  EXPECT_EQ(layouts(), R"({"configurations":[]})");
  expectError({"get", "rows"}, "is not set");
}

TEST_F(TravellingSettings, AreBackedUpAsTheyAreShownWhenAFileHoldsWhatCannotBe) {
  std::ofstream(root / "var/mobile/Library/Preferences/com.wexor.tilo.plist")
      << R"(<?xml version="1.0"?><plist version="1.0"><dict><key>rows</key><integer>99</integer>)"
      << R"(<key>columns</key><string>lots</string><key>dock</key><string>YES</string></dict></plist>)";
  const sim::Json settings = sim::Json::parse(contentsOf(backup()))["settings"];
  EXPECT_EQ(settings.sorted(), sim::Json::parse(R"({"rows": 15, "columns": 1, "dock": true})").sorted());
}

TEST_F(TravellingSettings, StayAsTheyAreForABadBackup) {
  fill();
  const std::string file = backup();
  const std::string settings = preferences(), presets = layouts();
  const std::string text = contentsOf(file);
  expectError({"restore", edited(file, "\"rows\": 7", "\"rows\": 70")}, "rows has to be from 1 to 15");
  expectError({"restore", edited(file, "\"square\": true", "\"square\": 1")}, "square has to be YES or NO");
  expectError({"restore", edited(file, "\"custom_preset\": 1", "\"custom_preset\": 2")},
              "custom_preset has to be");
  expectError({"restore", edited(file, "\"rows\"", "\"rowz\"")}, "rowz is no setting");
  expectError({"restore", edited(file, "\"version\": 1", "\"version\": 2")}, "version 2");
  expectError({"restore", edited(file, "\"version\": 1", "\"version\": \"x\"")}, "no version");
  expectError({"restore", edited(file, "Tilo backup", "Shopping list")}, "no backup of Tilo's");
  expectError({"restore", edited(file, "\"side_inset\":14.5", "\"side_inset\":\"x\"")},
              "'Wide' has no number for side_inset");
  expectError({"restore", edited(file, "\"name\":\"Wide\"", "\"name\":\"\"")}, "layout 0 has no name");
  expectError({"restore", temporaryFile("half.json", text.substr(0, text.size() / 2))},
              "no JSON, or not all of it");
  expectError({"restore", temporaryFile("list.json", "[1, 2]")}, "no JSON, or not all of it");
  expectError({"restore", temporaryFile("empty.json", "")}, "no JSON, or not all of it");
  expectError({"restore", "/nowhere/backup.json"}, "/nowhere/backup.json");
  EXPECT_EQ(preferences(), settings);
  EXPECT_EQ(layouts(), presets);
}

TEST_F(TravellingSettings, NameAFileThatIsNoneInOneLine) {
  fill();
  const std::string settings = preferences(), presets = layouts();
  for (const char* file : {"/nowhere/backup.json", "/dev", "/dev/null"})
    expectError({"restore", file}, std::string("'") + file + "': the backup cannot be read");
  for (const char* file : {"/nowhere/backup.json", "/dev"})
    expectError({"backup", file}, std::string("'") + file + "': the backup cannot be written");
  EXPECT_EQ(preferences(), settings);
  EXPECT_EQ(layouts(), presets);
}

}  // namespace
