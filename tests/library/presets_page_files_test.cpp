// The presets page over files that are missing, damaged, large, or on a disk that refuses.
#include <gtest/gtest.h>

#include <cerrno>

#include "tests/library/presets_home.hpp"

namespace {

using sim::Faults;
using sim::Json;
using test::layout;
using test::layouts;
using test::PanelHome;
using test::PresetsHome;
using test::Records;

// A home screen whose presets file is replaced before the panel is opened.
class FileHome : public PanelHome {
 public:
  explicit FileHome(const std::string& contents) { write(test::presetsPath, contents); }
};

struct Damage {
  const char* what;
  std::string contents;
};
void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.what; }

class ADamagedFile : public testing::TestWithParam<Damage> {};

TEST_P(ADamagedFile, ListsNoLayoutsAndStaysAsItIs) {
  FileHome home(GetParam().contents);
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.open();
  EXPECT_EQ(home.shown()["presets"], Json::array());
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
}

TEST_P(ADamagedFile, IsReplacedByTheFirstLayoutThatIsSaved) {
  FileHome home(GetParam().contents);
  home.open();
  home.panel().saveWithTitle("Home"_ns);
  const Json records = home.report()["presets"]["configurations"];
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0]["name"], "Home");
  EXPECT_EQ(records[0]["value"], 0);
}

INSTANTIATE_TEST_SUITE_P(Holding, ADamagedFile,
                         testing::Values(Damage{"Nothing", ""}, Damage{"NoJson", "not JSON"},
                                         Damage{"AList", "[1]"}, Damage{"ANumber", "5"},
                                         Damage{"NoList", "{\"configurations\":{}}"},
                                         Damage{"AnotherKey", "{\"presets\":[]}"}));

TEST(AMissingFile, IsMadeWithoutLayoutsWhenThePanelOpens) {
  PanelHome home;
  std::filesystem::remove_all(home.file(test::presetsFolder));
  home.open();
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
}

TEST(AFileThatGoesWhileThePanelIsOpen, IsMadeAnewOfWhatThePanelKnows) {
  PresetsHome home(layouts({"one"}));
  home.open();
  std::filesystem::remove(home.file(test::presetsPath));
  home.saveAs("Home");
  EXPECT_EQ(home.records(), (test::Records{{"one", 0}, {"Home", 1}}));
  EXPECT_EQ(home.names(), Json({"one", "Home"}));
}

// What somebody may have made of a record by hand.
class ARecordWithoutAName : public testing::TestWithParam<Json> {};

TEST_P(ARecordWithoutAName, KeepsItsRowAndCanBeDeleted) {
  FileHome home(test::presetsDocument(Json::array({layout("one"), GetParam(), layout("three")})));
  home.open();
  EXPECT_EQ(home.shown()["presets"], Json({"one", "", "three"}));
  home.step("page 1");
  home.step("pick 1");
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.shown()["presets"], Json({"one", "three"}));
}

INSTANTIATE_TEST_SUITE_P(Being, ARecordWithoutAName,
                         testing::Values(Json{{"value", 1}}, Json{{"name", 5}}, Json{{"name", nullptr}},
                                         Json::array(), Json(7), Json("text"), Json()));

TEST(OneOfFiveThousandLayouts, IsListedPickedAndApplied) {
  std::vector<Json> records;
  for (int i = 0; i < 5000; ++i) records.push_back(layout("preset " + std::to_string(i), i, i % 50));
  PresetsHome home(records, {"showed-setup=YES"});
  home.openPresets();
  EXPECT_EQ(home.names().size(), 5000u);
  home.step("pick 1234");
  home.step("tap \"Select\"");
  home.wait(1);
  EXPECT_EQ(home.report()["preferences"]["custom_preset"], 1234);
  EXPECT_EQ(home.report()["pages"][0]["sideInset"], 1234 % 50 + 2);
}

TEST(OneOfFiveThousandLayouts, IsDeletedAndAnotherSaved) {
  std::vector<Json> records;
  for (int i = 0; i < 5000; ++i) records.push_back(layout("preset " + std::to_string(i), i));
  PresetsHome home(records);
  home.openPresets();
  home.step("pick 600");
  home.step("tap \"Delete\"");
  home.wait(1);
  home.saveAs("new");
  const Json stored = home.stored();
  EXPECT_EQ(stored.size(), 5000u);
  EXPECT_EQ(stored[4999]["name"], "new");
  EXPECT_EQ(stored[4999]["value"], 4999);
}

class ARefusingDisk : public testing::Test {
 protected:
  static constexpr const char* folder = "/var/mobile/Documents";

  static void refuse(PanelHome& home, Faults faults, int error) {
    home.simulation().fileSystem().refuse(folder, faults, error);
  }
};

TEST_F(ARefusingDisk, KeepsWhatItHasWhenALayoutIsSaved) {
  PresetsHome home(layouts({"one"}));
  home.open();
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  refuse(home, Faults::writing, ENOSPC);
  home.saveAs("Home");
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(home.names(), Json::array({"one"}));
  EXPECT_EQ(home.shown()["alpha"], 1);
}

TEST_F(ARefusingDisk, KeepsWhatItHasWhenALayoutIsDeleted) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  refuse(home, Faults::writing, EROFS);
  home.step("tap \"Delete\"");
  home.wait(1);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(home.names(), Json({"one", "two"}));
}

TEST_F(ARefusingDisk, LeavesNoOtherFileBehind) {
  PresetsHome home(layouts({"one"}));
  home.open();
  refuse(home, Faults::writing, ENOSPC);
  home.saveAs("Home");
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
}

TEST_F(ARefusingDisk, ThatCannotBeReadListsNothingAndKeepsTheFile) {
  PresetsHome home(layouts({"one"}));
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  refuse(home, Faults::reading, EIO);
  home.open();
  EXPECT_EQ(home.shown()["presets"], Json::array());
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
}

TEST_F(ARefusingDisk, WithoutAFileOpensThePanelAllTheSame) {
  PanelHome home;
  std::filesystem::remove_all(home.file(test::presetsFolder));
  refuse(home, Faults::writing, EACCES);
  home.open();
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
  EXPECT_FALSE(std::filesystem::exists(home.file(test::presetsPath)));
}

}  // namespace
