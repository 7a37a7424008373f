// The presets file: made when it is missing, otherwise only read, whatever it holds.
#include <gtest/gtest.h>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "tests/library/device_files.hpp"

namespace {

using sim::Json;
using test::Home;
using tilo::RQGestureController;

RQGestureController controller() { return RQGestureController::sharedInstance(); }

std::string currentName() {
  Json preset = sim::plain(controller().currentPreset());
  return preset.isNull() ? "none" : preset["name"].get<std::string>();
}

Json named(const std::string& name, int value) {
  Json record = test::preset(name, 1, 1, 2, 3, 4);
  record["value"] = value;
  return record;
}

test::Preparation presets(const Json& records) {
  return test::having(test::presetsPath, test::presetsDocument(records));
}

// The name and position of the preset that each position of the file selects.
std::vector<std::pair<std::string, int>> selections(int count) {
  std::vector<std::pair<std::string, int>> found;
  for (int position = 0; position < count; ++position) {
    controller().updateConfigWithValue(position);
    Json preset = sim::plain(controller().currentPreset());
    found.emplace_back(preset["name"], preset["value"]);
  }
  return found;
}
using Selections = std::vector<std::pair<std::string, int>>;

TEST(AMissingPresetsFile, IsMadeWithoutPresets) {
  Home home;
  EXPECT_EQ(home.contents(test::presetsPath), R"({"configurations":[]})");
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
  EXPECT_FALSE(controller().currentPreset());
}

TEST(AMissingPresetsFile, IsMadeWithTheDocumentsFolder) {
  Home home({}, [](sim::Simulation& device) {
    std::filesystem::remove_all(device.fileSystem().hostPath(test::documentsFolder));
  });
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
  EXPECT_FALSE(controller().currentPreset());
}

TEST(AMissingPresetsFile, IsMadeBesideOtherFilesOfTheFolder) {
  Home home({}, test::having(std::string(test::presetsFolder) + "/notes.txt", "mine"));
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
  EXPECT_EQ(home.contents(std::string(test::presetsFolder) + "/notes.txt"), "mine");
}

TEST(AMissingPresetsFile, IsMadeAgainAtTheNextLoad) {
  Home home({"--set", "custom_preset=0"}, presets(Json::array({named("kept", 0)})));
  std::filesystem::remove_all(home.file(test::presetsFolder));
  controller().updateConfigWithValue(0);
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
  EXPECT_EQ(currentName(), "kept");
}

TEST(AMissingPresetsFile, IsNotRewrittenByASecondStart) {
  sim::TemporaryRoot root;
  test::Run first = test::runSimulator({"--root", root.path()});
  ASSERT_EQ(first.status, 0) << first.errors;
  test::FileState before;
  Home home({"--root", root.path()},
            [&](sim::Simulation& device) { before = test::stateOf(device, test::presetsPath); });
  EXPECT_EQ(before.contents, test::emptyPresets);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
}

TEST(PresetsFile, IsNotRewrittenByLoading) {
  test::FileState before;
  Home home({}, [&](sim::Simulation& device) {
    presets({named("a", 4), named("b", 4)})(device);
    before = test::stateOf(device, test::presetsPath);
  });
  selections(2);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
}

TEST(PresetsFile, IsRenumberedInMemory) {
  Home home({}, presets({named("a", 0), named("b", 1), named("c", 5)}));
  EXPECT_EQ(selections(3), (Selections{{"a", 0}, {"b", 1}, {"c", 2}}));
}

TEST(PresetsFile, WhoseSecondPresetWasDeletedHasTheThirdInItsPlace) {
  Home home({}, presets({named("a", 0), named("c", 2)}));
  EXPECT_EQ(selections(2), (Selections{{"a", 0}, {"c", 1}}));
}

TEST(PresetsFile, WithRepeatedStoredValuesIsToldApartByPositions) {
  Home home({}, presets({named("a", 0), named("c", 2), named("d", 2)}));
  EXPECT_EQ(selections(3), (Selections{{"a", 0}, {"c", 1}, {"d", 2}}));
}

TEST(PresetsFile, WithEqualPresetsIsToldApartByPositions) {
  Home home({}, presets({named("same", 7), named("same", 7)}));
  EXPECT_EQ(selections(2), (Selections{{"same", 0}, {"same", 1}}));
}

TEST(PresetsFile, MayHaveStoredValuesOfAnyKind) {
  Json none = named("none stored", 0), text = named("text", 0), negative = named("negative", -1);
  none.erase("value");
  text["value"] = "two";
  Home home({}, presets({none, text, negative}));
  EXPECT_EQ(selections(3), (Selections{{"none stored", 0}, {"text", 1}, {"negative", 2}}));
}

TEST(PresetsFile, MayBeWrittenWithSpacesAndOtherKeys) {
  Json document = {{"version", 3}, {"configurations", Json::array({named("a", 0)})}, {"more", {1, 2}}};
  Home home({}, test::having(test::presetsPath, document.dump(4) + "\n"));
  EXPECT_EQ(selections(1), (Selections{{"a", 0}}));
}

TEST(PresetsFile, IsUtf8) {
  Home home({}, presets(Json::array({named("Größe \"✓\" 日本 🙂", 0)})));
  EXPECT_EQ(selections(1), (Selections{{"Größe \"✓\" 日本 🙂", 0}}));
}

TEST(PresetsFile, MayBeEscaped) {
  std::string text = Json{{"configurations", Json::array({named("Größe 🙂", 0)})}}.dump(-1, true);
  ASSERT_NE(text.find("\\u"), std::string::npos);
  Home home({}, test::having(test::presetsPath, text));
  EXPECT_EQ(selections(1), (Selections{{"Größe 🙂", 0}}));
}

TEST(PresetsFile, OfFiveThousandRecordsLoads) {
  Json records = Json::array();
  for (int i = 0; i < 5000; ++i) records.push_back(named("preset " + std::to_string(i), 0));
  Home home({"--set", "custom_preset=4999"}, presets(records));
  EXPECT_EQ(currentName(), "preset 4999");
  controller().updateConfigWithValue(2500);
  EXPECT_EQ(currentName(), "preset 2500");
  controller().updateConfigWithValue(5000);
  EXPECT_EQ(currentName(), "preset 2500");
}

TEST(PresetsFile, WithRecordsOfOtherShapesKeepsThePositionsOfTheOthers) {
  Home home({"--set", "custom_preset=-1"},
            presets({"text", named("a", 0), 17, nullptr, Json::array({1}), named("b", 0)}));
  for (int position : {0, 2, 3, 4}) {
    controller().updateConfigWithValue(position);
    EXPECT_EQ(currentName(), "none") << position;
  }
  controller().updateConfigWithValue(1);
  EXPECT_EQ(currentName(), "a");
  controller().updateConfigWithValue(5);
  EXPECT_EQ(currentName(), "b");
}

using namespace std::string_literals;

// What is not a presets document.
const std::vector<test::Contents> damages = {
    {"Empty", ""},
    {"Blank", " \n"},
    {"ANullByte", "\0"s},
    {"NoJson", "not JSON"},
    {"BrokenOffInTheList", R"({"configurations":[)"},
    {"BrokenOffInARecord", R"({"configurations":[{"name":"cut","value":0,"configurable":1,"conf)"},
    {"MoreBehindTheEnd", R"({"configurations":[{"name":"a"}]} more)"},
    {"NoUtf8", "\xff\xfe\x00\xd8"s},
    {"NoUtf8InAName", "{\"configurations\":[{\"name\":\"\xc3\x28\"}]}"},
    {"AList", R"([{"name":"at the top","value":0}])"},
    {"ANumber", "5"},
    {"AString", "\"configurations\""},
    {"Null", "null"},
    {"ABoolean", "true"},
    {"NoKeys", "{}"},
    {"AnotherKey", R"({"configuration":[{"name":"other key","value":0}]})"},
    {"NullForTheList", R"({"configurations":null})"},
    {"AnObjectForTheList", R"({"configurations":{"0":{"name":"no list"}}})"},
    {"AStringForTheList", R"({"configurations":"[]"})"},
    {"ANumberForTheList", R"({"configurations":3})"},
    {"ListsInLists", std::string(100000, '[') + std::string(100000, ']')},
    {"NoObjectsInTheList", R"({"configurations":[1,"two",null,[{}]]})"},
};

class ADamagedPresetsFile : public testing::TestWithParam<test::Contents> {};

TEST_P(ADamagedPresetsFile, HoldsNoPresetsAndIsLeftAsItIs) {
  test::FileState before;
  Home home({}, [&](sim::Simulation& device) {
    test::put(device, test::presetsPath, GetParam().bytes);
    before = test::stateOf(device, test::presetsPath);
  });
  EXPECT_FALSE(controller().currentPreset());
  controller().updateConfigWithValue(0);
  EXPECT_FALSE(controller().currentPreset());
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
  EXPECT_GT(home.report()["hooks"]["replaced"], 0);
}

INSTANTIATE_TEST_SUITE_P(Holding, ADamagedPresetsFile, testing::ValuesIn(damages));

TEST(PresetsFile, IsTheSameWhateverFolderSomebodyWorksIn) {
  const sim::TemporaryRoot elsewhere;
  Home home({"--set", "custom_preset=0"}, [&](sim::Simulation& device) {
    test::put(device, test::presetsPath, test::presetsDocument(Json::array({named("mine", 0)})));
    std::filesystem::current_path(elsewhere.path());
  });
  EXPECT_EQ(currentName(), "mine");
  std::filesystem::remove(home.file(test::presetsPath));
  controller().updateConfigWithValue(0);
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
  EXPECT_TRUE(std::filesystem::is_empty(elsewhere.path()));
}

TEST(PresetsFile, ThatIsDamagedLaterKeepsThePresetOfBefore) {
  Home home({"--set", "custom_preset=0"}, presets(Json::array({named("before", 0)})));
  for (auto& [name, bytes] : damages) {
    home.write(test::presetsPath, bytes);
    controller().updateConfigWithValue(0);
    EXPECT_EQ(currentName(), "before") << name;
    EXPECT_EQ(home.contents(test::presetsPath), bytes) << name;
  }
}

TEST(APresetsFolderForAFile, IsLeftAsItIs) {
  std::string inside = std::string(test::presetsPath) + "/inside.txt";
  Home home({}, test::having(inside, "mine"));
  EXPECT_FALSE(controller().currentPreset());
  controller().updateConfigWithValue(0);
  EXPECT_TRUE(std::filesystem::is_directory(home.file(test::presetsPath)));
  EXPECT_EQ(home.contents(inside), "mine");
}

TEST(AFileForThePresetsFolder, IsLeftAsItIs) {
  Home home({}, test::having(test::presetsFolder, "a file"));
  EXPECT_FALSE(controller().currentPreset());
  controller().updateConfigWithValue(0);
  EXPECT_EQ(home.contents(test::presetsFolder), "a file");
  EXPECT_GT(home.report()["hooks"]["replaced"], 0);
}

TEST(AFileForTheDocumentsFolder, IsLeftAsItIs) {
  Home home({}, [](sim::Simulation& device) {
    std::filesystem::remove_all(device.fileSystem().hostPath(test::documentsFolder));
    test::put(device, test::documentsFolder, "a file");
  });
  EXPECT_FALSE(controller().currentPreset());
  EXPECT_EQ(home.contents(test::documentsFolder), "a file");
}

}  // namespace
