// What each option does.
#include <set>

#include "tests/simulator/app/run.hpp"

namespace {

namespace fs = std::filesystem;
using sim::Json;
using test::Options;
using test::reportOf;

TEST(CommandLine, WithoutOptionsIsAPhoneWithTheLibrary) {
  Json report = reportOf({});
  EXPECT_EQ(report["device"], "iPhone 7");
  EXPECT_EQ(report["ios"], "10.3.3");
  EXPECT_EQ(report["orientation"], "portrait");
  EXPECT_EQ(report["loaded"], true);
  EXPECT_EQ(report["pages"].size(), 3u);
  EXPECT_GT(report["hooks"]["replaced"], 0);
  EXPECT_EQ(report["time"], 0);
}

TEST(CommandLine, PrintsNothingThatWasNotAskedFor) {
  test::Run run = test::runSimulator(
      {"--snapshot", test::temporaryFile("a.png", ""), "--report", test::temporaryFile("a.json", "")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "");
}

TEST(CommandLine, PrintsTheReportForAMinus) {
  test::Run run = test::runSimulator({"--report", "-"});
  std::string file = test::temporaryFile("a.json", "");
  test::runSimulator({"--report", file});
  EXPECT_EQ(run.output, test::contentsOf(file));
  EXPECT_TRUE(Json::parse(run.output).isObject());
}

TEST(CommandLine, ExplainsItself) {
  test::Run run = test::runSimulator({"--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.errors, "");
  for (const char* option : {"--device", "--list-devices", "--ios", "--orientation", "--pages", "--icons",
                             "--root", "--prefs", "--set", "--presets", "--stock", "--icon-support",
                             "--loader", "--library", "--script", "--snapshot", "--report"})
    EXPECT_NE(run.output.find(option), std::string::npos) << option;
}

constexpr const char* models[] = {
    "iPhone 4s", "iPhone 5", "iPhone 5s",   "iPhone 6", "iPhone 6s",  "iPhone 6 Plus",       "iPhone 7",
    "iPhone 8",  "iPhone X", "iPad mini 2", "iPad Air", "iPad Air 2", "iPad Pro (12.9-inch)"};

TEST(DeviceList, IsATableWithALineAModel) {
  test::Run run = test::runSimulator({"--list-devices"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.errors, "");
  for (const char* model : models)
    EXPECT_NE(run.output.find(std::string("\n") + model + "  "), std::string::npos) << model;
  size_t start = run.output.find("\niPhone 7 ") + 1;
  std::string line = run.output.substr(start, run.output.find('\n', start) - start);
  for (const char* part : {"375×667", " 2 ", "750×1334", "phone", "10.0", "12.4.1", "6×4"})
    EXPECT_NE(line.find(part), std::string::npos) << part << " in: " << line;
}

TEST(DeviceList, IsAReportToo) {
  std::string file = test::temporaryFile("devices.json", "");
  test::Run run = test::runSimulator({"--list-devices", "--report", file});
  EXPECT_EQ(run.output, test::runSimulator({"--list-devices"}).output);
  Json list = Json::parse(test::contentsOf(file));
  std::set<std::string> names;
  for (auto& device : list) names.insert(device["name"].get<std::string>());
  EXPECT_EQ(names.size(), list.size());
  for (const char* model : models) EXPECT_TRUE(names.contains(model)) << model;
  Json wanted{{"name", "iPad Pro (12.9-inch)"},
              {"points", {1024, 1366}},
              {"scale", 2},
              {"nativePixels", {2048, 2732}},
              {"idiom", "pad"},
              {"systemVersions", {"9.1", "12.4.1"}},
              {"rows", 5},
              {"columns", 4},
              {"landscape", {{"rows", 4}, {"columns", 5}}}};
  auto found = std::find_if(list.begin(), list.end(),
                            [](const Json& device) { return device["name"] == "iPad Pro (12.9-inch)"; });
  ASSERT_NE(found, list.end());
  EXPECT_EQ(*found, wanted);
}

TEST(DeviceList, HasDevicesThatAllStart) {
  std::string file = test::temporaryFile("devices.json", "");
  test::runSimulator({"--list-devices", "--report", file});
  for (auto& device : Json::parse(test::contentsOf(file))) {
    Json report = reportOf({"--device", device["name"], "--stock", "--pages", "1"});
    EXPECT_EQ(report["device"], device["name"]);
    EXPECT_EQ(report["pages"][0]["rows"], device["rows"]);
    EXPECT_EQ(report["pages"][0]["columns"], device["columns"]);
  }
}

TEST(SystemVersion, IsTheNearestThatTheDeviceRan) {
  EXPECT_EQ(reportOf({"--device", "iPhone 4s"})["ios"], "9.3.6");
  EXPECT_EQ(reportOf({"--device", "iPhone X"})["ios"], "11.0.1");
  EXPECT_EQ(reportOf({"--device", "iPad Air 2"})["ios"], "10.3.3");
}

TEST(SystemVersion, IsTheOneThatIsWanted) {
  EXPECT_EQ(reportOf({"--device", "iPhone 5", "--ios", "8.4"})["ios"], "8.4");
  EXPECT_EQ(reportOf({"--ios", "12.0"})["ios"], "12.0");
  EXPECT_EQ(reportOf({"--ios=10.3"})["ios"], "10.3");
}

TEST(Orientation, IsTheOneOfTheStart) {
  Json report = reportOf({"--device", "iPad Air 2", "--orientation", "landscape", "--stock"});
  EXPECT_EQ(report["orientation"], "landscape");
  EXPECT_EQ(report["pages"][0]["columns"], 5);
  EXPECT_EQ(report["classColumns"], 4);
  EXPECT_EQ(reportOf({"--orientation", "portrait"})["orientation"], "portrait");
  EXPECT_EQ(reportOf({"--device", "iPad Air 2"}, "rotate landscape\n")["orientation"], "portrait");
}

TEST(Stock, LoadsNoLibrary) {
  Json report = reportOf({"--stock"});
  EXPECT_EQ(report["loaded"], false);
  EXPECT_EQ(report["hooks"], Json({{"replaced", 0}, {"added", 0}, {"rows", Json::array()}}));
  EXPECT_EQ(report["framing"], nullptr);
  EXPECT_EQ(report["preferences"], nullptr);
  EXPECT_EQ(report["presets"], nullptr);
  EXPECT_EQ(report["console"], Json::array());
}

TEST(IconSupport, IsThereWhenItIsWanted) {
  EXPECT_EQ(reportOf({"--icon-support"})["iconSupport"], Json::array({"Tilo"}));
  EXPECT_EQ(reportOf({})["iconSupport"], Json::array());
}

TEST(Library, MayBeAnyFile) {
  fs::path original = fs::canonical("/proc/self/exe").parent_path() / "libTilo.so";
  sim::TemporaryRoot folder;
  fs::path copy = folder.path() / "another name.dylib";
  fs::copy_file(original, copy);
  EXPECT_EQ(reportOf({"--library", copy.string()}), reportOf({}));
}

TEST(Settings, AreAllThatThePreferencesHold) {
  Json report = reportOf({"--set", "enabled=YES", "--set", "labels=NO", "--set", "rows=5", "--set",
                          "columns=4.5", "--set", "word=five", "--set", "rows=6"});
  Json expected{{"columns", 4.5}, {"enabled", true}, {"labels", false}, {"rows", 6}, {"word", "five"}};
  EXPECT_EQ(report["preferences"], expected);
}

TEST(Settings, AreTheSeededOnesWhereNoneAreGiven) {
  Json preferences = reportOf({})["preferences"];
  EXPECT_EQ(preferences.size(), 20u);
  EXPECT_EQ(preferences["enabled"], true);
}

// A property list whose values no text form shares: a boolean, an integer, a real number and a string.
constexpr const char* xmlList =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\"><dict><key>enabled</key><true/><key>rows</key><integer>7</integer>"
    "<key>sideIconInset</key><real>12.5</real><key>word</key><string>five</string></dict></plist>\n";

// {enabled: true, rows: 7} in the binary form: the objects, then where each begins, then the trailer.
std::string binaryList() {
  std::string list = "bplist00";
  std::string offsets;
  auto add = [&](const std::string& object) {
    offsets += static_cast<char>(list.size());
    list += object;
  };
  add({'\xD2', 1, 2, 3, 4});
  add("\x57"
      "enabled");
  add("\x54"
      "rows");
  add("\x09");
  add({'\x10', 7});
  auto table = static_cast<char>(list.size());
  list += offsets;
  std::string trailer(32, '\0');
  trailer[6] = 1;   // bytes of an offset
  trailer[7] = 1;   // bytes of a reference
  trailer[15] = 5;  // objects
  trailer[31] = table;
  return list + trailer;
}

TEST(PreferenceFile, MayBeXml) {
  Json report = reportOf({"--prefs", test::temporaryFile("a.plist", xmlList)});
  Json expected{{"enabled", true}, {"rows", 7}, {"sideIconInset", 12.5}, {"word", "five"}};
  EXPECT_EQ(report["preferences"], expected);
}

TEST(PreferenceFile, MayBeBinary) {
  Json report = reportOf({"--prefs", test::temporaryFile("a.plist", binaryList())});
  EXPECT_EQ(report["preferences"], Json({{"enabled", true}, {"rows", 7}}));
}

TEST(PreferenceFile, IsOverlaidByTheSettings) {
  for (const std::string& list : {std::string(xmlList), binaryList()}) {
    Json preferences = reportOf({"--prefs", test::temporaryFile("a.plist", list), "--set", "rows=2", "--set",
                                 "columns=3"})["preferences"];
    EXPECT_EQ(preferences["enabled"], true);
    EXPECT_EQ(preferences["rows"], 2);
    EXPECT_EQ(preferences["columns"], 3);
  }
}

TEST(PreferenceFile, IsReadAndNotWritten) {
  std::string file = test::temporaryFile("a.plist", xmlList);
  reportOf({"--prefs", file, "--set", "rows=2"});
  EXPECT_EQ(test::contentsOf(file), xmlList);
}

TEST(PresetsFile, IsThereBeforeTheLibrary) {
  Json records = Json::array({test::preset("Spoons", 1, 1, 2, 31, 4)});
  std::string file = test::temporaryFile("presets.json", test::presetsDocument(records));
  Json report = reportOf({"--presets", file, "--set", "enabled=YES", "--set", "custom_preset=0"});
  EXPECT_EQ(report["presets"], Json({{"configurations", records}}));
  EXPECT_EQ(report["pages"][0]["sideInset"], 31);
}

TEST(Icons, AreCountedInDecimalDigits) {
  EXPECT_EQ(reportOf({"--stock", "--icons", "010"})["pages"][0]["icons"].size(), 10u);
  EXPECT_EQ(reportOf({"--stock", "--pages", "02"})["pages"].size(), 2u);
}

TEST(Landscape, OfAHomeScreenThatDoesNotTurnIsTold) {
  const test::Run phone = test::runSimulator({"--device", "iPhone 7", "--orientation", "landscape"});
  EXPECT_EQ(phone.status, 0);
  EXPECT_EQ(phone.errors,
            "tilo-sim: --orientation landscape: the home screen of the iPhone 7 does not turn\n");
  for (const char* device : {"iPhone 7 Plus", "iPad Air 2"})
    reportOf({"--device", device, "--orientation", "landscape"});
}

}  // namespace
