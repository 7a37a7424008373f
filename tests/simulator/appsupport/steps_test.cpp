// The steps `write` and `message`, from the line of a script to the home screen.
#include "platform/foundation/number.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/script.hpp"
#include "simulator/product/product.hpp"
#include "simulator/runtime/preferences.hpp"
#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;
using Texts = std::vector<std::string>;

Texts texts(std::string_view line) {
  Texts all;
  for (const auto& argument :
       sim::parseStep(line, "file:7", "/base", sim::product::program().steps)->arguments)
    all.push_back(std::get<std::string>(argument));
  return all;
}

std::string errorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const sim::UsageError& error) {
    return error.what();
  }
  return "no error";
}

std::string errorOfLine(std::string_view line) {
  return errorOf([&] { sim::parseStep(line, "file:7", "/base", sim::product::program().steps); });
}

TEST(StepLines, WriteTakesASetting) {
  EXPECT_EQ(sim::parseStep("write rows=6", "", "", sim::product::program().steps)->name(), "write");
  EXPECT_EQ(texts("write rows=6"), Texts{"rows=6"});
  EXPECT_EQ(texts(R"(write title="a = b" # comment)"), Texts{"title=a = b"});
  EXPECT_EQ(texts("write title="), Texts{"title="});
}

TEST(StepLines, MessageTakesANameAndAnyNumberOfSettings) {
  EXPECT_EQ(sim::parseStep("message hello", "", "", sim::product::program().steps)->name(), "message");
  EXPECT_EQ(texts("message hello"), Texts{"hello"});
  EXPECT_EQ(texts(R"(message hello name="Use Two Finger Tap Instead" value=YES)"),
            (Texts{"hello", "name=Use Two Finger Tap Instead", "value=YES"}));
  EXPECT_EQ(texts("message m a=1 b=2 c=3 d=4 e=5 f=6 g=7 h=8").size(), 9u);
}

TEST(StepLines, ThatAreWrongNameTheCulprit) {
  EXPECT_EQ(errorOfLine("write"), "file:7: 'write' lacks KEY=VALUE");
  EXPECT_EQ(errorOfLine("write rows"), "file:7: 'rows' is not what 'write KEY=VALUE' takes");
  EXPECT_EQ(errorOfLine("write =6"), "file:7: '=6' is not what 'write KEY=VALUE' takes");
  EXPECT_EQ(errorOfLine("write rows=6 columns=5"), "file:7: 'columns=5' is too much for 'write KEY=VALUE'");
  EXPECT_EQ(errorOfLine("message"), "file:7: 'message' lacks NAME");
  EXPECT_EQ(errorOfLine("message hello name=a value"),
            "file:7: 'value' is not what 'message NAME KEY=VALUE ...' takes");
}

TEST(WriteStep, ChangesTheDomainAndNotTheLibrarysCopy) {
  Home home({"--set", "rows=5", "--set", "enabled=YES"});
  home.step("write rows=7");
  home.step(R"(write title="seven rows")");
  NSDictionary copy = tilo::ConfigurationManager::sharedManager().configuration();
  EXPECT_EQ(bridge::as<NSNumber>(copy.objectForKey("rows"_ns)).intValue(), 5);
  EXPECT_FALSE(copy.objectForKey("title"_ns));
  const sim::Json stored = home.report()["preferences"];
  EXPECT_EQ(stored["rows"], 7);
  EXPECT_EQ(stored["title"], "seven rows");
  EXPECT_EQ(stored["enabled"], true);
}

// The centre of the stock home screen is the test's to serve.
class MessageStep : public testing::Test {
 protected:
  void serve() {
    listener = newListener();
    auto centre = CPDistributedMessagingCenter::centerNamed("com.wexor.tilo3.preferences.updated"_ns);
    centre.runServerOnCurrentThread();
    centre.registerForMessageName_target_selector("hello"_ns, listener, hearing());
  }

  Home home{{"--stock"}};
  bridge::Pool pool;
  bridge::Strong<Listener> listener;
};

TEST(WritePresetsStep, LeavesAFileWithThatTextWhetherOrNotThereWasOne) {
  Home home;
  home.step(R"(write-presets "{\"configurations\":[]}")");
  EXPECT_EQ(home.contents(presetsPath), R"({"configurations":[]})");
  home.step(R"(write-presets "")");
  EXPECT_EQ(home.contents(presetsPath), "");
}

TEST(WritePresetsStep, SaysWhichFileCannotBeWritten) {
  Home home;
  std::filesystem::remove(home.file(presetsPath));
  std::filesystem::create_directories(home.file(presetsPath));
  EXPECT_EQ(errorOf([&] { home.step(R"(write-presets "")"); }),
            "test:1: cannot write " + home.file(presetsPath).string());
}

TEST_F(MessageStep, HasBeenDeliveredWithTypedValuesWhenItEnds) {
  serve();
  home.step(R"(message hello name="Use Two Finger Tap Instead" value=NO whole=-5 half=0.5 empty=)");
  const sim::Json info = {
      {"empty", ""}, {"half", 0.5}, {"name", "Use Two Finger Tap Instead"}, {"value", false}, {"whole", -5}};
  EXPECT_EQ(heard, (std::vector<Heard>{{"hello", info}}));
}

TEST_F(MessageStep, MayCarryNothing) {
  serve();
  home.step("message hello");
  EXPECT_EQ(heard, (std::vector<Heard>{{"hello", sim::Json::object()}}));
}

TEST_F(MessageStep, OfANameThatNobodyTakesIsDropped) {
  serve();
  home.step("message goodbye");
  EXPECT_TRUE(heard.empty());
}

TEST_F(MessageStep, FailsWhereNobodyServes) {
  EXPECT_EQ(errorOf([&] { home.step("message hello"); }),
            "test:1: nobody serves 'com.wexor.tilo3.preferences.updated'");
}

TEST_F(MessageStep, TakesNoTime) {
  serve();
  const double before = home.report()["time"];
  home.step("message hello");
  EXPECT_EQ(home.report()["time"], before);
}

TEST(MessageStepOfAProgram, FailsWithOneLineWhereNobodyServes) {
  const test::Run run = runSimulator({"--stock", "--script", "-"}, "wait 1\nmessage hello\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.errors, "tilo-sim: <stdin>:2: nobody serves 'com.wexor.tilo3.preferences.updated'\n");
}

}  // namespace
