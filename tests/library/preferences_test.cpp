// The preferences file: what a first start writes, and that a file that is there is only read.
#include "simulator/runtime/preferences.hpp"

#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/configuration_manager.hpp"
#include "tests/library/device_files.hpp"
#include "tests/library/killed.hpp"

namespace {

using test::Home;
using tilo::ConfigurationManager;
using tilo::RQGestureController;

// A value as the XML of a property list has it.
struct Written {
  std::string kind;  // "boolean", "integer", "real", or the element's name
  double number;
  bool operator==(const Written&) const = default;
};
using Values = std::map<std::string, Written>;

std::ostream& operator<<(std::ostream& out, const Written& value) {
  return out << value.kind << " " << value.number;
}

const Values defaults{
    {"qsBackgroundColor", {"integer", 0}},
    {"isDarkMode", {"boolean", 0}},
    {"dockIcons", {"real", 4}},
    {"dockIconsEnabled", {"boolean", 0}},
    {"forceTouch", {"boolean", 0}},
    {"twoFinger", {"boolean", 0}},
    {"dock", {"boolean", 0}},
    {"numOfPages", {"integer", 1}},
    {"columns", {"real", 4}},
    {"rows", {"real", 5}},
    {"enabled", {"boolean", 1}},
    {"icons", {"boolean", 0}},
    {"labels", {"boolean", 0}},
    {"page", {"boolean", 0}},
    {"preset", {"real", -4}},
    {"quick", {"boolean", 1}},
    {"vertIconPadding", {"real", -13}},
    {"horiIconPadding", {"real", 1}},
    {"sideIconInset", {"real", 41}},
    {"topIconInset", {"real", 65}},
};

// Every key of an XML property list with what stands behind it.
Values valuesIn(const std::string& xml) {
  static const std::regex entry(R"(<key>([^<]*)</key>\s*<(?:(true|false)/>|(integer|real|string)>([^<]*)<))");
  Values values;
  for (std::sregex_iterator it(xml.begin(), xml.end(), entry), end; it != end; ++it) {
    const std::smatch& match = *it;
    if (match[2].matched)
      values[match[1]] = {"boolean", match[2] == "true" ? 1.0 : 0.0};
    else
      values[match[1]] = {match[3], std::stod(match[4])};
  }
  return values;
}

size_t keysIn(const std::string& xml) {
  size_t count = 0;
  for (size_t at = xml.find("<key>"); at != std::string::npos; at = xml.find("<key>", at + 1)) ++count;
  return count;
}

sim::Json defaultsAsRead() {
  sim::Json values = sim::Json::object();
  for (auto& [key, value] : defaults)
    if (value.kind == "boolean")
      values[key] = value.number != 0;
    else if (value.kind == "integer")
      values[key] = static_cast<int>(value.number);
    else
      values[key] = value.number;
  return values;
}

TEST(FirstStart, WritesTwentyDefaultsEachOfItsKind) {
  ASSERT_EQ(defaults.size(), 20u);
  std::string xml;
  Home home({}, test::whenLoaded([&](sim::Simulation& device) {
              xml = test::stateOf(device, test::preferencesPath).contents;
            }));
  EXPECT_EQ(keysIn(xml), 20u);
  EXPECT_EQ(valuesIn(xml), defaults);
}

TEST(FirstStart, LeavesOneFileInTheFolder) {
  Home home;
  EXPECT_EQ(test::namesIn(home, test::preferencesFolder), std::set<std::string>{"com.wexor.tilo.plist"});
}

TEST(FirstStart, ReadsBackWhatThePreferenceDomainReports) {
  sim::Json domain, configuration, root;
  Home home({}, test::whenLoaded([&](sim::Simulation&) {
              domain = sim::plain(sim::preferenceDomain("com.wexor.tilo"_ns));
              configuration = sim::plain(ConfigurationManager::sharedManager().configuration());
              root = sim::plain(bridge::as<bridge::Object>(test::libraryVariable<id>("tilo::rootObj")));
            }));
  EXPECT_EQ(domain, defaultsAsRead());
  EXPECT_EQ(configuration, domain);
  EXPECT_EQ(root, domain);
}

TEST(FirstStart, SeedsNeitherTheSelectedPresetNorTheSetUpNotice) {
  Home home;
  NSDictionary values = ConfigurationManager::sharedManager().configuration();
  EXPECT_FALSE(values.objectForKey("custom_preset"_ns));
  EXPECT_FALSE(values.objectForKey("showed-setup"_ns));
}

// The file before the library was loaded and right after.
struct AroundLoading {
  test::FileState before, after;

  test::Preparation watching(const test::Preparation& prepare = nullptr) {
    return [this, prepare](sim::Simulation& device) {
      if (prepare) prepare(device);
      before = test::stateOf(device, test::preferencesPath);
      test::whenLoaded(
          [this](sim::Simulation& loaded) { after = test::stateOf(loaded, test::preferencesPath); })(device);
    };
  }
};

TEST(FirstStart, KilledAtAnySystemCallLeavesNoFileOrAllOfIt) {
  Home home;
  const std::string whole = home.contents(test::preferencesPath);
  const auto seed = reinterpret_cast<void (*)()>(test::librarySymbol("tilo::seedPreferences()"));
  int without = 0, with = 0;
  for (int stop = 1;; ++stop) {
    std::filesystem::remove_all(home.file(test::preferencesPath).parent_path());
    std::filesystem::create_directories(home.file(test::preferencesPath).parent_path());
    const bool killed = test::killAtStop(stop, seed);
    const bool isThere = std::filesystem::exists(home.file(test::preferencesPath));
    ++(isThere ? with : without);
    if (isThere) EXPECT_EQ(home.contents(test::preferencesPath), whole) << stop;
    if (!killed) break;
  }
  EXPECT_GT(without, 5);
  EXPECT_GT(with, 1);
}

TEST(SecondStart, KeepsTheFileOfTheFirst) {
  sim::TemporaryRoot root;
  test::Run first = test::runSimulator({"--root", root.path()});
  ASSERT_EQ(first.status, 0) << first.errors;
  AroundLoading file;
  Home home({"--root", root.path()}, file.watching());
  ASSERT_TRUE(file.before.exists);
  EXPECT_EQ(file.after, file.before);
  EXPECT_EQ(test::preferencesOf(home), test::withoutPageCount(defaultsAsRead()));
}

TEST(SecondStart, SeedsAgainWhenTheFileIsGone) {
  sim::TemporaryRoot root;
  test::Run first = test::runSimulator({"--root", root.path()});
  ASSERT_EQ(first.status, 0) << first.errors;
  AroundLoading file;
  Home home({"--root", root.path()}, file.watching([](sim::Simulation& device) {
    std::filesystem::remove(device.fileSystem().hostPath(test::preferencesPath));
  }));
  EXPECT_EQ(valuesIn(file.after.contents), defaults);
}

class ExistingFile : public testing::TestWithParam<test::Contents> {};

TEST_P(ExistingFile, IsNotTouched) {
  AroundLoading file;
  Home home({}, file.watching(test::having(test::preferencesPath, GetParam().bytes)));
  EXPECT_EQ(file.before.contents, GetParam().bytes);
  EXPECT_EQ(file.after, file.before);
}

INSTANTIATE_TEST_SUITE_P(
    Holding, ExistingFile,
    testing::Values(test::Contents{"SomeKeys", test::propertyList("<key>rows</key><integer>6</integer>")},
                    test::Contents{"AnothersKey", test::propertyList("<key>else</key><string>’s</string>")},
                    test::Contents{"NoKeys", test::propertyList("")}));

struct NSPropertyListSerialization : bridge::Face<"NSPropertyListSerialization", NSObject> {
  static constexpr bridge::ClassMethod<"NSPropertyListSerialization",
                                       "dataWithPropertyList:format:options:error:",
                                       bridge::Object(bridge::Object, NSUInteger, NSUInteger, id*)>
      dataWithPropertyList_format_options_error{};
};
struct Bytes : bridge::Face<"NSData", NSObject> {
  MESSAGE Method<"length", NSUInteger()> length;
  MESSAGE Method<"bytes", const void*()> bytes;
};

TEST(ABinaryFile, IsReadAndNotTouched) {
  constexpr NSUInteger binary = 200;  // NSPropertyListBinaryFormat_v1_0
  AroundLoading file;
  Home home({}, file.watching([](sim::Simulation& device) {
    NSDictionary values = NSDictionary::dictionaryWithObject_forKey(NSNumber::numberWithInt(9), "rows"_ns);
    auto data = bridge::as<Bytes>(
        NSPropertyListSerialization::dataWithPropertyList_format_options_error(values, binary, 0, nullptr));
    test::put(device, test::preferencesPath, {static_cast<const char*>(data.bytes()), data.length()});
  }));
  EXPECT_TRUE(file.before.contents.starts_with("bplist"));
  EXPECT_EQ(file.after, file.before);
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 8);
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"rows", 9}}));
}

TEST(AFileOfAnOlderVersion, KeepsItsValuesAndLacksTheOthers) {
  Home home({}, test::having(test::preferencesPath,
                             test::propertyList("<key>enabled</key><true/>\n<key>rows</key><real>7</real>")));
  sim::Json expected = {{"enabled", true}, {"rows", 7.0}};
  EXPECT_EQ(test::withoutPageCount(sim::plain(ConfigurationManager::sharedManager().configuration())),
            expected);
  EXPECT_EQ(test::preferencesOf(home), expected);
}

TEST(AFileOfAnOlderVersion, WithoutTheSwipeSwitchHasItOff) {
  Home home({"--set", "enabled=YES"});
  NSDictionary values = RQGestureController::sharedInstance().rootObj();
  ASSERT_TRUE(values);
  EXPECT_TRUE(bridge::as<NSNumber>(values.objectForKey("enabled"_ns)).boolValue());
  EXPECT_FALSE(values.objectForKey("quick"_ns));
  home.step("swipe up");
  home.step("wait 1");
  EXPECT_EQ(home.report()["panel"], nullptr);
}

TEST(AFileOfAnOlderVersion, WithoutTheMasterSwitchHasItOff) {
  Home home({"--set", "custom_preset=-1", "--set", "icons=YES", "--set", "rows=3", "--set", "columns=3",
             "--set", "vertIconPadding=50", "--set", "sideIconInset=60"});
  EXPECT_EQ(test::layoutOf(home), test::stockLayout());
}

TEST(AFileOfAnOlderVersion, ReadsAbsentLengthsAsZeroRatherThanAsDefaults) {
  Home home({"--set", "enabled=YES", "--set", "custom_preset=-1", "--set", "vertIconPadding=5"});
  EXPECT_EQ(home.page(0).verticalIconPadding(), 5);
  EXPECT_EQ(home.page(0).horizontalIconPadding(), 0);
  EXPECT_EQ(home.page(0).sideIconInset(), 0);
  EXPECT_EQ(home.page(0).topIconInset(), 0);
}

TEST(AFileOfAnOlderVersion, WithoutACountHasSpringBoardsOwn) {
  Home home({"--set", "enabled=YES", "--set", "icons=YES", "--set", "custom_preset=-1", "--set", "rows=5"});
  EXPECT_EQ(home.report()["pages"][0]["rows"], 5);
  EXPECT_EQ(home.report()["pages"][0]["columns"], 4);
}

// Nothing of the library's is in the domain, but a file is there.
class ADomainWithoutKeys : public testing::Test {
 protected:
  Home home{{}, test::having(test::preferencesPath, test::propertyList(""))};
};

TEST_F(ADomainWithoutKeys, LaysOutAsSpringBoardDoes) { EXPECT_EQ(test::layoutOf(home), test::stockLayout()); }

TEST_F(ADomainWithoutKeys, StaysUsableWhenTheDeviceTurnsAndTimePasses) {
  home.step("rotate landscape");
  home.step("wait 5");
  home.step("rotate portrait");
  EXPECT_EQ(test::layoutOf(home), test::stockLayout());
}

TEST_F(ADomainWithoutKeys, HasTheDefaultCounts) {
  EXPECT_FALSE(ConfigurationManager::sharedManager().configuration());
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 6);
  EXPECT_EQ(ConfigurationManager::sharedManager().columns(), 4);
}

TEST_F(ADomainWithoutKeys, StillTakesSavedValues) {
  home.save("rows"_ns, NSNumber::numberWithInt(3));
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"rows", 3}}));
  EXPECT_EQ(valuesIn(home.contents(test::preferencesPath)).at("rows"), (Written{"integer", 3}));
  EXPECT_FALSE(ConfigurationManager::sharedManager().configuration());
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 6);
}

}  // namespace
