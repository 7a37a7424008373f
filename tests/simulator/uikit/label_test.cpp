// Labels and fonts.
#include "platform/uikit/label.hpp"

#include <cmath>

#include "simulator/uikit/text/font.hpp"
#include "tests/simulator/uikit/canvas.hpp"

namespace test {
namespace {

using Label = UIKit;
using Fonts = UIKit;

struct NSMutableString : bridge::Face<"NSMutableString", NSString> {
  MESSAGE Method<"appendString:", void(NSString)> appendString;
};

Strong<UILabel> makeLabel(NSString text = {}) {
  auto label = make<UILabel, &UIView::initWithFrame>(CGRect{{0, 0}, {200, 50}});
  label->text.set(text);
  return label;
}

TEST_F(Label, StartsAsDocumented) {
  auto label = makeLabel();
  // confirmed: Apple documentation of UILabel
  EXPECT_FALSE(label->text());
  EXPECT_EQ(label->font().pointSize(), 17);
  EXPECT_EQ(label->numberOfLines(), 1);
  EXPECT_EQ(label->lineBreakMode(), NSLineBreakByTruncatingTail);
  EXPECT_TRUE(label->textColor() == UIColor::blackColor());
  EXPECT_FALSE(label->shadowColor());
  EXPECT_EQ(label->shadowOffset(), (CGSize{0, -1}));
  EXPECT_FALSE(label->userInteractionEnabled());
}

TEST_F(Label, KeepsACopyOfItsText) {
  auto text = make<NSMutableString, &NSObject::init>();
  text->appendString("one"_ns);
  auto label = makeLabel(text);
  text->appendString(" two"_ns);
  EXPECT_STREQ(label->text().UTF8String(), "one");  // confirmed: text is a copied property
}

TEST_F(Label, AsksForTheRoomOfItsText) {
  EXPECT_EQ(makeLabel()->sizeThatFits({}), (CGSize{0, 0}));
  const CGSize word = makeLabel("Label"_ns)->sizeThatFits({});
  EXPECT_GT(word.width, 30);
  EXPECT_NEAR(word.height, 20.5, 1.5);  // assumed: 20.5 with Apple's own font
  EXPECT_EQ(word.width * 2, std::round(word.width * 2)) << "whole pixels";
  const CGSize words = makeLabel("Label Label"_ns)->sizeThatFits({10, 10});
  EXPECT_GT(words.width, 2 * word.width) << "one line, however narrow";
  EXPECT_EQ(words.height, word.height);
}

TEST_F(Label, ManyLinesKeepToTheWidth) {
  auto label = makeLabel("one two three four five six seven eight nine ten"_ns);
  const CGSize line = label->sizeThatFits({100, 1000});
  label->numberOfLines.set(0);
  const CGSize lines = label->sizeThatFits({100, 1000});
  EXPECT_LE(lines.width, 100);
  EXPECT_GT(lines.height, 3 * line.height);
  label->numberOfLines.set(2);
  EXPECT_NEAR(label->sizeThatFits({100, 1000}).height, 2 * line.height, 1);
}

TEST_F(Label, LargerFontTakesMoreRoom) {
  auto label = makeLabel("Label"_ns);
  const CGSize small = label->sizeThatFits({});
  label->font.set(UIFont::systemFontOfSize(34));
  EXPECT_NEAR(label->sizeThatFits({}).width, 2 * small.width, 1);
  label->sizeToFit();
  EXPECT_EQ(label->frame().size, label->sizeThatFits({}));
}

class LabelShadow : public Canvas {
 protected:
  LabelShadow() {
    label->textColor.set(UIColor::redColor());
    label->shadowColor.set(UIColor::blueColor());
    label->shadowOffset.set({0, 30});
  }

  // Blue in the lower half, where nothing but the shadow is.
  int blue() {
    label->drawRect(label->bounds());
    int most = 0;
    for (int y = 50; y < 100; ++y)
      for (int x = 0; x < 100; ++x) most = std::max(most, at(x, y).blue);
    return most;
  }

  Strong<UILabel> label = [] {
    auto made = make<UILabel, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 60}});
    made->text.set("HHH"_ns);
    made->font.set(UIFont::systemFontOfSize(30));
    return made;
  }();
};

TEST_F(LabelShadow, LiesAtItsOffset) { EXPECT_GT(blue(), 240); }

TEST_F(LabelShadow, IsFaintBelowFaintText) {
  label->textColor.set(UIColor::redColor().colorWithAlphaComponent(0.25));
  EXPECT_NEAR(blue(), 64, 8);  // assumed
}

TEST_F(LabelShadow, IsNotDrawnRightBehindTheText) {
  label->shadowOffset.set({0, 0});
  label->textColor.set(UIColor::redColor().colorWithAlphaComponent(0.5));
  label->drawRect(label->bounds());
  for (int x = 0; x < 100; ++x) EXPECT_EQ(at(x, 30).blue, 0);  // assumed
}

TEST_F(Fonts, SystemFontsHaveTheirSizeAndWeight) {
  const UIFont plain = UIFont::systemFontOfSize(12);
  EXPECT_EQ(plain.pointSize(), 12);
  EXPECT_EQ(sim::uikit::fontOf(plain).weight, sim::FontWeight::regular);
  EXPECT_EQ(sim::uikit::fontOf(UIFont::boldSystemFontOfSize(12)).weight,
            sim::FontWeight::semibold);  // assumed
}

TEST_F(Fonts, NamedOneIsThereOnceItIsRegistered) {
  EXPECT_FALSE(
      UIFont::fontWithName_size("TestIcons"_ns, 20));  // confirmed: Apple documentation of fontWithName:size:
  sim::uikit::registerFont("TestIcons", sim::iconFontFamily);
  const UIFont font = UIFont::fontWithName_size("TestIcons"_ns, 20);
  ASSERT_TRUE(font);
  EXPECT_STREQ(font.fontName().UTF8String(), "TestIcons");
  EXPECT_EQ(font.pointSize(), 20);
  EXPECT_EQ(sim::uikit::fontOf(font).family, sim::iconFontFamily);
  EXPECT_TRUE(UIFont::fontWithName_size("Helvetica"_ns, 20));
}

}  // namespace
}  // namespace test
