// Toolbars: where items stand, and what a tap on one does.
#include "platform/uikit/toolbar.hpp"

#include "platform/uikit/button.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

struct ItemTarget : bridge::Face<"TestItemTarget", UIView> {
  MESSAGE Method<"pressed:", void(bridge::Object)> pressed;
};
using TargetClass = bridge::Implementation<ItemTarget>;

class Toolbar : public Fingers {
 protected:
  Toolbar() {
    struct Functions {
      static void pressed(ItemTarget, bridge::Object sender) { note("pressed " + nameOf(sender)); }
    };
    TargetClass::define<UIView>(method<&ItemTarget::pressed, Functions::pressed>());
    target = make<ItemTarget, &UIView::initWithFrame>(CGRect{{0, 0}, {320, 200}});
    window->addSubview(target);
    bar = make<UIToolbar, &UIView::initWithFrame>(CGRect{{0, 100}, {320, 44}});
    target->addSubview(bar);
  }

  static SEL pressed() { return bridge::Descriptor<&ItemTarget::pressed>::selector(); }

  Strong<UIBarButtonItem> item(NSString title, bridge::Object to, const char* name,
                               NSInteger style = UIBarButtonItemStylePlain) {
    auto made = make<UIBarButtonItem, &UIBarButtonItem::initWithTitle_style_target_action>(title, style, to,
                                                                                           pressed());
    happenings().names[made->raw] = name;
    return made;
  }

  static Strong<UIBarButtonItem> space() {
    return make<UIBarButtonItem, &UIBarButtonItem::initWithBarButtonSystemItem_target_action>(
        NSInteger(UIBarButtonSystemItemFlexibleSpace), bridge::Object(), SEL(nullptr));
  }

  void show(const std::vector<Strong<UIBarButtonItem>>& items) {
    auto array = make<NSMutableArray, &NSObject::init>();
    for (const auto& one : items) array->addObject(one.get());
    bar->items.set(array);
    bar->layoutIfNeeded();
  }

  // What stands on the bar beside its edge, in the order of the items.
  CGRect frameOf(NSUInteger index) {
    return bridge::as<UIView>(bar->subviews().objectAtIndex(index + 1)).frame();
  }

  Strong<ItemTarget> target;
  Strong<UIToolbar> bar;
};

TEST_F(Toolbar, IsFortyFourPointsHigh) {
  bar->frame.set({{0, 0}, {320, 50}});
  bar->sizeToFit();
  EXPECT_EQ(bar->frame(), (CGRect{{0, 0}, {320, 44}}));  // confirmed: Human Interface Guidelines, toolbars
}

TEST_F(Toolbar, KeepsTheItemsItWasGiven) {
  auto one = item("One"_ns, target, "one", UIBarButtonItemStyleDone);
  show({one, space()});
  EXPECT_EQ(bar->items().count(), 2u);
  EXPECT_TRUE(bridge::as<UIBarButtonItem>(bar->items().objectAtIndex(0)) == one.get());
  EXPECT_STREQ(one->title().UTF8String(), "One");
  EXPECT_EQ(one->style(), UIBarButtonItemStyleDone);
  EXPECT_TRUE(sel_isEqual(one->action(), pressed()));
  EXPECT_TRUE(one->target() == bridge::Object(target.get()));
}

TEST_F(Toolbar, SharesTheRestAmongFlexibleSpaces) {
  auto box = makeView({{0, 10}, {100, 30}});
  auto middle = make<UIBarButtonItem, &UIBarButtonItem::initWithCustomView>(box.get());
  auto left = makeView({{0, 0}, {40, 20}}), right = makeView({{0, 0}, {40, 20}});
  auto first = make<UIBarButtonItem, &UIBarButtonItem::initWithCustomView>(left.get());
  auto last = make<UIBarButtonItem, &UIBarButtonItem::initWithCustomView>(right.get());
  show({first, space(), middle, space(), last});
  EXPECT_EQ(left->frame(), (CGRect{{16, 12}, {40, 20}}));  // assumed: margins of 16 points
  EXPECT_EQ(box->frame(), (CGRect{{110, 7}, {100, 30}}));
  EXPECT_EQ(right->frame(), (CGRect{{264, 12}, {40, 20}}));
}

TEST_F(Toolbar, GivesUpItsMarginsWhereItemsNeedThem) {
  auto wide = makeView({{0, 0}, {310, 20}});
  auto one = make<UIBarButtonItem, &UIBarButtonItem::initWithCustomView>(wide.get());
  show({space(), one, space()});
  EXPECT_EQ(wide->frame(), (CGRect{{5, 12}, {310, 20}}));  // assumed
}

TEST_F(Toolbar, ShowsTitlesAsHighAsItself) {
  show({item("One"_ns, target, "one"), space(), item("Two"_ns, target, "two", UIBarButtonItemStyleDone)});
  EXPECT_EQ(frameOf(0).origin, (CGPoint{16, 0}));
  EXPECT_EQ(frameOf(0).size.height, 44);  // assumed
  EXPECT_EQ(frameOf(1).origin.x + frameOf(1).size.width, 304);
}

TEST_F(Toolbar, SendsTheItemAsTheSender) {
  show({item("One"_ns, target, "one"), space(), item("Two"_ns, target, "two")});
  tap({20, 122});
  tap({300, 122});
  EXPECT_EQ(takeLog(), (Log{"pressed one", "pressed two"}));  // confirmed: Apple documentation of action
  tap({160, 122});
  EXPECT_TRUE(takeLog().empty());
}

TEST_F(Toolbar, SendsActionsWithoutATargetUpTheChain) {
  show({item("One"_ns, {}, "one")});
  tap({20, 122});
  EXPECT_EQ(takeLog(), (Log{"pressed one"}));  // confirmed: Apple documentation of target
}

TEST_F(Toolbar, DoesNotKeepTheTargets) {
  auto passing = make<ItemTarget, &UIView::initWithFrame>(CGRect{});
  auto one = item("One"_ns, passing, "one");
  passing.clear();
  EXPECT_FALSE(one->target());  // confirmed: the property is weak
}

TEST_F(Toolbar, TakesTheOldItemsAway) {
  auto box = makeView({{0, 0}, {40, 20}});
  show({make<UIBarButtonItem, &UIBarButtonItem::initWithCustomView>(box.get())});
  EXPECT_TRUE(box->superview() == bar.get());
  show({space()});
  EXPECT_FALSE(box->superview());
  EXPECT_EQ(bar->subviews().count(), 1u);
}

TEST_F(Toolbar, IsTranslucentBlackInThatStyle) {
  bar->barStyle.set(UIBarStyleBlackTranslucent);
  CGFloat red, alpha;
  bar->backgroundColor().getRed_green_blue_alpha(&red, nullptr, nullptr, &alpha);
  EXPECT_EQ(bar->barStyle(), 2);
  EXPECT_LT(red, 0.2);
  EXPECT_LT(alpha, 1);
  bar->barStyle.set(UIBarStyleBlack);
  bar->backgroundColor().getRed_green_blue_alpha(nullptr, nullptr, nullptr, &alpha);
  EXPECT_EQ(alpha, 1);
}

}  // namespace
}  // namespace test
