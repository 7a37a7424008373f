// ConfigurationManager: one snapshot of the preference domain, written one value at a time.
#include "settings/store/configuration_manager.hpp"

#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "simulator/product/start_files.hpp"
#include "tests/library/device_files.hpp"
#include "tests/library/key_value.hpp"

namespace {

using test::Home;
using tilo::ConfigurationManager;

ConfigurationManager manager() { return ConfigurationManager::sharedManager(); }

bridge::Object value(NSString key) { return manager().configuration().objectForKey(key); }

sim::Json snapshot() { return test::withoutPageCount(sim::plain(manager().configuration())); }

bridge::Strong<ConfigurationManager> another() {
  return bridge::make<ConfigurationManager, &NSObject::init>();
}

// As another process writes the domain: the file alone changes.
void writeElsewhere(Home& home, const std::vector<sim::Setting>& values) {
  std::string file = home.file(test::preferencesPath);
  sim::product::writePreferenceFile(file, file, values);
}

TEST(ConfigurationManager, IsOneObject) {
  Home home;
  ASSERT_TRUE(manager());
  EXPECT_EQ(manager(), ConfigurationManager::sharedManager());
  EXPECT_STREQ(class_getName(bridge::classOf(manager().raw)), "ConfigurationManager");
  EXPECT_EQ(class_getSuperclass(bridge::classOf(manager().raw)), bridge::classNamed<NSObject>());
}

TEST(ConfigurationManager, HoldsEveryKeyOfTheDomain) {
  Home home({"--set", "rows=5", "--set", "topIconInset=12.5", "--set", "quick=NO", "--set", "name=Größe"});
  EXPECT_EQ(snapshot(),
            (sim::Json{{"name", "Größe"}, {"quick", false}, {"rows", 5}, {"topIconInset", 12.5}}));
}

TEST(ConfigurationManager, HoldsAMutableDictionary) {
  Home home({"--set", "rows=5"});
  EXPECT_TRUE(bridge::isKindOf<NSMutableDictionary>(manager().configuration()));
  manager().configuration().setObject_forKey(NSNumber::numberWithInt(8), "rows"_ns);
  EXPECT_EQ(manager().rows(), 7);
}

TEST(ConfigurationManager, DoesNotSeeWhatAnotherProcessWritesLater) {
  Home home({"--set", "rows=5"});
  writeElsewhere(home, {{"rows", 9LL}, {"columns", 8LL}});
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"columns", 8}, {"rows", 9}}));
  EXPECT_EQ(snapshot(), (sim::Json{{"rows", 5}}));
  EXPECT_EQ(manager().rows(), 4);
  EXPECT_EQ(manager().columns(), 4);
}

TEST(ConfigurationManager, SeesWhatAnotherProcessWroteBeforeItWasMade) {
  Home home({"--set", "rows=5"});
  writeElsewhere(home, {{"rows", 9LL}});
  EXPECT_EQ(another()->rows(), 8);
  EXPECT_EQ(manager().rows(), 4);
}

TEST(ConfigurationManager, CountsWholeNumbersAlone) {
  Home home({"--set", "rows=5"});
  const std::pair<double, int> counts[] = {{5.9, 4}, {-5.9, -6}, {1e9, 999999999}, {-1e9, -1000000001}};
  for (const auto& [stored, lessOne] : counts) {
    home.save("rows"_ns, stored);
    EXPECT_EQ(manager().rows(), lessOne) << stored;
  }
}

// Double precision has no such odd number; of the count the last 32 bits are taken.
TEST(ConfigurationManager, CountsWhatHasMoreDigitsThanDoublePrecision) {
  Home home({"--set", "rows=5"});
  home.save("rows"_ns, NSNumber::numberWithLongLong((1LL << 53) + 1));
  EXPECT_EQ(manager().rows(), 0);
}

int synchronisations = 0;
void countSync(id, SEL) { ++synchronisations; }

TEST(ConfigurationManager, SynchronisesWhenItIsMadeAndNotWhenItSaves) {
  Home home({"--set", "rows=5"});
  bridge::Slot slot;
  bridge::replaceMethod(bridge::classNamed<ConfigurationManager>(), bridge::selector<"sync">(),
                        reinterpret_cast<IMP>(&countSync), slot);
  home.save("rows"_ns, 4);
  manager().rows();
  manager().configuration();
  EXPECT_EQ(synchronisations, 0);
  another();
  EXPECT_EQ(synchronisations, 1);
}

// What is stored, as on the command line, and one less than that.
class StoredCount : public testing::TestWithParam<std::pair<std::string, int>> {};

TEST_P(StoredCount, AreOneMoreThanTheAnswer) {
  auto [stored, answer] = GetParam();
  Home home({"--set", "rows=" + stored, "--set", "columns=" + stored});
  EXPECT_EQ(manager().rows(), answer);
  EXPECT_EQ(manager().columns(), answer);
}

using Stored = StoredCount::ParamType;
INSTANTIATE_TEST_SUITE_P(Values, StoredCount,
                         testing::Values(Stored{"5", 4}, Stored{"5.0", 4}, Stored{"5.9", 4}, Stored{"1", 0},
                                         Stored{"0", -1}, Stored{"-3", -4}, Stored{"YES", 0},
                                         Stored{"NO", -1}));

TEST(AStoredCount, OfOneKindLeavesTheOtherItsDefault) {
  Home home({"--set", "rows=3"});
  EXPECT_EQ(manager().rows(), 2);
  EXPECT_EQ(manager().columns(), 4);
  home.save("rows"_ns, bridge::Object{});
  home.save("columns"_ns, NSNumber::numberWithInt(9));
  EXPECT_EQ(manager().rows(), 6);
  EXPECT_EQ(manager().columns(), 8);
}

TEST(AStoredCount, ThatIsAbsentIsSixOrFour) {
  Home home({"--set", "enabled=YES"});
  EXPECT_EQ(manager().rows(), 6);
  EXPECT_EQ(manager().columns(), 4);
}

TEST(AStoredCount, MayBeWrittenAsText) {
  Home home({}, test::having(test::preferencesPath,
                             test::propertyList("<key>rows</key><string>5</string>"
                                                "<key>columns</key><string>7 across</string>")));
  EXPECT_EQ(manager().rows(), 4);
  EXPECT_EQ(manager().columns(), 6);
}

TEST(Saving, IsVisibleAtOnce) {
  Home home({"--set", "rows=5"});
  id before = manager().configuration().raw;
  manager().saveWithKey_value("rows"_ns, NSNumber::numberWithInt(7));
  EXPECT_EQ(bridge::as<NSNumber>(value("rows"_ns)).intValue(), 7);
  EXPECT_EQ(manager().rows(), 6);
  EXPECT_EQ(manager().configuration().raw, before);
  manager().saveWithKey_value("columns"_ns, NSNumber::numberWithInt(3));
  EXPECT_EQ(manager().columns(), 2);
}

TEST(Saving, KeepsTheVeryObject) {
  Home home({"--set", "rows=5"});
  NSString text = NSString::stringWithUTF8String("a text of its own");
  manager().saveWithKey_value("note"_ns, text);
  EXPECT_EQ(value("note"_ns).raw, text.raw);
}

TEST(Saving, WritesTheFileAndKeepsItsOtherKeys) {
  Home home({"--set", "rows=5", "--set", "quick=YES"});
  manager().saveWithKey_value("rows"_ns, NSNumber::numberWithInt(7));
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"quick", true}, {"rows", 7}}));
  std::string xml = home.contents(test::preferencesPath);
  EXPECT_NE(xml.find("<integer>7</integer>"), std::string::npos) << xml;
  EXPECT_NE(xml.find("<true/>"), std::string::npos) << xml;
}

TEST(Saving, WritesEachKindOfValueAsWhatItIs) {
  Home home({"--set", "rows=5"});
  manager().saveWithKey_value("a"_ns, NSNumber::numberWithBool(YES));
  manager().saveWithKey_value("b"_ns, NSNumber::numberWithInt(-2));
  manager().saveWithKey_value("c"_ns, NSNumber::numberWithFloat(0.5f));
  manager().saveWithKey_value("d"_ns, NSString::stringWithUTF8String("Größe & <日本>"));
  EXPECT_EQ(test::preferencesOf(home),
            (sim::Json{{"a", true}, {"b", -2}, {"c", 0.5}, {"d", "Größe & <日本>"}, {"rows", 5}}));
}

TEST(Saving, OfNilRemovesTheValue) {
  Home home({"--set", "rows=5", "--set", "columns=6"});
  manager().saveWithKey_value("rows"_ns, {});
  EXPECT_FALSE(value("rows"_ns));
  EXPECT_EQ(manager().rows(), 6);
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"columns", 6}}));
}

TEST(Saving, OfNilUnderAnAbsentKeyChangesNothing) {
  Home home({"--set", "columns=6"});
  manager().saveWithKey_value("rows"_ns, {});
  EXPECT_EQ(snapshot(), (sim::Json{{"columns", 6}}));
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"columns", 6}}));
}

TEST(Saving, OverAValueOfAnotherProcessKeepsItsOtherValues) {
  Home home({"--set", "rows=5", "--set", "columns=4"});
  writeElsewhere(home, {{"rows", 9LL}, {"quick", true}});
  manager().saveWithKey_value("columns"_ns, NSNumber::numberWithInt(6));
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"columns", 6}, {"quick", true}, {"rows", 9}}));
  EXPECT_EQ(snapshot(), (sim::Json{{"columns", 6}, {"rows", 5}}));
}

TEST(Saving, SurvivesUntilTheNextStart) {
  sim::TemporaryRoot root;
  test::Run first = test::runSimulator({"--root", root.path()});
  ASSERT_EQ(first.status, 0) << first.errors;
  Home home({"--root", root.path()});
  manager().saveWithKey_value("rows"_ns, NSNumber::numberWithInt(3));
  test::Run second = test::runSimulator({"--root", root.path(), "--report", "-"});
  ASSERT_EQ(second.status, 0) << second.errors;
  EXPECT_EQ(sim::Json::parse(second.output)["preferences"]["rows"], 3);
  EXPECT_EQ(sim::Json::parse(second.output)["preferences"].size(), 20);
}

TEST(Saving, PostsNothingAndLaysNothingOut) {
  Home home;
  test::Listening listening;
  manager().saveWithKey_value("rows"_ns, NSNumber::numberWithInt(3));
  home.step("wait 1");
  EXPECT_EQ(test::witnessed, std::vector<std::string>{});
  EXPECT_EQ(home.report()["relayouts"], sim::Json::array());
}

TEST(Configuration, IsSetAndRetained) {
  Home home({"--set", "rows=5"});
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  values->setObject_forKey(NSNumber::numberWithInt(9), "rows"_ns);
  NSUInteger before = values->retainCount();
  manager().configuration.set(values);
  EXPECT_EQ(values->retainCount(), before + 1);
  EXPECT_EQ(manager().configuration(), values.get());
  EXPECT_EQ(values->retainCount(), before + 1);
  EXPECT_EQ(manager().rows(), 8);
  manager().configuration.set({});
  EXPECT_EQ(values->retainCount(), before);
  EXPECT_FALSE(manager().configuration());
  EXPECT_EQ(manager().rows(), 6);
}

TEST(Configuration, SetToWhatItIsStays) {
  Home home({"--set", "rows=5"});
  NSUInteger before = manager().configuration().retainCount();
  manager().configuration.set(manager().configuration());
  EXPECT_EQ(manager().configuration().retainCount(), before);
  EXPECT_EQ(manager().rows(), 4);
}

TEST(Configuration, IsFoundByItsKey) {
  Home home({"--set", "rows=5"});
  EXPECT_EQ(test::coding(manager()).valueForKey("configuration"_ns), manager().configuration());
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  test::coding(manager()).setValue_forKey(values, "configuration"_ns);
  EXPECT_EQ(manager().configuration(), values.get());
}

TEST(Configuration, CanBeObserved) {
  Home home({"--set", "rows=5"});
  {
    test::Observation observation(manager(), {"configuration"_ns});
    auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
    manager().configuration.set(values);
    EXPECT_EQ(test::witnessed, std::vector<std::string>{"configuration"});
    EXPECT_EQ(manager().configuration(), values.get());
  }
  manager().configuration.set({});
  EXPECT_EQ(test::witnessed.size(), 1u);
}

TEST(AnotherManager, GivesItsDictionaryBackWhenItDies) {
  Home home({"--set", "rows=5"});
  bridge::Strong<NSMutableDictionary> values;
  {
    bridge::Pool pool;
    auto made = another();
    values = bridge::retained(made->configuration());
    EXPECT_FALSE(made->configuration() == manager().configuration());
  }
  EXPECT_EQ(values->retainCount(), 1u);
  EXPECT_EQ(manager().rows(), 4);
}

}  // namespace
