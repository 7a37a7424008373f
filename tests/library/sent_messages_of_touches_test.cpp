// What the library makes when its panel is touched, once each touch has been made: every message that makes
// an object or goes to a class, and that nothing is looked up by its name any more.
#include <gtest/gtest.h>

#include "tests/library/presets_home.hpp"
#include "tests/library/sent_messages.hpp"

namespace {

using test::sentBy;

class SentMessagesOfATouch : public testing::Test {
 protected:
  test::PresetsHome home{test::layouts({"one", "two"}), {"showed-setup=YES"}};

  static std::string made() { return test::textOf(test::SentMessages::making); }
  // Of what was made, texts and what an outer pool lets go of; and what was looked up.
  static std::string textsMade() {
    std::map<std::string, int> texts;
    for (const auto& [what, times] : test::SentMessages::making)
      for (const char* part : {"tring", "description", "autorelease", "by its name"})
        if (what.find(part) != std::string::npos) texts[what] = times;
    return test::textOf(texts);
  }
};

// One text is the slider's, the other the panel's.
TEST_F(SentMessagesOfATouch, MakeTheTextsOfTheNumberOnPlusAndMinus) {
  const std::string all =
      "4 alloc, animateWithDuration:animations:, "
      "2 animateWithDuration:delay:options:animations:completion:, currentDevice, 2 defaultCenter, "
      "indexPathWithIndex:, numberWithFloat:, numberWithInt:, "
      "scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:, 4 sharedInstance, "
      "3 sharedManager, 2 stringWithUTF8String:";
  home.open();
  for (const char* button : {"increment", "decrement"}) {
    sentBy([&] { home.step(std::string(button) + " \"Top Inset\""); });
    EXPECT_EQ(made(), all) << button;
  }
}

// A panel is made anew: numbers of four sliders, icons and titles of ten buttons, two rows of the picker, and
// a line of the log.
TEST_F(SentMessagesOfATouch, MakeTheTextsOfANewPanelOnASwipe) {
  sentBy([&] { home.step("swipe up"); }, [] {},
         [&] {
           home.wait(1);
           home.step("tap \"close\"");
           home.wait(1);
         });
  EXPECT_EQ(textsMade(),
            "2 autorelease, 3 description, 2 initWithString:attributes:, 6 stringByAppendingString:, "
            "10 stringByTrimingWhiteSpaceFromString:, stringByTrimmingCharactersInSet:, "
            "10 stringWithCharacters:length:, 4 stringWithUTF8String:");
}

TEST_F(SentMessagesOfATouch, MakeNothingOfTheirOwnOnClose) {
  sentBy([&] { home.step("tap \"close\""); }, [&] { home.open(); }, [&] { home.wait(1); });
  EXPECT_EQ(made(),
            "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:"
            "completion:, sharedApplication");
}

// The file is read, and the layout at that place is made the current one.
TEST_F(SentMessagesOfATouch, MakeTheChosenLayoutOnSelect) {
  sentBy([&] { home.step("tap \"Select\""); }, [&] { home.openPresets(); }, [&] { home.wait(1); });
  EXPECT_EQ(made(),
            "JSONObjectWithData:options:error:, "
            "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:"
            "completion:, dataWithContentsOfFile:, mutableCopy, 2 numberWithInt:, sharedApplication, "
            "2 sharedInstance, sharedManager");
}

}  // namespace
