// What a notice box gives its parts: room for a view of one's own, and texts as they were asked for.
#include "tests/library/grid_home.hpp"
#include "tests/library/hud_box.hpp"

namespace test {
namespace {

class AViewOfOnesOwn : public HUDBox {
 protected:
  AViewOfOnesOwn() {
    hud->mode.set(4);
    hud->labelText.set("Loading"_ns);
  }

  void take(CGSize size) {
    own = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{}, size});
    hud->customView.set(own.get());
    layOut();
  }

  Strong<UIView> own;
};

TEST_F(AViewOfOnesOwn, TakesNoRoomWithoutAHeight) {
  take({300, 0});
  const CGSize text = textSize(label(0));
  EXPECT_TRUE(near(box(), centred({text.width + 40, text.height + 40})));
  EXPECT_TRUE(near(label(0).frame(), centred(text)));
}

TEST_F(AViewOfOnesOwn, TakesNoRoomWithoutAWidth) {
  take({0, 300});
  const CGSize text = textSize(label(0));
  EXPECT_TRUE(near(box(), centred({text.width + 40, text.height + 40})));
  EXPECT_TRUE(near(label(0).frame(), centred(text)));
}

TEST_F(AViewOfOnesOwn, TakesRoomWithASinglePoint) {
  take({1, 1});
  const CGSize text = textSize(label(0));
  EXPECT_TRUE(near(box(), centred({text.width + 40, 1 + 4 + text.height + 40})));
  EXPECT_EQ(label(0).frame().origin.y, own->frame().origin.y + 1 + 4);
}

TEST_F(AViewOfOnesOwn, BeginsOnAWholePoint) {
  hud->labelText.set(""_ns);
  take({37, 37});
  hud->frame.set({{0, 0}, {37.6 + 37.6, 38.2}});
  layOut();
  EXPECT_EQ(own->frame().origin, (CGPoint{19, 1}));
  hud->frame.set({{0, 0}, {38.2, 37.6 + 37.6}});
  layOut();
  EXPECT_EQ(own->frame().origin, (CGPoint{1, 19}));
}

class ATextOfANotice : public HUDBox {
 protected:
  ATextOfANotice() {
    hud->mode.set(5);
    hud->labelText.set("Loading"_ns);
    hud->detailsLabelText.set("Soon"_ns);
  }
};

TEST_F(ATextOfANotice, HasItsFont) {
  for (const bool other : {false, true}) {
    if (other) {
      hud->labelFont.set(UIFont::systemFontOfSize(30));
      hud->detailsLabelFont.set(UIFont::systemFontOfSize(25));
    }
    EXPECT_TRUE(label(0).font() == hud->labelFont());
    EXPECT_TRUE(label(1).font() == hud->detailsLabelFont());
    EXPECT_EQ(label(0).font().pointSize(), other ? 30 : 16);
    EXPECT_EQ(label(1).font().pointSize(), other ? 25 : 12);
  }
}

TEST_F(ATextOfANotice, HasItsColour) {
  hud->labelColor.set(UIColor::redColor());
  EXPECT_TRUE(label(0).textColor() == UIColor::redColor());
  EXPECT_FALSE(label(1).textColor() == UIColor::redColor());
  hud->detailsLabelColor.set(UIColor::blueColor());
  EXPECT_TRUE(label(0).textColor() == UIColor::redColor());
  EXPECT_TRUE(label(1).textColor() == UIColor::blueColor());
}

TEST_F(ATextOfANotice, LetsTheBoxThrough) {
  for (int i : {0, 1}) {
    EXPECT_TRUE(label(i).backgroundColor() == UIColor::clearColor());
    EXPECT_FALSE(label(i).opaque());
  }
}

TEST_F(ATextOfANotice, StandsAtItsPlace) {
  layOut();
  for (int i : {0, 1}) EXPECT_EQ(label(i).bounds(), (CGRect{{0, 0}, textSize(label(i))}));
}

// Whether anything of a text is to be seen between two heights of a label, in parts of it.
bool hasInk(UILabel label, double from, double to) {
  const sim::Surface screen = sim::uikit::renderScreen(sim::clock::now());
  const CGRect frame = label.frame();
  for (int y = static_cast<int>(2 * (frame.origin.y + from * frame.size.height));
       y < 2 * (frame.origin.y + to * frame.size.height); ++y)
    for (int x = static_cast<int>(2 * frame.origin.x); x < 2 * (frame.origin.x + frame.size.width); ++x)
      if (sim::test::pixelAt(screen.get(), x, y).red > 100) return true;
  return false;
}

TEST_F(ATextOfANotice, IsShownInAllOfItsLines) {
  hud->labelText.set("mmm\nmmm\nmmm"_ns);
  layOut();
  for (const double part : {0.0, 1 / 3.0, 2 / 3.0})
    EXPECT_TRUE(hasInk(label(0), part, part + 1 / 3.0)) << part;
}

CGRect inWholePoints(NSExtendedStringDrawing, CGSize, NSInteger, NSDictionary, bridge::Object) {
  return {{0, 0}, {50, 20}};
}

TEST_F(ATextOfANotice, OfWholePointsTakesNoMore) {
  standIn<NSExtendedStringDrawing, &NSExtendedStringDrawing::boundingRectWithSize_options_attributes_context,
          inWholePoints>();
  hud->setNeedsLayout();
  layOut();
  EXPECT_EQ(label(0).frame().size, (CGSize{50, 20}));
}

}  // namespace
}  // namespace test
