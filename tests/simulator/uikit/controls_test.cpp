// Page controls.
#include "simulator/uikit/controls/page_control.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class PageControl : public UIKit {
 protected:
  Strong<UIPageControl> control = make<UIPageControl, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 37}});
};

TEST_F(PageControl, StaysWithinItsPages) {
  EXPECT_EQ(control->numberOfPages(), 0);  // confirmed: Apple documentation of UIPageControl
  EXPECT_EQ(control->currentPage(), 0);
  control->numberOfPages.set(3);
  control->currentPage.set(7);
  EXPECT_EQ(control->currentPage(), 2);  // confirmed: Apple documentation of currentPage
  control->currentPage.set(-1);
  EXPECT_EQ(control->currentPage(), 0);
  control->currentPage.set(2);
  control->numberOfPages.set(2);
  EXPECT_EQ(control->currentPage(), 1);
}

TEST_F(PageControl, ShowsADotForEachPageInTheMiddle) {
  control->numberOfPages.set(3);
  control->layoutIfNeeded();
  const auto dots = sim::uikit::indicatorsOf(control);
  ASSERT_EQ(dots.size(), 3u);
  EXPECT_EQ(control->subviews().count(), 3u);
  EXPECT_EQ(dots[1].center(), (CGPoint{50, 18.5}));
  EXPECT_EQ(dots[2].center().x - dots[1].center().x, 16);  // assumed
  EXPECT_TRUE(dots[0].image());
  control->numberOfPages.set(1);
  EXPECT_EQ(control->subviews().count(), 1u);
}

// A page control that writes down which dots are shown how.
struct RecordingControl : bridge::Face<"TestRecordingControl", UIPageControl> {};

std::string record;

void indexed(RecordingControl, UIImageView, BOOL enabled, NSInteger page) {
  record += std::to_string(page) + (enabled ? "+" : "-");
}

Strong<RecordingControl> makeRecordingControl() {
  using sim::uikit::PageIndicators;
  bridge::Implementation<RecordingControl>::define<UIPageControl>(
      method<&PageIndicators::setIndicatorImage_toEnabled_index, indexed>());
  record.clear();
  return make<RecordingControl, &UIView::initWithFrame>(CGRect{});
}

TEST_F(PageControl, SetsEachDotThroughOneMessage) {
  auto recording = makeRecordingControl();
  recording->numberOfPages.set(3);
  EXPECT_EQ(record, "0+1-2-");
  record.clear();
  recording->currentPage.set(2);
  EXPECT_EQ(record, "0-2+");
  recording->currentPage.set(2);
  EXPECT_EQ(record, "0-2+");
}

}  // namespace
}  // namespace test
