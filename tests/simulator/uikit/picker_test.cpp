// Pickers: what they ask, how they show it, and how a finger turns them.
#include <algorithm>
#include <cmath>

#include "platform/uikit/label.hpp"
#include "platform/uikit/picker_view.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"
#include "tests/support/raised.hpp"

namespace test {
namespace {

struct Lister : bridge::Face<"TestLister", NSObject> {};
struct ListerState {
  NSInteger components = 1, rows = 20;
  double width = 300, height = 32;
  bool attributed = false;
};
using ListerClass = bridge::Implementation<Lister, ListerState>;

// A delegate that has no counts to give.
struct Titler : bridge::Face<"TestTitler", NSObject> {};

struct Answers {
  static NSInteger components(Lister self, UIPickerView) { return ListerClass::state(self).components; }
  static NSInteger rows(Lister self, UIPickerView, NSInteger) { return ListerClass::state(self).rows; }
  static NSString title(Lister, UIPickerView, NSInteger row, NSInteger) {
    return NSString::stringWithUTF8String(("row " + std::to_string(row)).c_str());
  }
  static NSAttributedString attributed(Lister self, UIPickerView, NSInteger row, NSInteger) {
    if (!ListerClass::state(self).attributed) return {};
    const std::string text = "red " + std::to_string(row);
    return make<NSAttributedString, &NSAttributedString::initWithString_attributes>(
               NSString::stringWithUTF8String(text.c_str()),
               NSDictionary::dictionaryWithObject_forKey(
                   UIColor::redColor(), bridge::as<NSString>(NSForegroundColorAttributeName)))
        .autoreleased();
  }
  static CGFloat width(Lister self, UIPickerView, NSInteger) { return ListerClass::state(self).width; }
  static CGFloat height(Lister self, UIPickerView, NSInteger) { return ListerClass::state(self).height; }
  static void selected(Lister, UIPickerView, NSInteger row, NSInteger component) {
    note("selected " + std::to_string(row) + " of " + std::to_string(component));
  }
  static NSString titlerTitle(Titler, UIPickerView, NSInteger, NSInteger) { return "title"_ns; }
};

class Picker : public Fingers {
 protected:
  Picker() {
    using A = Answers;
    using D = UIPickerViewDelegate;
    ListerClass::define<NSObject>(
        method<&UIPickerViewDataSource::numberOfComponentsInPickerView, A::components>(),
        method<&UIPickerViewDataSource::pickerView_numberOfRowsInComponent, A::rows>(),
        method<&D::pickerView_titleForRow_forComponent, A::title>(),
        method<&D::pickerView_attributedTitleForRow_forComponent, A::attributed>(),
        method<&D::pickerView_widthForComponent, A::width>(),
        method<&D::pickerView_rowHeightForComponent, A::height>(),
        method<&D::pickerView_didSelectRow_inComponent, A::selected>());
    bridge::Implementation<Titler>::define<NSObject>(
        method<&D::pickerView_titleForRow_forComponent, A::titlerTitle>());
    lister = make<Lister, &NSObject::init>();
    picker = make<UIPickerView, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 280}});
    picker->delegate.set(lister);
    window->addSubview(picker);
    sim::uikit::layoutPass();
  }

  ListerState& answers() { return ListerClass::state(lister); }

  std::vector<UILabel> labels() {
    sim::uikit::layoutPass();
    std::vector<UILabel> found;
    sim::uikit::forEachInTree(picker.get(), [&](UIView view) {
      if (bridge::isKindOf<UILabel>(view)) found.push_back(bridge::as<UILabel>(view));
    });
    return found;
  }

  UILabel labelled(const std::string& text) {
    for (const UILabel label : labels())
      if (label.text().UTF8String() == text) return label;
    return {};
  }

  double middleOf(const std::string& text) {
    const UILabel label = labelled(text);
    EXPECT_TRUE(label) << text;
    return label ? label.center().y : 0;
  }

  std::string nearestToTheMiddle() {
    const std::vector<UILabel> all = labels();
    const auto distance = [this](UILabel label) { return std::abs(label.center().y - middle.y); };
    return std::ranges::min_element(all, {}, distance)->text().UTF8String();
  }

  NSInteger selected() { return picker->selectedRowInComponent(0); }

  // Drags and rests before lifting, so that nothing is flung.
  void dragBy(double way) {
    down(middle);
    travel(middle, {middle.x, middle.y + way}, 0.3);
    pass(0.2);
    up({middle.x, middle.y + way});
  }

  Strong<Lister> lister;
  Strong<UIPickerView> picker;
  CGPoint middle{150, 140};
};

TEST_F(Picker, AsksItsDelegateForCountsWhereThereIsNoDataSource) {
  EXPECT_EQ(picker->numberOfComponents(), 1);
  EXPECT_EQ(picker->numberOfRowsInComponent(0), 20);  // assumed
}

TEST_F(Picker, AsksItsDataSourceForCountsWhereThereIsOne) {
  auto source = make<Lister, &NSObject::init>();
  ListerClass::state(source).rows = 3;
  picker->dataSource.set(source);
  EXPECT_EQ(picker->numberOfRowsInComponent(0), 3);  // confirmed: Apple documentation of the data source
}

TEST_F(Picker, IsEmptyWhereNobodyKnowsTheCounts) {
  auto titler = make<Titler, &NSObject::init>();
  picker->delegate.set(titler);
  EXPECT_EQ(picker->numberOfComponents(), 0);  // assumed
  EXPECT_TRUE(labels().empty());
}

TEST_F(Picker, DoesNotKeepItsDelegate) {
  const NSUInteger before = lister->retainCount();
  picker->delegate.set({});
  picker->delegate.set(lister);
  EXPECT_EQ(lister->retainCount(), before);  // confirmed: Apple documentation of delegate
  lister = nullptr;
  EXPECT_FALSE(picker->delegate());
  picker->reloadAllComponents();
  EXPECT_EQ(picker->numberOfComponents(), 0);
}

TEST_F(Picker, HasTheUsualSizeUnlessItIsGivenOne) {
  auto usual = make<UIPickerView, &NSObject::init>();
  EXPECT_EQ(usual->frame().size, (CGSize{320, 216}));  // confirmed: the usual frame of these systems
}

TEST_F(Picker, ShowsTheSelectedRowInTheMiddleAndItsNeighboursFlatter) {
  picker->selectRow_inComponent_animated(5, 0, NO);
  const UILabel row = labelled("row 5"), next = labelled("row 6"), second = labelled("row 7");
  EXPECT_EQ(row.center(), (CGPoint{150, 140}));
  EXPECT_EQ(row.transform().d, 1);
  EXPECT_EQ(row.alpha(), 1);
  EXPECT_NEAR(next.center().y, 140 + 108 * std::sin(32.0 / 108), 1e-9);  // assumed
  EXPECT_LT(next.transform().d, 1);
  EXPECT_LT(second.transform().d, next.transform().d);
  EXPECT_LT(second.alpha(), next.alpha());
  EXPECT_LT(next.alpha(), 1);
  EXPECT_NEAR(middleOf("row 4"), 280 - next.center().y, 1e-9);
}

TEST_F(Picker, ShowsOnlyTheRowsOnTheNearSide) {
  answers().rows = 5000;
  picker->reloadAllComponents();
  picker->selectRow_inComponent_animated(2500, 0, NO);
  EXPECT_LT(labels().size(), 15u);
  EXPECT_GT(labels().size(), 8u);
  EXPECT_FALSE(labelled("row 2490"));
}

TEST_F(Picker, HasAsManyRowsAsThereAre) {
  for (const NSInteger count : {0, 1, 3}) {
    answers().rows = count;
    picker->reloadAllComponents();
    EXPECT_EQ(labels().size(), static_cast<std::size_t>(count));
    EXPECT_EQ(selected(), count ? 0 : -1);  // confirmed: Apple documentation of selectedRowInComponent
  }
}

TEST_F(Picker, PrefersAttributedTitlesAndTheirColour) {
  answers().attributed = true;
  picker->reloadAllComponents();
  const UILabel row = labelled("red 0");  // confirmed: Apple documentation of attributedTitleForRow
  ASSERT_TRUE(row);
  EXPECT_EQ(row.textColor(), UIColor::redColor());
}

TEST_F(Picker, DrawsLinesAroundTheMiddleRow) {
  std::vector<CGRect> lines;
  const NSArray views = picker->subviews();
  for (NSUInteger i = 0; i < views.count(); ++i) {
    const CGRect frame = bridge::as<UIView>(views.objectAtIndex(i)).frame();
    if (frame.size.height < 1) lines.push_back(frame);
  }
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], (CGRect{{0, 124}, {300, 0.5}}));    // assumed
  EXPECT_EQ(lines[1], (CGRect{{0, 155.5}, {300, 0.5}}));  // assumed
}

TEST_F(Picker, TakesWidthsAndRowHeightsFromItsDelegate) {
  answers().components = 2;
  answers().width = 100.0;
  answers().height = 50;
  picker->reloadAllComponents();
  sim::uikit::layoutPass();
  const UILabel row = labelled("row 0");
  EXPECT_EQ(row.bounds().size.height, 50);  // confirmed: Apple documentation of rowHeightForComponent
  EXPECT_EQ(row.superview().frame().size, (CGSize{100, 280}));  // confirmed: widthForComponent
  EXPECT_EQ(labels().front().superview().frame().origin.x, 50);
}

TEST_F(Picker, TurnsUnderAFingerAndTellsOnceWhenItHasSettled) {
  dragBy(-70);
  EXPECT_EQ(takeLog(), Log{});
  pass(1);
  EXPECT_EQ(takeLog(), Log{"selected 2 of 0"});  // confirmed: told once the wheel has settled
  EXPECT_EQ(selected(), 2);
  EXPECT_EQ(middleOf("row 2"), 140);
  pass(1);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Picker, FollowsTheFinger) {
  down(middle);
  travel(middle, {150, 108}, 0.2);
  EXPECT_EQ(middleOf("row 1"), 140);  // confirmed: the wheel follows the finger
  EXPECT_EQ(selected(), 0);
  up({150, 108});
}

TEST_F(Picker, GoesOnTurningWhenItIsFlung) {
  down(middle);
  travel(middle, {150, 90}, 0.05);
  up({150, 90});
  pass(0.1);
  EXPECT_EQ(takeLog(), Log{});
  pass(4);
  EXPECT_GT(selected(), 5);  // assumed
  EXPECT_EQ(takeLog(), Log{"selected " + std::to_string(selected()) + " of 0"});
}

TEST_F(Picker, ComesBackFromBeyondItsFirstAndLastRow) {
  down(middle);
  travel(middle, {150, 240}, 0.3);
  EXPECT_GT(middleOf("row 0"), 140);
  EXPECT_LT(middleOf("row 0"), 240);  // assumed: held as a scroll view holds its edge
  pass(0.2);
  up({150, 240});
  pass(2);
  EXPECT_EQ(selected(), 0);
  EXPECT_EQ(middleOf("row 0"), 140);
}

TEST_F(Picker, TurnsToARowThatIsTapped) {
  tap({150, middleOf("row 3")});
  EXPECT_EQ(takeLog(), Log{});
  pass(1);
  EXPECT_EQ(takeLog(), Log{"selected 3 of 0"});  // confirmed: a tap on a row selects it
}

TEST_F(Picker, DoesNothingWhenTheMiddleRowOrNoneIsTapped) {
  tap(middle);
  pass(1);
  tap({150, 40});  // above the first row
  pass(1);
  EXPECT_EQ(takeLog(), Log{});  // assumed
}

TEST_F(Picker, StopsUnderAFingerAndSettles) {
  down(middle);
  travel(middle, {150, 60}, 0.05);
  up({150, 60});
  pass(0.1);
  down({150, 210});
  const double stopped = labels().front().center().y;
  pass(0.3);
  EXPECT_EQ(labels().front().center().y, stopped);  // confirmed: a finger stops a turning wheel
  EXPECT_EQ(takeLog(), Log{});
  const std::string nearest = nearestToTheMiddle();
  up({150, 210});
  pass(1);
  EXPECT_EQ(middleOf(nearest), 140);  // assumed: the finger was no tap on the row under it
  EXPECT_EQ(takeLog(), Log{"selected " + std::to_string(selected()) + " of 0"});
}

TEST_F(Picker, TellsNobodyWhenItIsTurnedByAMessage) {
  picker->selectRow_inComponent_animated(7, 0, YES);
  EXPECT_EQ(selected(), 7);
  EXPECT_EQ(middleOf("row 0"), 140);
  pass(2);
  EXPECT_EQ(middleOf("row 7"), 140);
  EXPECT_EQ(takeLog(), Log{});  // confirmed: Apple documentation of selectRow
}

TEST_F(Picker, StaysAtItsRowWhenItIsReloadedOrAtTheLast) {
  picker->selectRow_inComponent_animated(7, 0, NO);
  picker->reloadAllComponents();
  EXPECT_EQ(selected(), 7);
  answers().rows = 3;
  picker->reloadAllComponents();
  EXPECT_EQ(selected(), 2);  // assumed
  EXPECT_EQ(middleOf("row 2"), 140);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Picker, HasNoOtherComponents) {
  EXPECT_EQ(raisedName([&] { picker->numberOfRowsInComponent(1); }), "NSRangeException");  // assumed
  EXPECT_EQ(raisedName([&] { picker->selectRow_inComponent_animated(0, -1, NO); }), "NSRangeException");
}

TEST_F(Picker, WithNothingInItIsTurnedInVain) {
  answers().rows = 0;
  picker->reloadAllComponents();
  dragBy(-70);
  tap({150, 180});
  pass(2);
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_EQ(selected(), -1);
}

// In a view with two pages side by side, itself in a card that can be dragged.
class PagedPicker : public Picker {
 protected:
  PagedPicker() {
    card = touchView({{0, 0}, {300, 390}}, "card");
    attach<UIPanGestureRecognizer>(card, "card");
    pages = make<UIScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 350}});
    pages->contentSize.set({600, 350});
    pages->pagingEnabled.set(YES);
    card->addSubview(pages);
    pages->addSubview(picker);
    sim::uikit::layoutPass();
  }

  Strong<TouchView> card;
  Strong<UIScrollView> pages;
};

TEST_F(PagedPicker, IsTurnedByVerticalDragsAlone) {
  dragBy(-64);
  pass(1);
  EXPECT_EQ(takeLog(), Log{"selected 2 of 0"});
  EXPECT_EQ(pages->contentOffset(), (CGPoint{0, 0}));
}

TEST_F(PagedPicker, LeavesHorizontalDragsToThePages) {
  down(middle);
  travel(middle, {20, 150}, 0.2);
  up({20, 150});
  pass(2);
  EXPECT_EQ(takeLog(), Log{});  // confirmed: a table in a paged scroll view
  EXPECT_EQ(pages->contentOffset(), (CGPoint{300, 0}));
  EXPECT_EQ(selected(), 0);
}

TEST_F(PagedPicker, IsTappedWithinThePages) {
  tap({150, middleOf("row 2")});
  pass(2);
  EXPECT_EQ(takeLog(), Log{"selected 2 of 0"});
}

}  // namespace
}  // namespace test
