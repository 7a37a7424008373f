// The steps that send messages to objects.
#include "tests/simulator/app/run.hpp"

namespace {

using test::expectRefused;

// What the script's messages were answered, after steps that need no more than a home screen.
sim::Json answersTo(const std::string& script) { return test::reportOf({"--stock"}, script)["answers"]; }
sim::Json answerTo(const std::string& script) {
  const sim::Json all = answersTo(script);
  EXPECT_EQ(all.size(), 1U);
  return all.size() == 1 ? all[0]["value"] : sim::Json();
}

TEST(ObjectSteps, ReportMessageAndAnswer) {
  const sim::Json all = answersTo("make v UIView initWithFrame: 1,2,3,4.5\nsend v frame\nsend v isHidden\n");
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0], (sim::Json{{"message", "frame"}, {"value", {1.0, 2.0, 3.0, 4.5}}}));
  EXPECT_EQ(all[1], (sim::Json{{"message", "isHidden"}, {"value", 0}}));
}

TEST(ObjectSteps, ReportNothingOfAMessageWithoutAnswer) {
  EXPECT_EQ(answersTo("make v UIView init\nsend v setHidden: YES\n").size(), 0U);
}

TEST(ObjectSteps, TakeNumbersOfEveryKind) {
  EXPECT_EQ(answerTo("make v UIView init\nsend v setTag: -3\nsend v tag\n"), -3);
  EXPECT_EQ(answerTo("make v UIView init\nsend v setAlpha: 0.25\nsend v alpha\n"), 0.25);
  EXPECT_EQ(answerTo("make v UIView init\nsend v setHidden: YES\nsend v isHidden\n"), 1);
}

TEST(ObjectSteps, TakeTextsNumbersAndNothingForObjects) {
  EXPECT_EQ(answerTo("make l UILabel init\nsend l setText: \"two words\"\nsend l text\n"), "two words");
  EXPECT_EQ(answerTo("make l UILabel init\nsend l setText: nil\nsend l text\n"), nullptr);
  EXPECT_EQ(answerTo("make a NSMutableArray init\nsend a addObject: 5\nsend a firstObject\n"), 5);
}

TEST(ObjectSteps, TakeWhatHasAName) {
  EXPECT_EQ(answerTo("make a UIView init\nmake b UIView init\nsend a addSubview: b\nsend a subviews\n"),
            (sim::Json{"UIView"}));
}

TEST(ObjectSteps, SendMessagesToClassesToo) {
  EXPECT_EQ(answerTo("keep screen UIScreen mainScreen\nsend screen scale\n"), 2.0);
}

TEST(ObjectSteps, FindTheForemostViewOfAClass) {
  EXPECT_EQ(answerTo("find slide SBIconScrollView\nsend slide isPagingEnabled\n"), 1);
}

TEST(ObjectSteps, TakeSelectorsAndBlocks) {
  const test::Run run =
      test::runSimulator({"--stock", "--script", "-"},
                         "keep a UIAlertAction actionWithTitle:style:handler: Yes 0 called\n"
                         "send UIView animateWithDuration:animations: 0 \"now called\"\n");
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(run.output, "now called\n");
  EXPECT_EQ(answerTo("make v UIView init\nsend v respondsToSelector: setAlpha:\n"), 1);
}

TEST(ObjectSteps, KeepWhatHasANameUntilItIsDropped) {
  expectRefused({"--stock", "--script", "-"}, "<stdin>:3: nothing is called 'v'",
                "make v UIView init\ndrop v\nsend v tag\n");
}

TEST(ObjectSteps, RefuseWhatIsNotThere) {
  const auto refused = [](const std::string& step, const std::string& why) {
    expectRefused({"--stock", "--script", "-"}, "<stdin>:2: " + why, "make v UIView init\n" + step + "\n");
  };
  refused("send nobody tag", "nothing is called 'nobody'");
  refused("send v jump", "UIView has no jump");
  refused("send v setTag:", "setTag: takes 1 arguments, not 0");
  refused("send v setTag: many", "'many' is nothing of the type");
  refused("send v setFrame: 1,2,3", "'1,2,3' is nothing of the type");
  refused("keep t v tag", "tag answers no object");
  refused("find w WKWebView", "nothing is called 'WKWebView'");
  refused("find w UIPickerView", "no UIPickerView is in a window");
  refused("drop w", "nothing is called 'w'");
}

}  // namespace
