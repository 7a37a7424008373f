// Processes that write the preference domain at the same time.
#include "platform/foundation/number.hpp"
#include "simulator/runtime/preferences.hpp"
#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;

constexpr int keysEach = 200;

NSString domain() { return "com.example.test"_ns; }

NSString key(int writer, int number) {
  return NSString::stringWithUTF8String(
      ("writer" + std::to_string(writer) + "-" + std::to_string(number)).c_str());
}

// All of one writer's keys; the number that could not be written.
int write(int writer) {
  int failures = 0;
  for (int number = 0; number < keysEach; ++number) {
    bridge::Pool pool;
    failures += !sim::setPreference(domain(), key(writer, number), NSNumber::numberWithInt(number));
  }
  return failures;
}

TEST(Writers, LoseNoKeyToEachOther) {
  Home home({"--stock"});
  bridge::Pool pool;
  Client one([] { return write(1); }), other([] { return write(2); });
  EXPECT_EQ(write(3), 0);
  while (!one.ended() || !other.ended()) usleep(1000);
  EXPECT_EQ(one.status(), 0);
  EXPECT_EQ(other.status(), 0);
  NSDictionary values = sim::preferenceDomain(domain());
  EXPECT_EQ(values.count(), 3u * keysEach);
  for (int writer = 1; writer <= 3; ++writer)
    for (int number = 0; number < keysEach; ++number)
      EXPECT_EQ(bridge::as<NSNumber>(values.objectForKey(key(writer, number))).intValue(), number);
}

TEST(Writers, AreSeenWholeByReaders) {
  Home home({"--stock"});
  Client writer([] { return write(1); });
  NSUInteger before = 0;
  while (!writer.ended()) {
    bridge::Pool pool;
    const NSUInteger count = sim::preferenceDomain(domain()).count();
    EXPECT_GE(count, before);
    before = count;
  }
  EXPECT_EQ(writer.status(), 0);
}

TEST(Writers, LeaveNothingBesideTheFile) {
  Home home({"--stock"});
  bridge::Pool pool;
  ASSERT_TRUE(sim::setPreference(domain(), "key"_ns, "value"_ns));
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(home.file("/var/mobile/Library/Preferences")))
    names.push_back(entry.path().filename());
  EXPECT_EQ(names, std::vector<std::string>{"com.example.test.plist"});
}

TEST(Writers, AreToldWhenTheFileCannotBeParsed) {
  Home home({"--stock"});
  bridge::Pool pool;
  home.write("/var/mobile/Library/Preferences/com.example.test.plist", "{ not a list");
  EXPECT_FALSE(sim::setPreference(domain(), "key"_ns, "value"_ns));
  EXPECT_EQ(home.contents("/var/mobile/Library/Preferences/com.example.test.plist"), "{ not a list");
}

TEST(Writers, AreToldWhenTheDiskRefuses) {
  Home home({"--stock"});
  bridge::Pool pool;
  home.simulation().fileSystem().refuse("/", sim::Faults::both, EIO);
  EXPECT_FALSE(sim::setPreference(domain(), "key"_ns, "value"_ns));
  home.simulation().fileSystem().allowAll();
}

}  // namespace
