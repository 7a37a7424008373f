// DPHLogger: tagged lines in a file that holds the current run's only.
#include "settings/log/logger.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <thread>

#include "tests/library/device_files.hpp"

namespace {

using test::Home;
using tilo::DPHLogger;

DPHLogger logger() { return DPHLogger::sharedLogger(); }

NSString text(const std::string& utf8) { return NSString::stringWithUTF8String(utf8.c_str()); }

// A logger of its own, to a file of the device.
bridge::Strong<DPHLogger> loggerTo(const std::string& devicePath) {
  return bridge::make<DPHLogger, &DPHLogger::initWithFilePath>(text(devicePath));
}

// How many open descriptors of this process are for that file.
int openings(const std::filesystem::path& file) {
  int count = 0;
  for (auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    count += std::filesystem::read_symlink(entry.path(), gone) == file;
  }
  return count;
}

TEST(Log, HasFourLevels) {
  Home home;
  logger().debug("one"_ns);
  logger().info("two"_ns);
  logger().warn("three"_ns);
  logger().error("four"_ns);
  EXPECT_EQ(home.contents(test::logPath), "[Debug] one\n[Info] two\n[Warning] three\n[Error] four\n");
  EXPECT_EQ(home.report()["log"],
            sim::Json({"[Debug] one", "[Info] two", "[Warning] three", "[Error] four"}));
}

TEST(Log, IsInTheDocumentsFolder) {
  Home home;
  auto path = reinterpret_cast<NSString (*)()>(test::librarySymbol("tilo::getDefaultFilePath()"));
  EXPECT_STREQ(path().UTF8String(), "/var/mobile/Documents/Tilo3.log");
  logger();
  EXPECT_TRUE(std::filesystem::exists(home.file("/var/mobile/Documents/Tilo3.log")));
}

TEST(Log, IsOpenedWhenItIsFirstAskedForAndNotBefore) {
  Home home;
  home.step("wait 5");
  home.report();
  EXPECT_FALSE(std::filesystem::exists(home.file(test::logPath)));
  logger();
  EXPECT_TRUE(std::filesystem::exists(home.file(test::logPath)));
  EXPECT_EQ(home.contents(test::logPath), "");
}

TEST(Log, IsOpenedOnce) {
  Home home;
  DPHLogger first = logger();
  logger().info("a"_ns);
  EXPECT_EQ(logger(), first);
  logger().info("b"_ns);
  EXPECT_EQ(openings(home.file(test::logPath)), 1);
  EXPECT_EQ(home.contents(test::logPath), "[Info] a\n[Info] b\n");
  EXPECT_EQ(class_getSuperclass(bridge::classOf(first.raw)), bridge::classNamed<NSObject>());
}

TEST(Log, HasEveryLineAtOnce) {
  Home home;
  std::string expected;
  for (int i = 0; i < 20; ++i) {
    logger().info(text("line " + std::to_string(i)));
    expected += "[Info] line " + std::to_string(i) + "\n";
    ASSERT_EQ(home.contents(test::logPath), expected);
  }
}

TEST(Log, HasPercentSignsAsTheyAre) {
  Home home;
  logger().info("100% %@ %s %d %n %%"_ns);
  EXPECT_EQ(home.contents(test::logPath), "[Info] 100% %@ %s %d %n %%\n");
}

TEST(Log, ShowsNilAsNull) {
  Home home;
  logger().debug({});
  logger().error({});
  EXPECT_EQ(home.contents(test::logPath), "[Debug] (null)\n[Error] (null)\n");
}

TEST(Log, IsUtf8) {
  Home home;
  logger().warn(text("Größe ✓ 日本 🙂"));
  EXPECT_EQ(home.contents(test::logPath), "[Warning] Größe ✓ 日本 🙂\n");
}

TEST(Log, TakesEmptyAndLongMessagesAndLinesWithin) {
  Home home;
  logger().info(""_ns);
  logger().info("two\nlines"_ns);
  std::string longText(100000, 'x');
  logger().info(text(longText));
  EXPECT_EQ(home.contents(test::logPath), "[Info] \n[Info] two\nlines\n[Info] " + longText + "\n");
}

TEST(Log, TakesAPrefixOfItsOwn) {
  Home home;
  logger()._logWithPrefix_message("<%@>"_ns, "text"_ns);
  EXPECT_EQ(home.contents(test::logPath), "<%@> text\n");
}

TEST(Log, KeepsBackWhatIsNotFlushed) {
  Home home;
  logger()._logString_flush("first, "_ns, NO);
  EXPECT_EQ(home.contents(test::logPath), "");
  logger()._logString_flush("second"_ns, YES);
  EXPECT_EQ(home.contents(test::logPath), "first, second");
}

TEST(Log, IsEmptiedByItsFirstRequestAfterAStartAndNotBefore) {
  Home home({}, test::having(test::logPath, "[Info] an older run\n[Error] also older\n"));
  home.step("wait 1");
  EXPECT_EQ(home.contents(test::logPath), "[Info] an older run\n[Error] also older\n");
  logger();
  EXPECT_EQ(home.contents(test::logPath), "");
  logger().info("now"_ns);
  EXPECT_EQ(home.contents(test::logPath), "[Info] now\n");
}

TEST(Log, OfTwoStartsHasTheLinesOfTheSecond) {
  sim::TemporaryRoot root;
  pid_t first = fork();
  ASSERT_GE(first, 0);
  if (first == 0) {
    Home home({"--root", root.path()});
    logger().info("first start"_ns);
    _exit(home.contents(test::logPath) == "[Info] first start\n" ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(waitpid(first, &status, 0), first);
  ASSERT_TRUE(WIFEXITED(status));
  ASSERT_EQ(WEXITSTATUS(status), 0);
  Home home({"--root", root.path()});
  EXPECT_EQ(home.contents(test::logPath), "[Info] first start\n");
  logger().info("second start"_ns);
  EXPECT_EQ(home.contents(test::logPath), "[Info] second start\n");
}

TEST(Log, IsOneForAllThreads) {
  Home home;
  std::vector<id> found(8);
  std::vector<std::thread> threads;
  for (id& result : found)
    threads.emplace_back([&result] {
      bridge::Pool pool;
      result = logger().raw;
    });
  for (auto& thread : threads) thread.join();
  ASSERT_TRUE(found[0]);
  EXPECT_TRUE(std::ranges::all_of(found, [&](id one) { return one == found[0]; }));
  EXPECT_EQ(openings(home.file(test::logPath)), 1);
}

TEST(Log, IsSilentWithoutADocumentsFolder) {
  Home home;
  std::filesystem::remove_all(home.file(test::documentsFolder));
  ASSERT_TRUE(logger());
  logger().debug("a"_ns);
  logger().info("b"_ns);
  logger().warn("c"_ns);
  logger().error({});
  logger()._logString_flush("d"_ns, NO);
  EXPECT_FALSE(std::filesystem::exists(home.file(test::documentsFolder)));
  EXPECT_EQ(home.report()["console"].size(), 3);  // the start's two, and what SpringBoard lacks
}

TEST(Log, StaysSilentOnceItCouldNotBeOpened) {
  Home home;
  home.simulation().fileSystem().refuse(test::logPath, sim::Faults::writing, EACCES);
  logger().info("lost"_ns);
  home.simulation().fileSystem().allowAll();
  logger().info("lost too"_ns);
  EXPECT_FALSE(std::filesystem::exists(home.file(test::logPath)));
}

TEST(Log, ThatCannotBeOpenedKeepsItsOldLines) {
  Home home({}, test::having(test::logPath, "older\n"));
  home.simulation().fileSystem().refuse(test::logPath, sim::Faults::writing, EROFS);
  logger().info("lost"_ns);
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(home.contents(test::logPath), "older\n");
}

TEST(Log, IsSilentWhenAFolderHasItsName) {
  Home home({}, test::having(std::string(test::logPath) + "/inside.txt", "mine"));
  logger().info("lost"_ns);
  EXPECT_TRUE(std::filesystem::is_directory(home.file(test::logPath)));
  EXPECT_EQ(home.contents(std::string(test::logPath) + "/inside.txt"), "mine");
}

TEST(ALogOfItsOwn, WritesToItsPathAndClosesItWhenItDies) {
  Home home;
  std::string path = "/var/mobile/Documents/another.log";
  {
    bridge::Pool pool;
    auto own = loggerTo(path);
    own->info("here"_ns);
    EXPECT_EQ(home.contents(path), "[Info] here\n");
    EXPECT_EQ(openings(home.file(path)), 1);
    own->_logString_flush("not flushed"_ns, NO);
  }
  EXPECT_EQ(openings(home.file(path)), 0);
  EXPECT_EQ(home.contents(path), "[Info] here\nnot flushed");
  EXPECT_FALSE(std::filesystem::exists(home.file(test::logPath)));
}

TEST(ALogOfItsOwn, MayHaveANameInAnyScript) {
  Home home;
  std::string path = "/var/mobile/Documents/日誌 ü.log";
  loggerTo(path)->info("here"_ns);
  EXPECT_EQ(home.contents(path), "[Info] here\n");
}

TEST(ALogOfItsOwn, EmptiesTheFileThatItFinds) {
  Home home({}, test::having("/var/mobile/Documents/another.log", "older\n"));
  auto own = loggerTo("/var/mobile/Documents/another.log");
  EXPECT_EQ(home.contents("/var/mobile/Documents/another.log"), "");
}

TEST(ALogOfItsOwn, ThatCannotBeOpenedIsSilentAndDiesQuietly) {
  Home home;
  bridge::Pool pool;
  auto own = loggerTo("/var/mobile/nowhere/another.log");
  ASSERT_TRUE(own);
  own->info("lost"_ns);
  own->_logString_flush("lost"_ns, YES);
  own.clear();
  EXPECT_FALSE(std::filesystem::exists(home.file("/var/mobile/nowhere")));
}

TEST(ALogOfItsOwn, ThatNeverRanItsInitialiserDiesQuietly) {
  Home home;
  bridge::Pool pool;
  auto own = bridge::allocate<DPHLogger>();
  ASSERT_TRUE(own);
  own.clear();
}

}  // namespace
