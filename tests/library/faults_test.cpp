// A device whose files are damaged or whose disk refuses: nothing crashes, nothing is lost, and the home
// screen is SpringBoard's own where the settings cannot be read.
#include <gtest/gtest.h>

#include <cerrno>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/log/logger.hpp"
#include "settings/store/configuration_manager.hpp"
#include "tests/library/device_files.hpp"

namespace {

using sim::Faults;
using test::Home;
using tilo::ConfigurationManager;
using tilo::DPHLogger;
using tilo::RQGestureController;
using namespace std::string_literals;

void refuse(Home& home, const char* devicePath, Faults faults, int error) {
  home.simulation().fileSystem().refuse(devicePath, faults, error);
}

test::Preparation refusing(const std::string& devicePath, Faults faults, int error) {
  return [=](sim::Simulation& device) { device.fileSystem().refuse(devicePath, faults, error); };
}

const std::string settings = test::propertyList(
    "<key>enabled</key><true/><key>custom_preset</key><integer>-1</integer>"
    "<key>icons</key><true/><key>rows</key><integer>3</integer>"
    "<key>columns</key><integer>3</integer><key>sideIconInset</key><real>60</real>");

// Everything that a home screen has when the preference domain gives no keys.
void expectNoSettings(Home& home) {
  EXPECT_FALSE(ConfigurationManager::sharedManager().configuration());
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 6);
  EXPECT_EQ(ConfigurationManager::sharedManager().columns(), 4);
  EXPECT_EQ(test::libraryVariable<id>("tilo::rootObj"), nullptr);
  EXPECT_EQ(home.report()["console"].size(), 3);  // the start's two, and what SpringBoard lacks
  EXPECT_GT(home.report()["hooks"]["replaced"], 0);
  EXPECT_EQ(test::layoutOf(home), test::stockLayout());
}

class ADamagedPreferencesFile : public testing::TestWithParam<test::Contents> {};

TEST_P(ADamagedPreferencesFile, ReadsAsADomainWithoutKeysAndIsNeverOverwritten) {
  test::FileState before;
  Home home({}, [&](sim::Simulation& device) {
    test::put(device, test::preferencesPath, GetParam().bytes);
    before = test::stateOf(device, test::preferencesPath);
  });
  expectNoSettings(home);
  home.save("rows"_ns, 5);
  home.save("rows"_ns, bridge::Object{});
  RQGestureController::sharedInstance().savePrefsWithKey_value("columns"_ns, NSNumber::numberWithInt(3));
  EXPECT_EQ(test::stateOf(home.simulation(), test::preferencesPath), before);
  EXPECT_EQ(test::namesIn(home, test::preferencesFolder), std::set<std::string>{"com.wexor.tilo.plist"});
}

INSTANTIATE_TEST_SUITE_P(
    Holding, ADamagedPreferencesFile,
    testing::Values(
        test::Contents{"Nothing", ""}, test::Contents{"Blanks", " \n\n"},
        test::Contents{"NoPropertyList", "not a property list"},
        test::Contents{"NullBytes", std::string(40, '\0')}, test::Contents{"NoUtf8", "\xff\xfe\x00\xd8"s},
        test::Contents{"BrokenOffInTheFirstLine", settings.substr(0, 20)},
        test::Contents{"BrokenOffInATag", settings.substr(0, settings.find("</integer>") + 4)},
        test::Contents{"BrokenOffAtTheEnd", settings.substr(0, settings.find("</plist>"))},
        test::Contents{"TagsThatDoNotMatch", "<plist version=\"1.0\"><dict><key>rows</plist>"},
        test::Contents{"AList", "<plist version=\"1.0\"><array><integer>5</integer></array></plist>\n"},
        test::Contents{"AString", "<plist version=\"1.0\"><string>rows</string></plist>\n"},
        test::Contents{"BinaryWithoutContents", "bplist00"},
        test::Contents{"BinaryWithANumberForAKey",
                       "bplist00\xd1\x01\x02\x10\x05\x10\x07\x08\x0b\x0d\0\0\0\0\0\0\x01\x01"
                       "\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x0f"s},
        test::Contents{"BinaryBrokenOff", "bplist00\xd1\x01\x02\x54rows\x10\x05\xff\xff\xff\xff"s}));

TEST(APreferencesFolderForAFile, ReadsAsADomainWithoutKeys) {
  std::string inside = std::string(test::preferencesPath) + "/inside.txt";
  Home home({}, test::having(inside, "mine"));
  expectNoSettings(home);
  home.save("rows"_ns, 5);
  EXPECT_TRUE(std::filesystem::is_directory(home.file(test::preferencesPath)));
  EXPECT_EQ(home.contents(inside), "mine");
}

TEST(AnUnreadablePreferencesFile, ReadsAsADomainWithoutKeysAndIsNeverOverwritten) {
  test::FileState before;
  Home home({}, [&](sim::Simulation& device) {
    test::put(device, test::preferencesPath, settings);
    before = test::stateOf(device, test::preferencesPath);
    device.fileSystem().refuse(test::preferencesPath, Faults::reading, EACCES);
  });
  expectNoSettings(home);
  home.save("rows"_ns, 5);
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(test::stateOf(home.simulation(), test::preferencesPath), before);
}

TEST(AMissingPreferencesFolder, GetsNoFile) {
  Home home({}, [](sim::Simulation& device) {
    std::filesystem::remove_all(device.fileSystem().hostPath(test::preferencesFolder));
  });
  expectNoSettings(home);
  home.save("rows"_ns, 5);
  EXPECT_FALSE(std::filesystem::exists(home.file(test::preferencesFolder)));
}

// ENOSPC is a full disk, EROFS one that has gone read-only, EIO a broken one.
class ADiskThatRefusesWriting : public testing::TestWithParam<int> {};

TEST_P(ADiskThatRefusesWriting, StartsWithoutDefaultsAndWithoutFiles) {
  Home home({}, refusing("/", Faults::writing, GetParam()));
  expectNoSettings(home);
  EXPECT_FALSE(RQGestureController::sharedInstance().currentPreset());
  DPHLogger::sharedLogger().info("lost"_ns);
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(test::namesIn(home, test::preferencesFolder), std::set<std::string>{});
  EXPECT_EQ(test::namesIn(home, test::documentsFolder), std::set<std::string>{});
}

TEST_P(ADiskThatRefusesWriting, KeepsTheFilesThatItHasAndReadsThem) {
  test::FileState preferences, presets;
  Home home({}, [&](sim::Simulation& device) {
    test::put(device, test::preferencesPath, settings);
    test::put(device, test::presetsPath,
              test::presetsDocument(sim::Json::array({test::preset("kept", 1, 1, 2, 3, 4)})));
    preferences = test::stateOf(device, test::preferencesPath);
    presets = test::stateOf(device, test::presetsPath);
    device.fileSystem().refuse("/", Faults::writing, GetParam());
  });
  EXPECT_EQ(home.report()["pages"][0]["rows"], 3);
  EXPECT_EQ(home.page(0).sideIconInset(), 60);
  RQGestureController::sharedInstance().updateConfigWithValue(0);
  EXPECT_TRUE(RQGestureController::sharedInstance().currentPreset());
  home.save("sideIconInset"_ns, 44);
  EXPECT_EQ(home.page(0).sideIconInset(), 44);
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(test::stateOf(home.simulation(), test::preferencesPath), preferences);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), presets);
  EXPECT_EQ(test::namesIn(home, test::preferencesFolder), std::set<std::string>{"com.wexor.tilo.plist"});
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
}

INSTANTIATE_TEST_SUITE_P(Errors, ADiskThatRefusesWriting, testing::Values(ENOSPC, EROFS, EIO, EACCES));

TEST(ADiskThatRefusedWriting, TakesLaterValuesWithTheEarlierOnes) {
  Home home({}, test::having(test::preferencesPath, settings));
  refuse(home, "/", Faults::writing, ENOSPC);
  home.save("rows"_ns, NSNumber::numberWithInt(4));
  home.simulation().fileSystem().allowAll();
  home.save("columns"_ns, NSNumber::numberWithInt(2));
  test::Run other =
      test::runSimulator({"--stock", "--prefs", home.file(test::preferencesPath), "--report", "-"});
  ASSERT_EQ(other.status, 0) << other.errors;
  EXPECT_EQ(sim::Json::parse(other.output)["preferences"], (sim::Json{{"columns", 2},
                                                                      {"custom_preset", -1},
                                                                      {"enabled", true},
                                                                      {"icons", true},
                                                                      {"rows", 4},
                                                                      {"sideIconInset", 60.0}}));
}

TEST(ADiskThatRefusedWriting, GetsItsPresetsFileAtTheNextLoad) {
  Home home({}, refusing(test::documentsFolder, Faults::writing, ENOSPC));
  EXPECT_FALSE(std::filesystem::exists(home.file(test::presetsPath)));
  home.simulation().fileSystem().allowAll();
  RQGestureController::sharedInstance().updateConfigWithValue(0);
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
}

TEST(AnUnreadablePresetsFile, HoldsNoPresetsAndIsNeverOverwritten) {
  test::FileState before;
  Home home({}, [&](sim::Simulation& device) {
    test::put(device, test::presetsPath,
              test::presetsDocument(sim::Json::array({test::preset("kept", 1, 1, 2, 3, 4)})));
    before = test::stateOf(device, test::presetsPath);
    device.fileSystem().refuse(test::presetsPath, Faults::reading, EACCES);
  });
  EXPECT_FALSE(RQGestureController::sharedInstance().currentPreset());
  RQGestureController::sharedInstance().updateConfigWithValue(0);
  EXPECT_FALSE(RQGestureController::sharedInstance().currentPreset());
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  RQGestureController::sharedInstance().updateConfigWithValue(0);
  EXPECT_TRUE(RQGestureController::sharedInstance().currentPreset());
}

TEST(AnUnreadablePresetsFile, KeepsThePresetOfBefore) {
  Home home({"--set", "custom_preset=0"},
            test::having(test::presetsPath,
                         test::presetsDocument(sim::Json::array({test::preset("kept", 1, 1, 2, 3, 4)}))));
  NSDictionary before = RQGestureController::sharedInstance().currentPreset();
  ASSERT_TRUE(before);
  refuse(home, test::presetsPath, Faults::reading, EIO);
  RQGestureController::sharedInstance().updateConfigWithValue(0);
  EXPECT_EQ(RQGestureController::sharedInstance().currentPreset(), before);
}

TEST(ADeviceThatRefusesEverything, StillStarts) {
  Home home({}, refusing("/var/mobile", Faults::both, EIO));
  expectNoSettings(home);
  DPHLogger::sharedLogger().error("lost"_ns);
  home.save("rows"_ns, 5);
  RQGestureController::sharedInstance().update();
  home.step("wait 1");
  EXPECT_EQ(test::layoutOf(home), test::stockLayout());
}

}  // namespace
