// The report's form.
#include <cmath>
#include <limits>

#include "simulator/app/report_values.hpp"
#include "tests/simulator/app/run.hpp"

namespace {

using sim::Json;
using test::reportOf;

TEST(Report, SaysOfEveryPageWhatItAnswersAndShows) {
  Json pages = reportOf({"--stock", "--pages", "2"})["pages"];
  ASSERT_EQ(pages.size(), 2u);
  for (size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(pages[i]["index"], i);
    for (const char* key : {"rows", "columns", "rowsForSpacing"}) EXPECT_TRUE(pages[i][key].isWhole());
    for (const char* key : {"verticalPadding", "horizontalPadding", "sideInset", "topInset"})
      EXPECT_TRUE(pages[i][key].isNumber()) << key;
    ASSERT_EQ(pages[i]["icons"].size(), 24u);
    for (auto& icon : pages[i]["icons"]) {
      EXPECT_FALSE(icon["name"].get<std::string>().empty());
      EXPECT_EQ(icon["frame"].size(), 4u);
      EXPECT_EQ(icon["square"], false);
      EXPECT_EQ(icon["label"]["visible"], true);
      EXPECT_EQ(icon["label"]["frame"].size(), 4u);
    }
  }
}

TEST(Report, PlacesTheLabelInThePage) {
  for (auto& icon : reportOf({"--stock"})["pages"][1]["icons"]) {
    const Json &frame = icon["frame"], &label = icon["label"]["frame"];
    double middle = frame[0].get<double>() + frame[2].get<double>() / 2;
    EXPECT_NEAR(label[0].get<double>() + label[2].get<double>() / 2, middle, 1e-9);
    EXPECT_GE(label[1].get<double>(), frame[1].get<double>() + 60);
    EXPECT_LE(label[1].get<double>() + label[3].get<double>(),
              frame[1].get<double>() + frame[3].get<double>());
  }
}

TEST(Report, HasTheClassesAnswersForPortraitWhateverTheOrientation) {
  Json report = reportOf({"--stock", "--device", "iPhone 7 Plus", "--orientation", "landscape"});
  EXPECT_EQ(report["classRows"], 6);
  EXPECT_EQ(report["classColumns"], 4);
  EXPECT_EQ(report["pages"][0]["rows"], 4);
  EXPECT_EQ(report["pages"][0]["columns"], 6);
}

TEST(Report, WritesInfiniteNumbersAsWords) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(sim::number(infinite), "inf");
  EXPECT_EQ(sim::number(-infinite), "-inf");
  EXPECT_EQ(sim::number(std::nan("")), "nan");
  EXPECT_EQ(sim::number(1), 1);
}

TEST(Report, HasTheLibrarysFourExportedValues) {
  Json report =
      reportOf({"--set", "enabled=YES", "--set", "custom_preset=-1", "--set", "vertIconPadding=1.5", "--set",
                "horiIconPadding=-2", "--set", "sideIconInset=30", "--set", "topIconInset=44"});
  EXPECT_EQ(report["framing"], Json({1.5, -2, 30, 44}));
}

TEST(Report, HasTheLinesOfTheLogFile) {
  sim::TemporaryRoot root;
  std::filesystem::create_directories(root.path() / "var/mobile/Documents");
  std::ofstream(root.path() / "var/mobile/Documents/Tilo3.log") << "[Info] one\n[Error] two\n";
  EXPECT_EQ(reportOf({"--stock", "--root", root.path().string()})["log"],
            Json::array({"[Info] one", "[Error] two"}));
  EXPECT_EQ(reportOf({"--stock"})["log"], Json::array());
}

TEST(Report, HasTheLinesOfTheSystemLog) {
  Json console = reportOf({})["console"];
  ASSERT_FALSE(console.empty());
  EXPECT_NE(console[0].get<std::string>().find("[Tilo3]"), std::string::npos);
}

TEST(Report, ShowsAPresetsFileThatIsNoJsonAsItsText) {
  EXPECT_EQ(reportOf({"--presets", test::temporaryFile("presets.json", "no {json")})["presets"], "no {json");
}

TEST(Report, HasKeysOfThePreferencesInTheirOrder) {
  std::string last;
  for (auto& [key, value] : reportOf({})["preferences"].items()) {
    EXPECT_LT(last, key);
    last = key;
  }
}

// In the middle of a turn's relayout icons are between their places.
TEST(Report, ShowsFramesOfTheMoment) {
  auto secondColumn = [](const char* script) {
    return reportOf(
               {"--device", "iPad Air 2", "--set", "enabled=YES", "--set", "custom_preset=0", "--presets",
                test::temporaryFile("presets.json",
                                    test::presetsDocument(Json::array({test::preset("S", 0, 1, 9, 1, 1)})))},
               script)["pages"][0]["icons"][1]["frame"][0]
        .get<double>();
  };
  double start = secondColumn("rotate landscape\n"), middle = secondColumn("rotate landscape\nwait 0.3\n"),
         end = secondColumn("rotate landscape\nwait 0.6\n");
  EXPECT_LT(start, middle);
  EXPECT_LT(middle, end);
}

// A full disk holds what it held, whatever the library remembers.
TEST(Report, HasThePreferencesThatAnotherProcessWouldRead) {
  test::Home home({"--set", "rows=5"});
  home.simulation().fileSystem().refuse("/var/mobile", sim::Faults::writing, ENOSPC);
  home.save("rows"_ns, 7);
  home.save("columns"_ns, 3);
  EXPECT_EQ(home.report()["preferences"], Json({{"rows", 5}}));
  home.simulation().fileSystem().allowAll();
  home.save("columns"_ns, 4);
  EXPECT_EQ(home.report()["preferences"], Json({{"columns", 4}, {"rows", 7}}));
}

}  // namespace
