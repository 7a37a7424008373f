// Presets that somebody edited: what is missing or of another kind is 0 or scaled, nothing is raised, and
// nothing of the file is lost.
#include <gtest/gtest.h>

#include <cerrno>
#include <limits>

#include "bridge/replace.hpp"
#include "platform/foundation/json.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::layout;
using test::PanelHome;
using test::PresetsHome;

constexpr const char* damagedPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.damaged.json";
constexpr const char* secondDamagedPath =
    "/var/mobile/Documents/com.wexor.tilo3/custom/config.damaged-2.json";

// A home screen that starts with that file and its first layout selected.
class EditedHome : public PanelHome {
 public:
  explicit EditedHome(const std::string& contents, const std::string& selected = "0")
      : PanelHome({"custom_preset=" + selected, "showed-setup=YES"},
                  {"--presets", test::temporaryFile("presets.json", contents)}) {}

  std::vector<double> spacing() {
    Json page = report()["pages"][0];
    return {page["verticalPadding"], page["horizontalPadding"], page["sideInset"], page["topInset"]};
  }

  // What a person does with layouts.
  void useEverything() {
    open();
    step("page 1");
    step("tap \"Select\"");
    wait(1);
    open();
    step("page 1");
    step("tap \"Delete\"");
    wait(1);
    panel().saveWithTitle("Home"_ns);
    step("tap \"Select\"");
    wait(1);
  }
};

struct Shape {
  const char* name;
  Json value;
};
void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }

std::string named(const testing::TestParamInfo<Shape>& info) { return info.param.name; }

const Shape shapes[] = {{"Null", Json()},
                        {"AWord", "many"},
                        {"AList", Json::array({1})},
                        {"ATable", Json{{"value", 1}}},
                        {"AnEmptyList", Json::array()},
                        {"AnEmptyTable", Json::object()}};

class AnEditedRecord : public testing::TestWithParam<Shape> {};

TEST_P(AnEditedRecord, WhoseSpacingIsNoTableHasNone) {
  Json record = layout("edited", 0, 10);
  record["configuration"] = GetParam().value;
  EditedHome home(test::presetsDocument(Json::array({record})));
  EXPECT_EQ(home.spacing(), (std::vector<double>{0, 0, 0, 0}));
  home.useEverything();
}

TEST_P(AnEditedRecord, WhoseLengthsAreNoNumbersHasZeros) {
  Json record = layout("edited", 0, 10);
  for (const char* key : {"vertical_padding", "side_inset"}) record["configuration"][key] = GetParam().value;
  EditedHome home(test::presetsDocument(Json::array({record})));
  EXPECT_EQ(home.spacing(), (std::vector<double>{0, 10, 0, 13}));
  home.useEverything();
}

TEST_P(AnEditedRecord, ThatIsNotSaidToStandAsItIsIsScaled) {
  Json record = layout("edited", 0, 10);
  record["configurable"] = GetParam().value;
  EditedHome home(test::presetsDocument(Json::array({record})));
  EXPECT_DOUBLE_EQ(home.spacing()[1], 10 * 750. / 640 * 1.4);
  home.useEverything();
}

TEST_P(AnEditedRecord, WhosePlaceIsNoNumberIsFoundByItsPlace) {
  Json record = layout("edited", 0, 10);
  record["value"] = GetParam().value;
  EditedHome home(test::presetsDocument(Json::array({layout("one"), record})), "1");
  EXPECT_EQ(home.spacing()[1], 10);
  home.useEverything();
}

TEST_P(AnEditedRecord, CanBeSelectedDeletedAndFollowedByOthers) {
  EditedHome home(test::presetsDocument(Json::array({GetParam().value, layout("two", 1, 10)})));
  home.useEverything();
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Being, AnEditedRecord, testing::ValuesIn(shapes), named);

TEST(ARecord, WithoutSpacingHasNone) {
  Json record = layout("edited");
  record.erase("configuration");
  EditedHome home(test::presetsDocument(Json::array({record})));
  EXPECT_EQ(home.spacing(), (std::vector<double>{0, 0, 0, 0}));
}

TEST(ARecord, MayHaveItsLengthsAsText) {
  Json record = layout("edited", 0, 10);
  record["configuration"]["side_inset"] = "7.5";
  EditedHome home(test::presetsDocument(Json::array({record})));
  EXPECT_EQ(home.spacing()[2], 7.5);
}

// A reader of JSON that makes infinity of too many digits: whether the device's does is not known.
id readEndless(id self, SEL selector, id data, NSUInteger options, id* error);
bridge::Slot readSlot;

void readEndlessNumbers() {
  using Read = bridge::Descriptor<&NSJSONSerialization::JSONObjectWithData_options_error>;
  Class meta = bridge::classOf(reinterpret_cast<id>(bridge::classNamed<NSJSONSerialization>()));
  bridge::replaceMethod(meta, Read::selector(), reinterpret_cast<IMP>(&readEndless), readSlot);
}

// Every 7.5 is one of those numbers.
bridge::Object endless(bridge::Object object) {
  if (bridge::isKindOf<NSNumber>(object) && bridge::as<NSNumber>(object).doubleValue() == 7.5)
    return NSNumber::numberWithDouble(std::numeric_limits<double>::infinity());
  if (bridge::isKindOf<NSArray>(object)) {
    NSMutableArray made = NSMutableArray::array();
    for (NSUInteger i = 0; i < bridge::as<NSArray>(object).count(); ++i)
      made.addObject(endless(bridge::as<NSArray>(object).objectAtIndex(i)));
    return made;
  }
  if (bridge::isKindOf<NSDictionary>(object)) {
    NSMutableDictionary made = NSMutableDictionary::dictionary();
    NSArray names = bridge::as<NSDictionary>(object).allKeys();
    for (NSUInteger i = 0; i < names.count(); ++i)
      made.setObject_forKey(endless(bridge::as<NSDictionary>(object).objectForKey(names.objectAtIndex(i))),
                            names.objectAtIndex(i));
    return made;
  }
  return object;
}

id readEndless(id self, SEL selector, id data, NSUInteger options, id* error) {
  const id read = reinterpret_cast<decltype(&readEndless)>(readSlot.implementation())(self, selector, data,
                                                                                      options, error);
  return endless(bridge::as<bridge::Object>(read)).raw;
}

// Of its lengths two are endless.
std::string endlessDocument() {
  Json record = layout("edited", 0, 10);
  record["configuration"]["side_inset"] = record["configuration"]["top_inset"] = 7.5;
  return test::presetsDocument(Json::array({record}));
}

TEST(ARecord, OfInfiniteLengthsHasZeros) {
  EditedHome home(endlessDocument());
  readEndlessNumbers();
  PanelHome::controller().updateConfigWithValue(0);
  EXPECT_EQ(home.spacing(), (std::vector<double>{11, 10, 0, 0}));
}

TEST(ARecord, OfInfiniteLengthsIsWrittenWithNothingInTheirPlace) {
  EditedHome home(endlessDocument());
  readEndlessNumbers();
  home.open();
  home.panel().saveWithTitle("Home"_ns);
  const auto read = Json::read(home.contents(test::presetsPath));
  ASSERT_TRUE(read);
  Json document = *read;
  ASSERT_EQ(document["configurations"].size(), 2u);
  EXPECT_EQ(document["configurations"][0]["configuration"]["side_inset"], nullptr);
  EXPECT_EQ(document["configurations"][0]["configuration"]["horizontal_padding"], 10);
}

TEST(ARecord, OfHugeLengthsMovesIconsOnlyAsFarAsAFrameCanSay) {
  Json record = layout("huge", 0, 1e300);
  EditedHome home(test::presetsDocument(Json::array({record})));
  EXPECT_EQ(home.spacing(), (std::vector<double>{1e6, 1e6, 1e6, 1e6}));
}

// What is no presets document.
const test::Contents damages[] = {
    {"NoJson", "not JSON"},
    {"BrokenOff", R"({"configurations":[{"name":"cut","val)"},
    {"AList", R"([{"name":"mine"}])"},
    {"AnotherKey", R"({"layouts":[{"name":"mine"}]})"},
    {"ATableForTheList", R"({"configurations":{"0":{"name":"mine"}}})"},
    {"NullForTheList", R"({"configurations":null})"},
    {"NoText", "\xff\xfe mine"},
    {"Nothing", ""},
};

class AFileThatIsNoPresets : public testing::TestWithParam<test::Contents> {};

TEST_P(AFileThatIsNoPresets, IsKeptBesideTheNewOneWhenALayoutIsSaved) {
  EditedHome home(test::emptyPresets);
  home.write(test::presetsPath, GetParam().bytes);
  home.open();
  home.panel().saveWithTitle("Home"_ns);
  EXPECT_EQ(home.contents(damagedPath), GetParam().bytes);
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 1u);
  EXPECT_EQ(home.shown()["presets"], Json::array({"Home"}));
}

TEST_P(AFileThatIsNoPresets, IsKeptBesideTheNewOneWhenALayoutIsDeleted) {
  EditedHome home(test::emptyPresets);
  home.open();
  home.step("page 1");
  home.write(test::presetsPath, GetParam().bytes);
  home.step("tap \"Delete\"");
  home.wait(1);
  EXPECT_EQ(home.contents(damagedPath), GetParam().bytes);
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
}

TEST_P(AFileThatIsNoPresets, StaysAsItIsUntilThen) {
  EditedHome home(test::emptyPresets);
  home.write(test::presetsPath, GetParam().bytes);
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.open();
  home.step("page 1");
  home.step("tap \"Select\"");
  home.wait(1);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
}

TEST_P(AFileThatIsNoPresets, StaysWhereItIsOnADiskThatRefuses) {
  EditedHome home(test::emptyPresets);
  home.write(test::presetsPath, GetParam().bytes);
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.open();
  home.simulation().fileSystem().refuse("/var/mobile/Documents", sim::Faults::writing, EROFS);
  home.panel().saveWithTitle("Home"_ns);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
}

INSTANTIATE_TEST_SUITE_P(Holding, AFileThatIsNoPresets, testing::ValuesIn(damages),
                         [](const auto& info) { return info.param.name; });

TEST(AFileThatIsNoPresets, DoesNotTakeThePlaceOfAnEarlierOne) {
  EditedHome home(test::emptyPresets);
  home.open();
  for (const char* contents : {"first", "second", "third"}) {
    home.write(test::presetsPath, contents);
    home.panel().saveWithTitle("Home"_ns);
  }
  EXPECT_EQ(home.contents(damagedPath), "first");
  EXPECT_EQ(home.contents(secondDamagedPath), "second");
  EXPECT_EQ(test::namesIn(home, test::presetsFolder),
            (std::set<std::string>{"config.json", "config.damaged.json", "config.damaged-2.json",
                                   "config.damaged-3.json"}));
}

std::string damaged(int number) {
  const std::string folder = test::presetsFolder;
  return folder + "/config.damaged" + (number == 1 ? "" : "-" + std::to_string(number)) + ".json";
}

void saveOverDamaged(EditedHome& home, int earlierOnes) {
  home.open();
  for (int number = 1; number <= earlierOnes; ++number) home.write(damaged(number), "old");
  home.write(test::presetsPath, "broken");
  home.panel().saveWithTitle("Home"_ns);
}

TEST(AFileThatIsNoPresets, TakesTheThousandthNameBesideItAsTheLast) {
  EditedHome home(test::emptyPresets);
  saveOverDamaged(home, 999);
  EXPECT_EQ(home.contents(damaged(999)), "old");
  EXPECT_EQ(home.contents(damaged(1000)), "broken");
}

TEST(AFileThatIsNoPresets, IsNotWrittenOverWhereAThousandAreKept) {
  EditedHome home(test::emptyPresets);
  saveOverDamaged(home, 1000);
  EXPECT_EQ(home.contents(test::presetsPath), "broken");
}

TEST(APresetsFile, IsNotKeptAsDamagedWhenItIsGood) {
  EditedHome home(test::presetsDocument(Json::array({layout("one"), nullptr, 5})));
  home.open();
  home.panel().saveWithTitle("Home"_ns);
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
}

TEST(AFolderForThePresetsFile, IsKeptBesideTheNewOneWithWhatIsInIt) {
  EditedHome home(test::emptyPresets);
  home.open();
  std::filesystem::remove(home.file(test::presetsPath));
  home.write(std::string(test::presetsPath) + "/inside.txt", "mine");
  home.panel().saveWithTitle("Home"_ns);
  EXPECT_EQ(home.contents(std::string(damagedPath) + "/inside.txt"), "mine");
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 1u);
}

// Where the first file cannot be written, the panel's list goes on.
class AFirstSave : public testing::Test {
 protected:
  static void expectTheListGoesOn(PanelHome& home) {
    home.panel().saveWithTitle("one"_ns);
    home.panel().saveWithTitle("two"_ns);
    EXPECT_EQ(home.shown()["presets"], Json({"one", "two"}));
    home.step("page 1");
    home.step("pick 1");
    home.step("tap \"Delete\"");
    home.wait(1);
    EXPECT_EQ(home.shown()["presets"], Json::array({"one"}));
    home.step("tap \"Select\"");
    home.wait(1);
    EXPECT_EQ(home.shown(), nullptr);
  }

  PanelHome home{{"showed-setup=YES"}};
};

TEST_F(AFirstSave, IntoAFolderThatIsAFileKeepsTheListGoing) {
  std::filesystem::remove_all(home.file(test::presetsFolder));
  home.write(test::presetsFolder, "a file");
  home.open();
  expectTheListGoesOn(home);
  EXPECT_EQ(home.contents(test::presetsFolder), "a file");
}

TEST_F(AFirstSave, IntoAFolderThatCannotBeMadeKeepsTheListGoing) {
  std::filesystem::remove_all(home.file(test::presetsFolder));
  home.simulation().fileSystem().refuse("/var/mobile/Documents", sim::Faults::writing, EACCES);
  home.open();
  expectTheListGoesOn(home);
}

TEST_F(AFirstSave, OntoAFullDiskKeepsTheListGoing) {
  std::filesystem::remove(home.file(test::presetsPath));
  home.simulation().fileSystem().refuse("/var/mobile/Documents", sim::Faults::writing, ENOSPC);
  home.open();
  expectTheListGoesOn(home);
}

}  // namespace
