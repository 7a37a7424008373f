// Scripts: the grammar of a line, and reading line by line.
#include "simulator/input/script.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <fstream>

#include "simulator/device/temporary_root.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/product.hpp"

namespace sim {
namespace {

std::optional<Step> parse(std::string_view line) {
  return parseStep(line, "file:7", "/base", product::program().steps);
}

std::string errorOf(auto&& call) {
  try {
    call();
  } catch (const UsageError& error) {
    return error.what();
  }
  return "no error";
}

std::string errorOfLine(std::string_view line) {
  return errorOf([&] { parse(line); });
}

TEST(ScriptLine, WaitTakesSeconds) {
  const std::optional<Step> step = parse("wait 0.25");
  ASSERT_TRUE(step);
  EXPECT_EQ(step->name(), "wait");
  EXPECT_EQ(step->number(0), 0.25);
  EXPECT_EQ(step->place, "file:7");
  EXPECT_EQ(parse("wait 0")->number(0), 0);
  EXPECT_EQ(parse("wait 1e1")->number(0), 10);
}

TEST(ScriptLine, RotateTakesAnOrientation) {
  EXPECT_EQ(parse("rotate landscape")->text(0), "landscape");
  EXPECT_EQ(parse("rotate portrait")->name(), "rotate");
}

TEST(ScriptLine, LockAndUnlockTakeNothing) {
  EXPECT_EQ(parse("lock")->name(), "lock");
  EXPECT_EQ(parse("\tunlock \r")->name(), "unlock");
  EXPECT_TRUE(parse("lock")->arguments.empty());
}

TEST(ScriptLine, ARelativeFileCountsFromTheScriptsFolder) {
  EXPECT_EQ(parse("snapshot a.png")->text(0), "/base/a.png");
  EXPECT_EQ(parse("report /tmp/a.json")->text(0), "/tmp/a.json");
  EXPECT_EQ(parse("report -")->text(0), "-");
}

TEST(ScriptLine, QuotesHoldSpacesHashesAndEscapes) {
  EXPECT_EQ(parse(R"(snapshot "/a b#c\"d\\e.png" # comment)")->text(0), R"(/a b#c"d\e.png)");
}

TEST(ScriptLine, WithoutAStepIsSkipped) {
  EXPECT_FALSE(parse(""));
  EXPECT_FALSE(parse("  \t\r"));
  EXPECT_FALSE(parse("# wait 1"));
  EXPECT_EQ(parse("wait 1# one")->number(0), 1);
}

TEST(ScriptLine, AnUnknownStepIsNamed) {
  EXPECT_EQ(errorOfLine("hover 3"), "file:7: unknown step 'hover'");
  EXPECT_EQ(errorOfLine("Wait 3"), "file:7: unknown step 'Wait'");
  EXPECT_EQ(errorOfLine("\"wait\" 3"), "file:7: unknown step 'wait'");
}

TEST(ScriptLine, AnArgumentOfTheWrongKindIsNamed) {
  for (const char* bad : {"soon", "-1", "nan", "inf", "-inf", "1e300", "1e999", "1s", "1,5", "0x10"})
    EXPECT_EQ(errorOfLine(std::string("wait ") + bad),
              std::string("file:7: '") + bad + "' is not what 'wait SECONDS' takes");
  EXPECT_EQ(errorOfLine("wait \"1\""), "file:7: '1' is not what 'wait SECONDS' takes");
  EXPECT_EQ(errorOfLine("rotate left"), "file:7: 'left' is not what 'rotate portrait|landscape' takes");
  for (const char* bad : {"landscape|portrait", "portrait|landscape", "port", "|", ""})
    EXPECT_NE(errorOfLine(std::string("rotate ") + bad), "no error") << bad;
  EXPECT_EQ(errorOfLine("snapshot \"\""), "file:7: '' is not what 'snapshot FILE' takes");
}

TEST(ScriptLine, AWrongNumberOfArgumentsIsAnError) {
  EXPECT_EQ(errorOfLine("wait"), "file:7: 'wait' lacks SECONDS");
  EXPECT_EQ(errorOfLine("lock now"), "file:7: 'now' is too much for 'lock'");
  EXPECT_EQ(errorOfLine("wait 1 2"), "file:7: '2' is too much for 'wait SECONDS'");
}

TEST(ScriptLine, AnUnfinishedQuoteIsAnError) {
  EXPECT_EQ(errorOfLine("report \"a.json"), "file:7: no closing quote: \"a.json");
  EXPECT_EQ(errorOfLine("report \"a.json\\\""), "file:7: no closing quote: \"a.json\\\"");
  EXPECT_EQ(errorOfLine("report \"a\\n\""),
            "file:7: a backslash in quotes stands before \" or \\ only: \"a\\n\"");
  EXPECT_EQ(errorOfLine("report \"a\\"), "file:7: a backslash in quotes stands before \" or \\ only: \"a\\");
}

class ScriptFile : public testing::Test {
 protected:
  TemporaryRoot folder;
  std::string file = folder.path() / "steps";

  void write(const std::string& text) { std::ofstream(file) << text; }
};

TEST_F(ScriptFile, GivesItsStepsInOrderWithTheirLines) {
  write("# first\nlock\n\nwait 2\nunlock");
  Script script(file, product::program().steps);
  EXPECT_EQ(script.next()->place, file + ":2");
  EXPECT_EQ(script.next()->place, file + ":4");
  EXPECT_EQ(script.next()->name(), "unlock");
  EXPECT_FALSE(script.next());
  EXPECT_FALSE(script.next());
}

TEST_F(ScriptFile, HandsOutStepsBeforeAWrongLine) {
  write("lock\nlok\n");
  Script script(file, product::program().steps);
  EXPECT_EQ(script.next()->name(), "lock");
  EXPECT_EQ(errorOf([&] { script.next(); }), file + ":2: unknown step 'lok'");
}

TEST_F(ScriptFile, MayHaveLinesLongerThanAnyBuffer) {
  write("#" + std::string(20000, 'x') + "\nlock\n");
  EXPECT_EQ(Script(file, product::program().steps).next()->place, file + ":2");
}

TEST_F(ScriptFile, ThatIsMissingIsNamed) {
  EXPECT_EQ(errorOf([&] { Script script(file, product::program().steps); }),
            file + ": No such file or directory");
}

TEST_F(ScriptFile, ThatIsAFolderIsNamed) {
  Script script(folder.path(), product::program().steps);
  EXPECT_EQ(errorOf([&] { script.next(); }), folder.path().string() + ": Is a directory");
}

TEST(ScriptFromStandardInput, ReadsALineOnlyWhenItIsNeeded) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const int before = dup(STDIN_FILENO);
  dup2(ends[0], STDIN_FILENO);
  close(ends[0]);
  int waits = 0;
  Script script("-", product::program().steps, [&](int descriptor) {
    EXPECT_EQ(descriptor, STDIN_FILENO);
    // Each piece of input comes only when the script asks for it: half a line, the rest and a second line,
    // the end.
    const char* const pieces[] = {"wa", "it 1\nlock\n"};
    if (waits < 2) EXPECT_GT(::write(ends[1], pieces[waits], std::strlen(pieces[waits])), 0);
    if (waits == 2) close(ends[1]);
    ++waits;
  });
  EXPECT_EQ(waits, 0);
  EXPECT_EQ(script.next()->place, "<stdin>:1");
  EXPECT_EQ(waits, 2);
  EXPECT_EQ(script.next()->name(), "lock");
  EXPECT_EQ(waits, 2);
  EXPECT_FALSE(script.next());
  EXPECT_EQ(waits, 3);
  dup2(before, STDIN_FILENO);
  close(before);
}

}  // namespace
}  // namespace sim
