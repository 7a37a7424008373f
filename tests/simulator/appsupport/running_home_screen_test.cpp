// A home screen that waits for its script while other processes talk to it.
#include <signal.h>

#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;
namespace fs = std::filesystem;

class RunningHomeScreen : public testing::Test {
 protected:
  // Returns when the home screen can be reached.
  void start(std::vector<std::string> options) {
    options.insert(options.begin(), {"--root", root.string(), "--script", "-", "--report", "-"});
    home.emplace("tilo-sim", options);
    while (!fs::exists(socket) && !home->ended()) usleep(1000);
    ASSERT_TRUE(fs::is_socket(socket)) << home->finish().errors;
  }

  test::Run settings(std::vector<std::string> words) {
    words.insert(words.begin(), {"--root", root.string()});
    return runSettings(words);
  }

  // Ends the script; what the home screen reports at its end.
  sim::Json finish() {
    const test::Run ended = home->finish();
    EXPECT_EQ(ended.status, 0) << ended.errors;
    return ended.status == 0 ? sim::Json::parse(ended.output) : sim::Json();
  }

  sim::TemporaryRoot temporary;
  fs::path root = temporary.path() / "device";
  fs::path socket = root / "var/run/tilo-messages/com.wexor.tilo3.preferences.updated.sock";
  std::optional<Program> home;
};

TEST_F(RunningHomeScreen, TakesChangesWhileItWaitsForALine) {
  start({"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=5", "--set", "columns=4"});
  const test::Run changed = settings({"set", "rows", "7"});
  EXPECT_EQ(changed.status, 0);
  EXPECT_EQ(changed.errors, "");
  const sim::Json report = finish();
  EXPECT_EQ(report["preferences"]["rows"], 7);
  EXPECT_EQ(report["pages"][0]["rows"], 7);  // the library heard of it
  EXPECT_EQ(report["pages"][0]["columns"], 4);
  EXPECT_EQ(report["time"], 0.0);
}

TEST_F(RunningHomeScreen, IsNotToldOfWhatIsOnlyWritten) {
  start({"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=5", "--set", "columns=4"});
  home->write("write rows=7\n");
  const sim::Json report = finish();
  EXPECT_EQ(report["preferences"]["rows"], 7);
  EXPECT_EQ(report["pages"][0]["rows"], 5);
}

TEST_F(RunningHomeScreen, TakesMessagesBetweenSteps) {
  start({"--set", "enabled=YES", "--set", "quick=YES"});
  home->write("wait 1\n");
  EXPECT_EQ(settings({"set", "isDarkMode", "YES"}).status, 0);
  home->write("wait 1\nmessage ListPreferencesDidChangeNotification name=rows index=6\n");
  EXPECT_EQ(settings({"send", "PreferencesDidChangeNotification", "name=nothing", "value=YES"}).status, 0);
  EXPECT_EQ(finish()["time"], 2.0);
}

TEST_F(RunningHomeScreen, LosesNothingToWritersAtTheSameTime) {
  start({"--set", "enabled=YES"});
  std::string lines;
  for (int i = 0; i < 50; ++i) lines += "write key" + std::to_string(i) + "=YES\n";
  home->write(lines);
  for (const char* key : {"rows", "columns"}) EXPECT_EQ(settings({"set", key, "1"}).status, 0);
  for (const char* key : {"labels", "page", "dock"}) EXPECT_EQ(settings({"set", key, "YES"}).status, 0);
  const sim::Json stored = finish()["preferences"];
  for (int i = 0; i < 50; ++i) EXPECT_TRUE(stored.contains("key" + std::to_string(i))) << i;
  for (const char* key : {"enabled", "rows", "columns", "labels", "page", "dock"})
    EXPECT_TRUE(stored.contains(key)) << key;
}

TEST_F(RunningHomeScreen, TakesItsSocketWithIt) {
  start({});
  finish();
  EXPECT_FALSE(fs::exists(socket.parent_path()));
  const test::Run changed = settings({"set", "rows", "7"});
  EXPECT_EQ(changed.status, 0);
  EXPECT_EQ(changed.errors, "tilo-settings: written; no home screen runs that could be told\n");
}

TEST_F(RunningHomeScreen, ThatWasKilledIsFollowedByAnother) {
  start({});
  kill(home->id(), SIGKILL);
  while (!home->ended()) usleep(1000);
  ASSERT_TRUE(fs::exists(socket));
  EXPECT_NE(settings({"set", "rows", "7"}).errors, "");
  start({});
  // The socket was there already, so the new home screen may still be on its way up.
  test::Run sent;
  for (int tries = 0; tries < 2000; ++tries) {
    sent = settings({"send", "PreferencesDidChangeNotification", "name=nothing"});
    if (sent.status == 0) break;
  }
  EXPECT_EQ(sent.status, 0) << sent.errors;
  finish();
  EXPECT_FALSE(fs::exists(socket));
}

TEST_F(RunningHomeScreen, LeavesTheFirstOneOfADeviceItsMessages) {
  start({"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=5"});
  const test::Run second = runSimulator({"--root", root.string(), "--script", "-"},
                                        "message ListPreferencesDidChangeNotification name=a index=1\n");
  EXPECT_EQ(second.status, 2);
  EXPECT_NE(second.errors.find("another home screen serves"), std::string::npos) << second.errors;
  EXPECT_NE(second.errors.find("<stdin>:1: nobody serves"), std::string::npos) << second.errors;
  EXPECT_EQ(settings({"set", "rows", "7"}).errors, "");
  EXPECT_EQ(finish()["pages"][0]["rows"], 7);
}

}  // namespace
