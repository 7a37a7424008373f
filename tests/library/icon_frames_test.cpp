// Where icons stand: exactly where the answers of their page put them.
#include <gtest/gtest.h>

#include "tests/library/expected_grid.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::ExpectedHome;
using test::homeOptions;
using test::preset;
using Json = sim::Json;

struct Screen {
  const char* device;
  const char* orientation;

  friend void PrintTo(const Screen& screen, std::ostream* stream) { *stream << screen.device; }
};

const Screen screens[] = {
    {"iPhone 4s", "portrait"},     {"iPhone SE", "portrait"}, {"iPhone 7", "portrait"},
    {"iPhone 7 Plus", "portrait"}, {"iPhone X", "portrait"},  {"iPhone 7 Plus", "landscape"},
    {"iPad 2", "portrait"},        {"iPad 2", "landscape"},   {"iPad Pro (10.5-inch)", "landscape"},
};

struct Settings {
  const char* what;
  Json values;
  std::vector<std::string> written;
  Json layout;
};

const Settings cases[] = {
    {"turned off", {{"enabled", false}}, {"enabled=NO"}, preset("Unused", 0, 1, 2, 3, 4)},
    {"stored",
     {{"enabled", true},
      {"icons", true},
      {"rows", 3},
      {"columns", 5},
      {"custom_preset", -1},
      {"vertIconPadding", -13},
      {"horiIconPadding", 1.5},
      {"sideIconInset", 41},
      {"topIconInset", 65.25}},
     {"enabled=YES", "icons=YES", "rows=3", "columns=5", "custom_preset=-1", "vertIconPadding=-13",
      "horiIconPadding=1.5", "sideIconInset=41", "topIconInset=65.25"},
     preset("Unused", 0, 1, 2, 3, 4)},
    {"stretched", {{"enabled", true}}, {"enabled=YES"}, preset("Stretched", 0, 4.5, -3, 17, 29)},
    {"as it stands", {{"enabled", true}}, {"enabled=YES"}, preset("As it stands", 1, 4.5, -3, 17, 29)},
};

class IconFrames : public testing::TestWithParam<Screen> {};

TEST_P(IconFrames, FollowTheAnswersOnEveryPage) {
  std::vector<std::string> start{"--orientation", GetParam().orientation};
  Json system = test::stockReport(homeOptions(GetParam().device, {}, start));
  bool sideways = std::string(GetParam().orientation) == "landscape";
  test::ExpectedScreen screen(sim::findDevice(GetParam().device),
                              sideways ? sim::Orientation::landscape : sim::Orientation::portrait);
  for (const Settings& one : cases) {
    SCOPED_TRACE(one.what);
    Json report =
        test::reportOf(homeOptions(GetParam().device, one.written, test::withPresets({one.layout}, start)));
    test::ExpectedAnswers answers = ExpectedHome{system, one.values, one.layout, screen}.answers();
    auto sizes = test::expectedPageSizes(system, answers);
    ASSERT_EQ(report["pages"].size(), sizes.size());
    for (size_t i = 0; i < sizes.size(); ++i) {
      test::expectAnswers(report["pages"][i], answers);
      EXPECT_EQ(report["pages"][i]["icons"].size(), sizes[i]);
      test::expectFrames(report["pages"][i], answers, test::iconViewSize(system));
    }
    test::expectFolderAndDockAsInStock(report, system);
  }
}

INSTANTIATE_TEST_SUITE_P(OfDevices, IconFrames, testing::ValuesIn(screens), [](const auto& test) {
  std::string name = std::string(test.param.device) + "_" + test.param.orientation;
  std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)) && c != '_'; });
  return name;
});

// A grid without rows stretches without end; an icon goes as far as a frame can say.
TEST(IconFrame, IsFarAwayWithoutRows) {
  auto options = homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "rows=0", "columns=4"},
                             test::withPresets({preset("Stretched", 0, 1, 16, 32, -1)}, {"--icons", "3"}));
  Json report = test::reportOf(options);
  double wide = 750. / 640 * 1.4;
  EXPECT_EQ(report["pages"][0]["icons"][0]["frame"], Json({32 * wide, -1e6, 60, 74}));
}

TEST(IconFrame, TurnsWithTheDeviceOnEveryPage) {
  std::string script = test::temporaryFile("script", "rotate landscape\nwait 1\n");
  Json report = test::reportOf(homeOptions("iPad Air", {"enabled=NO"}, {"--script", script}));
  ASSERT_EQ(report["pages"].size(), 3u);
  for (const Json& page : report["pages"]) {
    // Four rows of five, inset by 110 and 50.
    EXPECT_EQ(page["icons"][0]["frame"], Json({110, 50, 76, 90}));
    EXPECT_EQ(page["icons"][4]["frame"], Json({110 + 4 * (76 + 106), 50, 76, 90}));
    EXPECT_EQ(page["icons"][5]["frame"], Json({110, 50 + 90 + 62, 76, 90}));
  }
}

}  // namespace
