// BButton: what its initialisers set up, the looks of its title, icons.
#include "controls/button.hpp"

#include <gtest/gtest.h>

#include "controls/button_colors.hpp"
#include "controls/icon_string.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::Strong;
using test::Home;
using tilo::BButton;

constexpr CGRect frame{{10, 20}, {100, 40}};

Strong<BButton> makeButton(NSUInteger type = 0, NSUInteger style = 1) {
  return bridge::make<BButton, &BButton::initWithFrame_type_style>(frame, type, style);
}

TEST(Button, PutsAnIconBeforeOrAfterItsTitle) {
  Home home;
  auto before = makeButton(), after = makeButton();
  before->setTitle_forState("Up"_ns, UIControlStateNormal);
  after->setTitle_forState("Up"_ns, UIControlStateNormal);
  before->addAwesomeIcon_beforeTitle(0xF139, YES);
  after->addAwesomeIcon_beforeTitle(0xF139, NO);
  EXPECT_STREQ(before->titleForState(UIControlStateNormal).UTF8String(), "\uF139 Up");
  EXPECT_STREQ(after->titleForState(UIControlStateNormal).UTF8String(), "Up \uF139");
}

TEST(Button, HasNothingButAnIconWithoutATitle) {
  Home home;
  auto untitled = makeButton(), blank = makeButton();
  blank->setTitle_forState(" \n\t "_ns, UIControlStateNormal);
  untitled->addAwesomeIcon_beforeTitle(0xF139, YES);
  blank->addAwesomeIcon_beforeTitle(0xF139, NO);
  EXPECT_STREQ(untitled->titleForState(UIControlStateNormal).UTF8String(), "\uF139");
  EXPECT_STREQ(blank->titleForState(UIControlStateNormal).UTF8String(), "\uF139");
}

}  // namespace
