// CFPreferences: a domain is a property list on the device's file system.
#include "platform/corefoundation/preferences.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <set>
#include <thread>

#include "simulator/runtime/preferences.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;

constexpr const char* domainFile = "/var/mobile/Library/Preferences/com.example.test.plist";

class Preferences : public testing::Test {
 protected:
  test::Home home{{"--stock"}};
  bridge::Pool pool;

  static NSString domain() { return "com.example.test"_ns; }

  static void set(NSString key, bridge::Object value) {
    CFPreferencesSetValue(key.raw, value.raw, domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  }

  static bridge::Strong<NSArray> keys() {
    return bridge::adopt<NSArray>(
        CFPreferencesCopyKeyList(domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  }

  static std::set<std::string> names() {
    std::set<std::string> found;
    auto list = keys();
    for (NSUInteger i = 0; i < list->count(); ++i)
      found.insert(bridge::as<NSString>(list->objectAtIndex(i)).UTF8String());
    return found;
  }

  static Json values(NSArray wanted) {
    return sim::plain(bridge::adopt<NSDictionary>(CFPreferencesCopyMultiple(wanted.raw, domain().raw,
                                                                            kCFPreferencesCurrentUser,
                                                                            kCFPreferencesAnyHost))
                          .get());
  }
  static Json all() { return values(keys().get()); }

  void refuseWriting() { home.simulation().fileSystem().refuse("/var", sim::Faults::writing, ENOSPC); }
};

NSNumber number(int value) { return NSNumber::numberWithInt(value); }

TEST_F(Preferences, OfADomainThatHasNoFileHaveNoKeyList) { EXPECT_FALSE(keys()); }

TEST_F(Preferences, OfADomainWithoutKeysHaveNoKeyList) {
  set("spoons"_ns, number(3));
  set("spoons"_ns, {});
  EXPECT_FALSE(keys());
}

TEST_F(Preferences, KeepTheKindOfEveryValue) {
  auto list = bridge::make<NSMutableArray, &NSObject::init>();
  list->addObject("fork"_ns);
  list->addObject(number(2));
  set("yes"_ns, NSNumber::numberWithBool(YES));
  set("no"_ns, NSNumber::numberWithBool(NO));
  set("whole"_ns, number(-13));
  set("real"_ns, NSNumber::numberWithDouble(0.1));
  set("single"_ns, NSNumber::numberWithFloat(1.5f));
  set("text"_ns, "5"_ns);
  set("list"_ns, list.get());
  set("table"_ns, NSDictionary::dictionaryWithObject_forKey(number(1), "a"_ns));
  Json expected{{"list", {"fork", 2}}, {"no", false}, {"real", 0.1},  {"single", 1.5},
                {"table", {{"a", 1}}}, {"text", "5"}, {"whole", -13}, {"yes", true}};
  EXPECT_EQ(all(), expected);
}

TEST_F(Preferences, AreAnXmlFileThatOthersCanRead) {
  set("enabled"_ns, NSNumber::numberWithBool(YES));
  set("rows"_ns, number(5));
  std::string file = home.contents(domainFile);
  EXPECT_EQ(file.rfind("<?xml", 0), 0u) << file;
  EXPECT_NE(file.find("<key>enabled</key>"), std::string::npos);
  EXPECT_NE(file.find("<true/>"), std::string::npos);
  EXPECT_NE(file.find("<integer>5</integer>"), std::string::npos);
}

TEST_F(Preferences, ArePutDownAtOnce) {
  set("rows"_ns, number(5));
  auto stored =
      NSDictionary::dictionaryWithContentsOfFile("/var/mobile/Library/Preferences/com.example.test.plist"_ns);
  EXPECT_EQ(sim::plain(stored), Json({{"rows", 5}}));
}

TEST_F(Preferences, ShowWhatAnotherProcessWrote) {
  set("rows"_ns, number(5));
  home.write(domainFile,
             "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>columns</key><integer>7</integer>"
             "</dict></plist>");
  EXPECT_EQ(all(), Json({{"columns", 7}}));
}

// The file's size, place and name stay, and the disk's clock may not have gone on.
TEST_F(Preferences, ShowWhatWasEditedInPlaceWithinAMoment) {
  set("spoons"_ns, number(3));
  for (int i = 0; i < 20; ++i) {
    std::string text = home.contents(domainFile);
    const char digit = static_cast<char>('0' + i % 10);
    text[text.find("<integer>") + std::strlen("<integer>")] = digit;
    home.write(domainFile, text);
    ASSERT_EQ(all(), (Json{{"spoons", i % 10}}));
  }
}

TEST_F(Preferences, ThatNobodyTouchesForAWhileShowWhatIsEditedThen) {
  set("spoons"_ns, number(3));
  for (const char* spoons : {"4", "5"}) {
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    EXPECT_FALSE(all().empty());
    std::string text = home.contents(domainFile);
    text.replace(text.find("<integer>") + std::strlen("<integer>"), 1, spoons);
    home.write(domainFile, text);
    EXPECT_EQ(all(), (Json{{"spoons", std::stoi(spoons)}}));
  }
}

TEST_F(Preferences, ThatMayNotBeReadAnyMoreAreGone) {
  set("spoons"_ns, number(3));
  std::this_thread::sleep_for(std::chrono::milliseconds(40));
  EXPECT_EQ(all(), (Json{{"spoons", 3}}));
  home.simulation().fileSystem().refuse("/var", sim::Faults::reading, EACCES);
  EXPECT_FALSE(keys());
}

TEST_F(Preferences, OfDifferentDomainsAreSeparate) {
  set("rows"_ns, number(5));
  EXPECT_EQ(
      CFPreferencesCopyKeyList("com.example.other"_ns.raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost),
      nullptr);
}

TEST_F(Preferences, HoldTheLastValueOfAKey) {
  set("rows"_ns, number(5));
  set("rows"_ns, "many"_ns);
  EXPECT_EQ(all(), Json({{"rows", "many"}}));
}

TEST_F(Preferences, ThatAreSetAlreadyAreNotWrittenAgain) {
  set("rows"_ns, number(5));
  const std::string touched = home.contents(domainFile) + "\n";
  home.write(domainFile, touched);
  set("rows"_ns, number(5));
  EXPECT_EQ(home.contents(domainFile), touched);
  set("rows"_ns, number(6));
  EXPECT_NE(home.contents(domainFile), touched);
}

TEST_F(Preferences, ThatAreListsKeepTheKindsInThem) {
  const auto listOf = [](NSNumber item) {
    auto list = bridge::make<NSMutableArray, &NSObject::init>();
    list->addObject(item);
    return list;
  };
  set("list"_ns, listOf(number(1)).get());
  set("list"_ns, listOf(NSNumber::numberWithBool(YES)).get());
  EXPECT_EQ(all(), Json({{"list", Json::array({true})}}));
}

TEST_F(Preferences, OfAnotherKindAreWrittenThoughTheyAreEqual) {
  set("rows"_ns, number(1));
  set("rows"_ns, NSNumber::numberWithBool(YES));
  EXPECT_EQ(all()["rows"], true);
  EXPECT_TRUE(all()["rows"].isBoolean());
  set("rows"_ns, NSNumber::numberWithDouble(1));
  EXPECT_NE(home.contents(domainFile).find("<real>1</real>"), std::string::npos) << home.contents(domainFile);
}

TEST_F(Preferences, LeaveOutKeysThatAreNotThere) {
  set("rows"_ns, number(5));
  auto wanted = bridge::make<NSMutableArray, &NSObject::init>();
  wanted->addObject("rows"_ns);
  wanted->addObject("columns"_ns);
  EXPECT_EQ(values(wanted.get()), Json({{"rows", 5}}));
}

TEST_F(Preferences, AreGivenAwayAsTheCallersOwn) {
  set("rows"_ns, number(5));
  bridge::Strong<NSArray> list;
  bridge::Strong<NSDictionary> copied;
  {
    bridge::Pool inner;
    list = keys();
    copied = bridge::adopt<NSDictionary>(CFPreferencesCopyMultiple(
        list.get().raw, domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  }
  EXPECT_EQ(list->count(), 1u);
  EXPECT_EQ(copied->count(), 1u);
}

TEST_F(Preferences, SynchroniseAlways) {
  EXPECT_TRUE(CFPreferencesSynchronize(domain().raw, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
}

TEST_F(Preferences, ThatTheDiskRefusesStayInMemory) {
  set("before"_ns, number(1));
  refuseWriting();
  set("rows"_ns, number(5));
  EXPECT_EQ(all(), Json({{"before", 1}, {"rows", 5}}));
  EXPECT_EQ(home.contents(domainFile).find("rows"), std::string::npos);
}

TEST_F(Preferences, ThatWereRefusedAreWrittenWithTheNextValue) {
  refuseWriting();
  set("rows"_ns, number(5));
  home.simulation().fileSystem().allowAll();
  set("columns"_ns, number(4));
  EXPECT_NE(home.contents(domainFile).find("<key>rows</key>"), std::string::npos);
  EXPECT_EQ(all(), Json({{"columns", 4}, {"rows", 5}}));
}

TEST_F(Preferences, ThatAreRemovedWhileTheDiskRefusesAreGone) {
  set("rows"_ns, number(5));
  set("columns"_ns, number(4));
  refuseWriting();
  set("rows"_ns, {});
  EXPECT_EQ(all(), Json({{"columns", 4}}));
  home.simulation().fileSystem().allowAll();
  set("icons"_ns, number(1));
  EXPECT_EQ(all(), Json({{"columns", 4}, {"icons", 1}}));
}

TEST_F(Preferences, InAFileThatCannotBeReadAreKeptAsTheyAre) {
  for (const char* corrupt :
       {"this is no property list {", "", "<?xml version=\"1.0\"?><plist><dict><key>"}) {
    home.write(domainFile, corrupt);
    set("rows"_ns, number(5));
    EXPECT_EQ(home.contents(domainFile), corrupt);
    EXPECT_EQ(names(), std::set<std::string>{"rows"});
  }
}

}  // namespace
