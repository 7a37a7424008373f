// What a view's frame becomes when its superview's size changes.
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class Autoresizing : public UIKit {
 protected:
  // A view at (10, 20, 30, 40) in a superview of 100 by 200 that grows by 100 each way.
  static CGRect grown(NSUInteger mask) {
    auto parent = makeView({{0, 0}, {100, 200}});
    auto child = makeView({{10, 20}, {30, 40}});
    child->autoresizingMask.set(mask);
    parent->addSubview(child);
    parent->frame.set({{0, 0}, {200, 300}});
    return child->frame();
  }
};

TEST_F(Autoresizing, NothingFlexibleKeepsThePlace) {
  EXPECT_EQ(grown(UIViewAutoresizingNone), (CGRect{{10, 20}, {30, 40}}));  // confirmed: device-facts 7.4
}

TEST_F(Autoresizing, OneFlexiblePartTakesItAll) {
  EXPECT_EQ(grown(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight),
            (CGRect{{10, 20}, {130, 140}}));  // confirmed: device-facts 7.4
  EXPECT_EQ(grown(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleTopMargin),
            (CGRect{{110, 120}, {30, 40}}));
  EXPECT_EQ(grown(UIViewAutoresizingFlexibleRightMargin | UIViewAutoresizingFlexibleBottomMargin),
            (CGRect{{10, 20}, {30, 40}}));
}

TEST_F(Autoresizing, FlexiblePartsShareInProportionToTheirLengths) {
  // Widths 10, 30, 60: the margins hold 70 between them.
  const CGRect margins = grown(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin);
  EXPECT_NEAR(margins.origin.x, 10 + 100.0 * 10 / 70, 1e-9);  // confirmed: device-facts 7.4
  EXPECT_EQ(margins.size.width, 30);
  const CGRect all = grown(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth |
                           UIViewAutoresizingFlexibleRightMargin);
  EXPECT_NEAR(all.origin.x, 20, 1e-9);
  EXPECT_NEAR(all.size.width, 60, 1e-9);
}

TEST_F(Autoresizing, EmptyFlexiblePartsShareEqually) {
  auto parent = makeView({{0, 0}, {30, 30}});
  auto child = makeView({{0, 0}, {30, 30}});
  child->autoresizingMask.set(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin);
  parent->addSubview(child);
  parent->bounds.set({{0, 0}, {50, 50}});
  EXPECT_EQ(child->frame(), (CGRect{{10, 0}, {30, 30}}));  // confirmed: device-facts 7.4
}

TEST_F(Autoresizing, RunsOnlyWhereItIsWanted) {
  auto parent = makeView({{0, 0}, {30, 30}});
  auto child = makeView({{0, 0}, {30, 30}});
  child->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  parent->addSubview(child);
  parent->autoresizesSubviews.set(NO);
  parent->frame.set({{0, 0}, {60, 60}});
  EXPECT_EQ(child->frame().size.width, 30);  // confirmed: Apple documentation of autoresizesSubviews
}

TEST_F(Autoresizing, GoesDownTheTree) {
  auto parent = makeView({{0, 0}, {100, 100}});
  auto child = makeView({{0, 0}, {100, 100}});
  auto grandchild = makeView({{0, 0}, {100, 100}});
  child->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  grandchild->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  child->addSubview(grandchild);
  parent->addSubview(child);
  parent->frame.set({{0, 0}, {150, 100}});
  EXPECT_EQ(grandchild->frame().size.width, 150);  // confirmed: device-facts 7.4
}

TEST_F(Autoresizing, TellsTheSubviewByItsFrame) {
  auto parent = makeView({{0, 0}, {100, 100}});
  auto child = makeRecordingView({{0, 0}, {100, 100}});
  child->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  parent->addSubview(child);
  linesOf(child).clear();
  parent->frame.set({{0, 0}, {150, 100}});
  EXPECT_EQ(linesOf(child), std::vector<std::string>{"frame"});  // assumed
}

}  // namespace
}  // namespace test
